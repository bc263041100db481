// SPDX-License-Identifier: GPL-3.0-or-later
// Any number of exports in one process at a time: each file holds its own clip.
#include "EditorProject/EditorProject.h"
#include "ExportCore/ExportJob.h"
#include "Exported.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "fakes/kestra/FakeFactories.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include "support/WaitUntil.h"
#include <QCoreApplication>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <stdexcept>
#include <utility>

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;

namespace {

constexpr int MOST = 20;

/// What tells clip `number` from the others: the luma of its pictures, and when its tone begins.
int lumaOf(int number) {
    return 30 + 9 * number;
}
double toneOf(int number) {
    return 0.2 + 0.07 * number;
}

void makeClip(const std::string& path, int number) {
    const std::string picture =
        "nullsrc=s=160x90:r=25:d=2,geq=lum=" + std::to_string(lumaOf(number)) + ":cb=128:cr=128";
    const std::string sound =
        "aevalsrc='if(gte(t," + std::to_string(toneOf(number)) + "),0.5*sin(2*PI*1000*t),0)':s=48000:d=2";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", picture, "-f", "lavfi", "-i", sound, "-c:v", "libx264", "-preset",
                          "ultrafast", "-pix_fmt", "yuv420p", "-c:a", "pcm_s16le", path});
}

void expectClip(const std::string& path, int number) {
    const TestMedia::ProbedMedia media = TestMedia::probe(path);
    ASSERT_TRUE(media.video && media.audio) << path;
    ASSERT_EQ(media.video->frames.size(), 50U) << path;
    for (const TestMedia::ProbedFrame& frame : media.video->frames)
        EXPECT_NEAR(frame.luma, lumaOf(number), 2) << path << " at " << frame.time;
    ASSERT_EQ(media.audio->onsets.size(), 1U) << path;
    EXPECT_NEAR(media.audio->onsetTime(0), toneOf(number), 0.03) << path;
}

class ManyJobs : public ::testing::Test {
protected:
    struct Run {
        std::unique_ptr<ExportJob> job;
        ExportOutcome outcome;
        bool started = false;
        bool ended = false;
    };

    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        for (int number = 0; number < MOST; ++number)
            makeClip(clipOf(number), number);
    }
    static void TearDownTestSuite() { delete media; }

    static std::string clipOf(int number) { return *media / ("clip" + std::to_string(number) + ".mov"); }
    std::string fileOf(int number) const { return place / ("film" + std::to_string(number) + ".mp4"); }

    void start(int number, const char* preset = "mp4-h264-480p") {
        runs[number] = std::make_unique<Run>();
        Run* const run = runs[number].get();
        run->job = std::make_unique<ExportJob>(TestExport::requestOf(clipOf(number), preset, fileOf(number)));
        QObject::connect(run->job.get(), &ExportJob::started, [run] { run->started = true; });
        QObject::connect(run->job.get(), &ExportJob::finished, [run](const ExportOutcome& outcome) {
            run->outcome = outcome;
            run->ended = true;
        });
        run->job->start();
    }
    void expectDone(int number) {
        ASSERT_TRUE(waitUntil([&] { return runs[number]->ended; })) << number;
        ASSERT_EQ(runs[number]->outcome.status, Status::Done) << runs[number]->outcome.error.GetDescription();
        expectClip(fileOf(number), number);
    }

    static TestMedia::Folder* media;
    const TestMedia::Folder place;
    std::map<int, std::unique_ptr<Run>> runs;
};

TestMedia::Folder* ManyJobs::media = nullptr;

TEST_F(ManyJobs, TwoAtOnceEachWriteTheirOwnClip) {
    start(3);
    start(11);
    expectDone(3);
    expectDone(11);
}

TEST_F(ManyJobs, TwentyAtOnceEachWriteTheirOwnClip) {
    for (int number = 0; number < MOST; ++number)
        start(number);
    for (int number = 0; number < MOST; ++number)
        expectDone(number);
    EXPECT_EQ(TestFiles::namesIn(place / "").size(), MOST) << "no private file is left";
}

