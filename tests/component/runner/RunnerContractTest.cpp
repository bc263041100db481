// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/IStreamProcessingHelper.h"
#include "component/runner/RunnerFixture.h"
#include "support/HookSlot.h"
#include <QMetaMethod>

namespace {

std::vector<std::string> ownMethods(const QMetaObject& meta) {
    std::vector<std::string> methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        methods.push_back(meta.method(index).methodSignature().toStdString());
    return methods;
}

} // namespace

TEST(RunnerContract, NamesItsClassAndSignalsInOrder) {
    const QMetaObject& meta = Export::IStreamProcessingHelper::staticMetaObject;
    EXPECT_STREQ(meta.className(), "Export::IStreamProcessingHelper");
    EXPECT_EQ(ownMethods(meta),
              (std::vector<std::string>{"started()", "progressChanged(int,KTime)", "stopped()",
                                        "startFailed(std::exception_ptr)", "processingFailed(std::exception_ptr)"}));
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        EXPECT_EQ(meta.method(index).methodType(), QMetaMethod::Signal);
        EXPECT_EQ(meta.method(index).access(), QMetaMethod::Public);
    }
}

TEST(RunnerContract, NamesTheArgumentsOfProgressAlone) {
    const QMetaObject& meta = Export::IStreamProcessingHelper::staticMetaObject;
    const int offset = meta.methodOffset();
    EXPECT_EQ(meta.method(offset + 1).parameterNames(), (QList<QByteArray>{"percent", "remaining"}));
    EXPECT_EQ(meta.method(offset + 3).parameterNames(), QList<QByteArray>{""});
    EXPECT_EQ(meta.method(offset + 4).parameterNames(), QList<QByteArray>{""});
}

TEST(RunnerContract, HasStartAndThenStopBehindTheOperationsOfItsBase) {
    struct Base : QObject {
        static std::size_t lastSlot() { return hookSlot(&Base::disconnectNotify); }
    };
    EXPECT_EQ(hookSlot(&Export::IStreamProcessingHelper::start), Base::lastSlot() + 1);
    EXPECT_EQ(hookSlot(&Export::IStreamProcessingHelper::stop), Base::lastSlot() + 2);
}

TEST_F(Runner, HasNoParent) {
    EXPECT_EQ(runner->parent(), nullptr);
}

TEST_F(Runner, ThereIsNoneForUnknownModes) {
    for (const int mode : {2, 3, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        make(mode);
        EXPECT_EQ(runner, nullptr) << mode;
    }
}

TEST_F(Runner, MakesNothingBeforeItsStart) {
    TestSupport::turnEventLoop();
    EXPECT_EQ(calls(), CallLog::Calls());
}

TEST_F(Runner, MakesVideoThenAudioThenMuxerThenLaunches) {
    runner->start();
    EXPECT_EQ(calls(), (CallLog::Calls{"video encoder", "audio encoder", "muxer", "CreateStreamProcessor",
                                       "SetEventsReceiver", "Initialize", "Start"}));
}

TEST_F(Runner, GivesTheProcessorVideoFirstThenAudioAndTheMuxer) {
    runner->start();
    const auto& made = processors.GetMade().at(0);
    EXPECT_EQ(made.streams, (std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>>{encoders.at(0), encoders.at(1)}));
    EXPECT_EQ(made.muxer, lastMuxer);
}

TEST_F(Runner, LeavesOutWhatHasNoFactory) {
    runner = Export::createStreamProcessingHelper(0, {}, audioFactory(), {}, {});
    runner->start();
    const auto& made = processors.GetMade().at(0);
    EXPECT_EQ(made.streams, (std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>>{encoders.at(0)}));
    EXPECT_EQ(made.muxer, nullptr);
    EXPECT_EQ(processors.GetLog().Count("audio encoder"), 1U);
}

TEST_F(Runner, RunsAMuxerWithoutStreams) {
    runner = Export::createStreamProcessingHelper(0, {}, {}, muxerFactory(), {});
    runner->start();
    EXPECT_TRUE(processors.GetMade().at(0).streams.empty());
    EXPECT_EQ(processors.GetMade().at(0).muxer, lastMuxer);
}

TEST_F(Runner, KeepsItsOwnCopiesOfTheFactories) {
    auto video = videoFactory();
    auto muxer = muxerFactory();
    runner = Export::createStreamProcessingHelper(0, video, {}, muxer, {});
    video = nullptr;
    muxer = nullptr;
    runner->start();
    EXPECT_EQ(processors.GetLog().Count("video encoder"), 1U);
    EXPECT_EQ(processors.GetLog().Count("muxer"), 1U);
}
