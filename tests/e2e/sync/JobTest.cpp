// SPDX-License-Identifier: GPL-3.0-or-later
// The life of one export in a process that goes on.
#include "Composition/Object.h"
#include "Export/Transcoder.h"
#include "ExportCore/ExportJob.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/TimeText.h"
#include "Message/Types.h"
#include "PubSub/Subscriber.h"
#include "WatchedJob.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QVariant>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <pthread.h>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using ExportCore::ExportProgress;
using ExportCore::ExportRequest;
using Kestra::Proc::TranscodingError;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;

namespace {

/// No thread can be made: each would get more stack than there are addresses.
class ThreadsRefused {
public:
    ThreadsRefused() {
        pthread_attr_t attributes;
        pthread_getattr_default_np(&attributes);
        pthread_attr_getstacksize(&attributes, &before);
        set(std::size_t{1} << 60);
        pthread_attr_destroy(&attributes);
    }
    ~ThreadsRefused() { set(before); }
    ThreadsRefused(const ThreadsRefused&) = delete;
    ThreadsRefused& operator=(const ThreadsRefused&) = delete;

private:
    static void set(std::size_t stack) {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, stack);
        pthread_setattr_default_np(&attributes);
        pthread_attr_destroy(&attributes);
    }
    std::size_t before = 0;
};

class Job : public ::testing::Test, protected TestExport::WatchedJob {
protected:
    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        TestMedia::FlashBeep flashBeep;
        flashBeep.width = 640;
        flashBeep.height = 360;
        flashBeep.frames = 250;
        TestMedia::makeFlashBeep(*media / "clip.mov", flashBeep);
    }
    static void TearDownTestSuite() { delete media; }

    ExportRequest request() const {
        ExportRequest result = TestExport::requestOf(*media / "clip.mov", "mp4-h264-720p", output);
        result.overwrite = true;
        return result;
    }
    void make(const ExportRequest& what) {
        WatchedJob::make(what);
        QObject::connect(job.get(), &ExportJob::progressChanged,
                         [this](const ExportProgress& now) { progress.push_back(now); });
    }

    static TestMedia::Folder* media;
    std::vector<ExportProgress> progress;
};

TestMedia::Folder* Job::media = nullptr;

