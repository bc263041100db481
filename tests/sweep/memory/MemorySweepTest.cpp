// SPDX-License-Identifier: GPL-3.0-or-later
// Memory that is refused, once or from then on, to the project's libraries or to those of the codecs: the export fails
// with words and leaves what was there, or its file is the one that it always is.
#include "ExportCore/ExportOutcome.h"
#include "support/FileHelpers.h"
#include "sweep/ReferenceExport.h"
#include "sweep/memory/RunInChild.h"
#include <QTemporaryDir>
#include <chrono>
#include <glog/logging.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

using namespace Sweep;
using Status = ExportCore::ExportOutcome::Status;
using Whose = MemoryFaults::Whose;

namespace {

constexpr char OTHER_FILE[] = "done, and another file";
constexpr char CODECS_CRASH[] = "the codecs crash by themselves";
constexpr std::chrono::seconds PATIENCE{3};
constexpr std::chrono::seconds LONG_PATIENCE{60};

class MemorySweep : public ::testing::TestWithParam<int> {
protected:
    const Reference& reference() const { return references()[static_cast<std::size_t>(GetParam())]; }

    /// Empty for an end as it has to be.
    std::string judge(const ChildEnd& end) const;
    std::string judgeOutcome(const ChildEnd& end) const;
    /// What came of the faults of one kind.
    struct Tally {
        std::string name;
        int faults = 0;
        int done = 0;
        int stalled = 0;
        int commits = 0;
        int otherFiles = 0;
        int codecsCrashes = 0;
        std::map<std::string, int> complaints;
    };
    void judgeInto(Tally& tally, const MemoryFaults::Plan& plan, const ChildEnd& end) const;
    /// Fails `count` of so many allocations, one in each run.
    void sweep(Whose whose, bool forEver, From from, long total, int count);
    /// How a run ends to which nothing is refused.
    ChildEnd learn(From from);

    const Place place;
    QByteArray whole;
};

std::string MemorySweep::judgeOutcome(const ChildEnd& end) const {
    if (!end.ended)
        return "tells no end, or two";
    if (end.status == static_cast<int>(Status::Done))
        return TestFiles::read(place.output) == whole ? "" : OTHER_FILE;
    if (end.words[0] == '\0')
        return "fails without words";
    return place.complaint();
}

std::string MemorySweep::judge(const ChildEnd& end) const {
    switch (end.kind) {
    case ChildEnd::Kind::Hung:
        return "hangs";
    case ChildEnd::Kind::Crashed:
        return end.inCodecs ? CODECS_CRASH : "crashes with " + std::to_string(end.signal) + " at " + end.fell;
    case ChildEnd::Kind::Came:
        break;
    }
    return judgeOutcome(end);
}

/// Some of libav's own losses come out by no error and no word: an index while a header is read, a table that one of
/// its threads takes over. It crashes, too, where it opens a file. Whatever else is refused to it ends as it has to.
bool isOfTheCodecs(const std::string& complaint, const ChildEnd& end) {
    static const std::set<std::string> silent = {"", "avformat_open_input", "avformat_find_stream_info"};
    return complaint == CODECS_CRASH || (complaint == OTHER_FILE && silent.count(end.call) != 0);
}

void MemorySweep::judgeInto(Tally& tally, const MemoryFaults::Plan& plan, const ChildEnd& end) const {
    tally.faults += end.failed || end.kind != ChildEnd::Kind::Came ? 1 : 0;
    // A throw while a change to the model is committed ends the process, as it is promised.
    if (end.inCommit) {
        ++tally.commits;
        return;
    }
    std::string complaint = judge(end);
    if (complaint.empty() && end.stalled && !plan.forEver)
        complaint = "stalls";
    if (complaint.empty()) {
        tally.stalled += end.stalled ? 1 : 0;
        tally.done += end.status == static_cast<int>(Status::Done) ? 1 : 0;
    } else if (plan.whose == Whose::Codecs && isOfTheCodecs(complaint, end)) {
        ++(complaint == OTHER_FILE ? tally.otherFiles : tally.codecsCrashes);
    } else if (tally.complaints[complaint]++ < 2) {
        ADD_FAILURE() << tally.name << ", allocation " << plan.at << ", asked for in \"" << end.call << "\" at "
                      << end.asked << ": " << complaint << " (" << end.words << ")";
    }
}

void MemorySweep::sweep(Whose whose, bool forEver, From from, long total, int count) {
    Tally tally;
    tally.name = std::string(reference().name) + (whose == Whose::Ours ? ", ours" : ", codecs") +
                 (from == From::WholeProgress ? " from whole progress on" : "") + (forEver ? ", for ever" : ", once");
    auto request = place.request(reference());
    // What cannot be told for want of memory, the watchdog finds out.
    const auto patience = forEver ? PATIENCE : LONG_PATIENCE;
    request.limits = {patience, patience, patience};
    for (int at = 0; at < count; ++at) {
        const MemoryFaults::Plan plan{whose, total * at / count, forEver};
        place.restore();
        judgeInto(tally, plan, runInChild(request, plan, from));
    }
    std::printf("%s: %ld allocations, %d of %d faults; %d done all the same, %d stalled, %d ended by a commit, %d with "
                "another file and %d crashes of the codecs' own\n",
                tally.name.c_str(), total, tally.faults, count, tally.done, tally.stalled, tally.commits,
                tally.otherFiles, tally.codecsCrashes);
    // There are few of these.
    for (const int few : {tally.otherFiles, tally.codecsCrashes, tally.commits})
        EXPECT_LE(few * 50, count + 50);
    EXPECT_GE(tally.faults * 10, count * 8) << "runs end before the allocations that are to fail";
}

ChildEnd MemorySweep::learn(From from) {
    place.restore();
    const ChildEnd good = runInChild(place.request(reference()), {}, from);
    EXPECT_EQ(good.status, static_cast<int>(Status::Done)) << good.words;
    whole = TestFiles::read(place.output);
    return good;
}

TEST_P(MemorySweep, EndsInWordsAndTheOldFileOrInTheSameFile) {
    const ChildEnd good = learn(From::TheBeginning);
    if (good.ours == 0)
        GTEST_SKIP() << "memory is not this program's own here";
    ASSERT_GT(good.ours, 1000);
    ASSERT_GT(good.codecs, 100);
    const int count = countOr(12);
    for (const bool forEver : {false, true}) {
        sweep(Whose::Ours, forEver, From::TheBeginning, good.ours, count);
        sweep(Whose::Codecs, forEver, From::TheBeginning, good.codecs, count);
    }
}

/// What is a small part of all allocations, and the one where a run could be left without an end.
TEST_P(MemorySweep, EndsSoTooWhereNoMemoryIsLeftForTheEnd) {
    const ChildEnd good = learn(From::WholeProgress);
    if (good.ours == 0)
        GTEST_SKIP() << "memory is not this program's own here";
    for (const bool forEver : {false, true})
        sweep(Whose::Ours, forEver, From::WholeProgress, good.ours, countOr(12));
}

INSTANTIATE_TEST_SUITE_P(References, MemorySweep, ::testing::Values(1, 2),
                         [](const auto& testCase) { return shortNameOf(testCase.param); });

} // namespace

/// No application here: each child has its own.
int main(int argc, char** argv) {
    const QTemporaryDir scratch;
    qputenv("TMPDIR", scratch.path().toLocal8Bit());
    FLAGS_minloglevel = google::GLOG_FATAL;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