TEST_F(ManyJobs, OneThatIsStoppedAndOneThatGoesLeaveTheOthersAlone) {
    for (const int number : {1, 5, 9, 13})
        start(number);
    ASSERT_TRUE(waitUntil([this] { return runs[5]->started && runs[9]->started; }));
    runs[5]->job->stop();
    runs[9]->job.reset();
    expectDone(1);
    expectDone(13);
    ASSERT_TRUE(waitUntil([this] { return runs[5]->ended; }));
    // The clip is short: the stop may have come after its end.
    EXPECT_EQ(QFileInfo::exists(QString::fromStdString(fileOf(5))), runs[5]->outcome.status == Status::Done);
    EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(fileOf(9))) && !runs[9]->ended);
}

TEST_F(ManyJobs, AProjectThatIsBeingEditedTakesNothingFromAJob) {
    EditorProject edited;
    edited.open({Kestra::ioPath(clipOf(0))});
    start(7);
    expectDone(7);
}

/// Tells every job what leaves a timer event, as an application's notify() does.
class TellingAll : public QObject {
public:
    explicit TellingAll(std::vector<ExportJob*> jobs)
        : jobs(std::move(jobs)) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::Timer)
            return false;
        try {
            receiver->event(event);
        } catch (...) {
            for (ExportJob* job : jobs)
                job->failInEventLoop(std::current_exception(), receiver);
        }
        return true;
    }

private:
    const std::vector<ExportJob*> jobs;
};

/// The first attempt to make a muxer throws; what is made later writes nothing.
class FirstFails : public Kestra::Proc::IMuxerFactory {
public:
    boost::intrusive_ptr<Kestra::Proc::IMuxer>
    CreateMuxer(const boost::intrusive_ptr<Kestra::Conf::IFormatFile>&,
                const boost::intrusive_ptr<Kestra::Core::IDataOutput>&) override {
        if (!std::exchange(failed, true))
            throw std::runtime_error("the first is broken");
        return new Kestra::Fakes::FakeMuxer;
    }

private:
    bool failed = false;
};

TEST_F(ManyJobs, OnlyTheOneWhoseStartThrewIsToldOfThat) {
    Kestra::Core::CoreManager::Instance().SetMuxerFactory(std::make_shared<FirstFails>());
    start(2);
    start(4);
    const TellingAll catcher({runs[2]->job.get(), runs[4]->job.get()});
    EXPECT_TRUE(waitUntil([this] { return runs[2]->ended && runs[4]->ended; }));
    Kestra::Core::CoreManager::Instance().SetMuxerFactory(nullptr);
    int told = 0;
    for (const int number : {2, 4})
        told += runs[number]->outcome.error.GetDescription() == "the first is broken" ? 1 : 0;
    EXPECT_EQ(told, 1) << runs[2]->outcome.error.GetDescription() << " / " << runs[4]->outcome.error.GetDescription();
    for (const int number : {2, 4})
        EXPECT_EQ(runs[number]->outcome.error.GetDescription().find("whichever"), std::string::npos);
}

TEST_F(ManyJobs, AFailureInAnEventOfAJobOrOfItsChildIsThatJobsAlone) {
    for (const int number : {2, 4, 6})
        start(number);
    for (QObject* const receiver : {static_cast<QObject*>(runs[4]->job.get()), new QObject(runs[6]->job.get())})
        for (const int number : {2, 4, 6})
            runs[number]->job->failInEventLoop(std::make_exception_ptr(std::runtime_error("a slot broke")), receiver);
    expectDone(2);
    EXPECT_TRUE(waitUntil([this] { return runs[4]->ended && runs[6]->ended; }));
    for (const int number : {4, 6})
        EXPECT_EQ(runs[number]->outcome.error.GetDescription(), "a slot broke");
}

TEST_F(ManyJobs, AFailureThatNobodyCanTellTheOwnerOfIsToldToAllWithThatWord) {
    start(2);
    start(4);
    QObject nobodys;
    for (const int number : {2, 4})
        runs[number]->job->failInEventLoop(std::make_exception_ptr(std::runtime_error("a slot broke")), &nobodys);
    EXPECT_TRUE(waitUntil([this] { return runs[2]->ended && runs[4]->ended; }));
    for (const int number : {2, 4}) {
        EXPECT_EQ(runs[number]->outcome.status, Status::Failed);
        EXPECT_EQ(runs[number]->outcome.error.GetDescription(),
                  "a slot broke (whichever export this comes from, each that runs is ended)");
    }
}

} // namespace