TEST_F(Job, TellsStartThenProgressThenItsEndOnce) {
    make(request());
    job->start();
    EXPECT_EQ(finishCount, 0) << "everything comes from the event loop";
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(startCount, 1);
    ASSERT_FALSE(progress.empty());
    for (std::size_t i = 1; i < progress.size(); ++i)
        EXPECT_GE(progress[i].percent, progress[i - 1].percent);
    EXPECT_EQ(outcome.facts.frames, 250);
    EXPECT_EQ(outcome.facts.durationMs, 10'000);
    EXPECT_EQ(outcome.facts.sizeBytes, TestFiles::read(output).size());
    EXPECT_EQ(outcome.facts.videoCodec, "h264");
    EXPECT_EQ(outcome.facts.audioCodec, "aac");
}

TEST(InstalledPresets, AllMakeAFileThatPassesItsCheck) {
    const TestMedia::Folder folder;
    TestMedia::FlashBeep clip;
    clip.frames = 12;
    TestMedia::makeFlashBeep(folder / "clip.mov", clip);
    const auto ids = ExportCore::PresetCatalogue().ids();
    EXPECT_GT(ids.size(), 30U);
    for (const std::string& id : ids) {
        const ExportOutcome made =
            TestExport::run(TestExport::requestOf(folder / "clip.mov", id.c_str(), folder / ("made-" + id)));
        EXPECT_EQ(made.status, Status::Done) << id << ": " << made.error.GetDescription();
    }
}

TEST_F(Job, TwoJobsOneAfterTheOtherBothSucceed) {
    for (int run = 0; run < 2; ++run) {
        const ExportOutcome result = TestExport::run(request());
        EXPECT_EQ(result.status, Status::Done) << result.error.GetDescription();
    }
}

TEST_F(Job, AStopDuringTheRunLeavesTheOldFile) {
    make(request());
    job->start();
    ASSERT_TRUE(waitUntil([this] { return !progress.empty(); }));
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    expectUntouched();
}

TEST_F(Job, AStopAtAnyTurnOfTheEventLoopIsAStop) {
    for (int turns = 0; turns < 8; ++turns) {
        finishCount = 0;
        make(request());
        job->start();
        TestSupport::turnEventLoop(turns);
        job->stop();
        job->stop();
        ASSERT_TRUE(waitForEnd()) << turns;
        EXPECT_EQ(outcome.status, Status::Stopped) << turns;
        EXPECT_NE(outcome.error.GetCode(), TranscodingError::Stalled) << outcome.error.GetDescription();
        expectUntouched();
    }
}

/// Calls when a project has put its composition on the bus, which a job does in the middle of a step.
class WhenAProjectIsMade : public PubSub::Subscriber<Message::Types::Added<Composition::Object>> {
public:
    explicit WhenAProjectIsMade(std::function<void()> call)
        : call(std::move(call)) {
        subscribeAll(typeid(Composition::Object));
    }
    void notify(const Message::Types::Added<Composition::Object>&) override { call(); }

private:
    const std::function<void()> call;
};

TEST_F(Job, AStopInTheMiddleOfAStepIsAStopWhateverTheStepStillFinds) {
    for (const bool refused : {false, true}) {
        finishCount = 0;
        ExportRequest asked = request();
        if (refused)
            asked.in = KTime(60'000); // behind the clip's end
        make(asked);
        int made = 0;
        const WhenAProjectIsMade stopper([this, &made] {
            ++made;
            job->stop();
        });
        job->start();
        ASSERT_TRUE(waitForEnd());
        EXPECT_EQ(made, 1);
        EXPECT_EQ(outcome.status, Status::Stopped) << outcome.error.GetDescription();
        EXPECT_EQ(startCount, 0);
        expectUntouched();
    }
}

int threadsOfThisProcess() {
    return static_cast<int>(
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

// The opening has ended, but nobody has heard of it yet.
TEST_F(Job, AStopThatFindsTheInputsOpenMakesNoProjectOfThem) {
    make(request());
    int made = 0;
    const WhenAProjectIsMade counter([&made] { ++made; });
    job->start();
    const int before = threadsOfThisProcess();
    QCoreApplication::sendPostedEvents(job.get());
    while (threadsOfThisProcess() > before)
        std::this_thread::yield();
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped) << outcome.error.GetDescription();
    EXPECT_EQ(made, 0);
    expectUntouched();
}

/// Finds the transcoder that a job makes: its start comes by events of an object that names it as its owner.
class TranscoderFinder : public QObject {
public:
    TranscoderFinder() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent*) override {
        if (auto* const owner = qobject_cast<Export::Transcoder*>(receiver->property("owner").value<QObject*>()))
            transcoder = owner;
        return false;
    }

    QPointer<Export::Transcoder> transcoder;
};

TEST_F(Job, TellsNoProgressAfterAStop) {
    const TranscoderFinder finder;
    make(request());
    job->start();
    ASSERT_TRUE(waitUntil([this] { return !progress.empty(); }));
    ASSERT_TRUE(finder.transcoder);
    const std::size_t told = progress.size();
    job->stop();
    // The runner tells none either; the job does not count on that.
    Q_EMIT finder.transcoder->progressChanged(99, KTime(0));
    EXPECT_EQ(progress.size(), told);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(progress.size(), told);
    EXPECT_EQ(outcome.status, Status::Stopped);
}

TEST_F(Job, AStopAfterTheEndDoesNothing) {
    make(request());
    job->start();
    ASSERT_TRUE(waitForEnd());
    job->stop();
    TestSupport::turnEventLoop();
    EXPECT_EQ(finishCount, 1);
    EXPECT_EQ(TestFiles::read(output).size(), outcome.facts.sizeBytes);
}

TEST_F(Job, DestructionDuringTheRunLeavesTheOldFile) {
    make(request());
    job->start();
    ASSERT_TRUE(waitUntil([this] { return !progress.empty(); }));
    job.reset();
    EXPECT_EQ(finishCount, 0);
    expectUntouched();
}

TEST_F(Job, WhatTheEventLoopCaughtIsTheRunsFailure) {
    make(request());
    job->start();
    ASSERT_TRUE(waitUntil([this] { return startCount > 0; }));
    job->fail(std::make_exception_ptr(std::runtime_error("out of the loop")));
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "out of the loop");
    expectUntouched();
}

TEST_F(Job, FailsAtOnceWhereTheCheckGetsNoThread) {
    make(request());
    std::optional<ThreadsRefused> refused;
    QObject::connect(job.get(), &ExportJob::progressChanged, [&refused](const ExportProgress& now) {
        if (now.percent >= 100 && !refused)
            refused.emplace();
    });
    job->start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(refused) << "the run was over before";
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), std::system_error(EAGAIN, std::generic_category()).code().message());
    expectUntouched();
}

