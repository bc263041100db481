// Memory that is refused, once or from then on, to the project's libraries or to those of the codecs: the export fails
// with words and leaves what was there, or its file is the one that it always is.
#include "ExportCore/ExportOutcome.h"
#include "support/FileHelpers.h"
#include "sweep/ReferenceExport.h"
#include "sweep/memory/RunInChild.h"
#include <QTemporaryDir>
#include <chrono>
#include <csignal>
#include <cstring>
#include <glog/logging.h>
#include <gtest/gtest.h>
#include <map>

using namespace Sweep;
using Status = ExportCore::ExportOutcome::Status;
using Whose = MemoryFaults::Whose;

namespace {

constexpr char OTHER_FILE[] = "done, and another file";
constexpr std::chrono::seconds PATIENCE{3};

class MemorySweep : public ::testing::TestWithParam<int> {
protected:
    const Reference& reference() const { return references()[static_cast<std::size_t>(GetParam())]; }

    /// Empty for an end as it has to be.
    std::string judge(const ChildEnd& end) const;
    std::string judgeOutcome(const ChildEnd& end) const;
    void sweep(Whose whose, bool forEver, long total, int count);

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

/// A transcoder that goes takes its descriptions out of the composition, which would point to nothing otherwise: where
/// there is no memory for the message that says so, the process ends.
bool isOfTheWithdrawal(const ChildEnd& end) {
    return end.signal == SIGABRT && std::strstr(end.fell, "libEditorModel") && std::strstr(end.fell, "libEditorExport");
}

std::string MemorySweep::judge(const ChildEnd& end) const {
    switch (end.kind) {
    case ChildEnd::Kind::Hung:
        return "hangs";
    case ChildEnd::Kind::Crashed:
        return "crashes with " + std::to_string(end.signal) + " at " + end.fell;
    case ChildEnd::Kind::Came:
        break;
    }
    return judgeOutcome(end);
}

void MemorySweep::sweep(Whose whose, bool forEver, long total, int count) {
    std::map<std::string, int> complaints;
    int faults = 0, done = 0;
    auto request = place.request(reference());
    // What cannot be told for want of memory, the watchdog finds out.
    if (forEver)
        request.limits = {PATIENCE, PATIENCE, PATIENCE};
    for (int at = 0; at < count; ++at) {
        const MemoryFaults::Plan plan{whose, total * at / count, forEver};
        place.restore();
        const ChildEnd end = runInChild(request, plan);
        faults += end.failed || end.kind != ChildEnd::Kind::Came ? 1 : 0;
        std::string complaint = forEver && isOfTheWithdrawal(end) ? "" : judge(end);
        if (complaint.empty() && end.stalled && !forEver)
            complaint = "stalls";
        done += complaint.empty() && end.status == static_cast<int>(Status::Done) ? 1 : 0;
        if (complaint.empty() || (complaints[complaint]++ >= 2) || (complaint == OTHER_FILE && whose == Whose::Codecs))
            continue;
        ADD_FAILURE() << reference().name << ", allocation " << plan.at << (forEver ? " and all after it" : "")
                      << (whose == Whose::Ours ? " of ours" : " of the codecs'") << ", asked for at " << end.asked
                      << ": " << complaint << " (" << end.words << ")";
    }
    // Some of libav's own losses come out by no error and no word: an index, a table that a thread takes over.
    EXPECT_LE(complaints[OTHER_FILE] * 30, whose == Whose::Codecs ? count + 30 : 0);
    std::printf("%s, %s, %s: %ld allocations, %d of %d faults, %d done all the same, %d with another file\n",
                reference().name, whose == Whose::Ours ? "ours" : "codecs", forEver ? "for ever" : "once", total,
                faults, count, done, complaints[OTHER_FILE]);
    EXPECT_GE(faults * 10, count * 8) << "runs end before the allocations that are to fail";
}

TEST_P(MemorySweep, EndsInWordsAndTheOldFileOrInTheSameFile) {
    place.restore();
    const ChildEnd good = runInChild(place.request(reference()), {});
    ASSERT_EQ(good.status, static_cast<int>(Status::Done)) << good.words;
    if (good.ours == 0)
        GTEST_SKIP() << "memory is not this program's own here";
    whole = TestFiles::read(place.output);
    ASSERT_GT(good.ours, 1000);
    ASSERT_GT(good.codecs, 100);
    const int count = countOr(12);
    for (const bool forEver : {false, true}) {
        sweep(Whose::Ours, forEver, good.ours, count);
        sweep(Whose::Codecs, forEver, good.codecs, count);
    }
}

std::string nameOf(const ::testing::TestParamInfo<int>& info) {
    return info.param == 1 ? "TwoPasses" : "SoundAlone";
}

INSTANTIATE_TEST_SUITE_P(References, MemorySweep, ::testing::Values(1, 2), nameOf);

} // namespace

/// No application here: each child has its own.
int main(int argc, char** argv) {
    const QTemporaryDir scratch;
    qputenv("TMPDIR", scratch.path().toLocal8Bit());
    FLAGS_minloglevel = google::GLOG_FATAL;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