TEST_F(Job, ARefusalBeginsNothing) {
    ExportRequest wrong = request();
    wrong.in = KTime(10'000);
    make(wrong);
    job->start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Refused);
    EXPECT_EQ(startCount, 0);
    expectUntouched();
}

TEST_F(Job, APartThatEndsBeforeTheDamageCanBeExported) {
    const std::string whole = place / "whole.mkv", half = *media / "half.mkv";
    TestMedia::makeFlashBeep(whole, {});
    const QByteArray content = TestFiles::read(whole);
    TestFiles::write(half, content.left(content.size() / 2));
    QFile::remove(QString::fromStdString(whole));
    ExportRequest damaged = request();
    damaged.inputs = QStringList(QString::fromStdString(half));
    make(damaged);
    job->start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::SourceDamaged);
    // What is known when the file is opened is told before anything is made.
    EXPECT_EQ(startCount, 0);
    expectUntouched();

    const std::string words = "--out ", sentence = outcome.error.GetDescription();
    const std::size_t found = sentence.find(words);
    ASSERT_NE(found, std::string::npos) << sentence;
    const std::optional<KTime> wayOut = ExportCore::TimeText::parse(sentence.substr(found + words.size()));
    ASSERT_TRUE(wayOut) << sentence;
    EXPECT_GT(*wayOut, KTime(1000));
    for (const KTime end : {*wayOut, KTime(1000)}) {
        finishCount = 0;
        damaged.out = end;
        make(damaged);
        job->start();
        ASSERT_TRUE(waitForEnd());
        EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_FALSE(outcome.warnings.isEmpty());
        EXPECT_NEAR(static_cast<double>(outcome.facts.durationMs), static_cast<double>(end.milliseconds()), 40);
    }
}

TEST_F(Job, WhatNoInputHasIsMadeAndNoted) {
    const struct {
        const char* stream;
        const char* preset;
        QStringList words; ///< of each note, in their order
    } cases[] = {{"-vn", "mp4-mpeg4-720p", {QStringLiteral("has a picture")}},
                 {"-an", "flac", {QStringLiteral("has sound"), QStringLiteral("left out: 1 picture track")}}};
    for (const auto& each : cases) {
        const std::string half = place / "half.mov";
        const std::string made = place / "made";
        TestMedia::runFfmpeg({"-y", "-i", *media / "clip.mov", "-t", "0.5", "-c", "copy", each.stream, half});
        outcome = TestExport::run(TestExport::requestOf(half, each.preset, made));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        ASSERT_EQ(outcome.notes.size(), each.words.size()) << outcome.notes.join(QLatin1Char('|')).toStdString();
        for (int note = 0; note < each.words.size(); ++note)
            EXPECT_TRUE(outcome.notes[note].contains(each.words[note])) << outcome.notes[note].toStdString();
        ASSERT_EQ(std::remove(made.c_str()), 0);
    }
}

} // namespace
