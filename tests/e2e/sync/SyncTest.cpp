// SPDX-License-Identifier: GPL-3.0-or-later
// Frame counts and the step of sound and picture, measured by decoding what was exported.
#include "Exported.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <map>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using TestMedia::ProbedMedia;
using Rate = boost::rational<long long>;

namespace {

constexpr int SECONDS = 4;

struct Source {
    const char* name;
    Rate rate;
    int sampleRate;
    bool variable;

    int frames() const { return static_cast<int>(std::lround(SECONDS * boost::rational_cast<double>(rate))); }
    int period() const { return static_cast<int>(std::lround(boost::rational_cast<double>(rate))); }
    double length() const { return frames() / boost::rational_cast<double>(rate); }
};

std::ostream& operator<<(std::ostream& stream, const Source& source) {
    return stream << source.name;
}

const Source SOURCES[] = {{"film", {24000, 1001}, 48000, false}, {"pal", 25, 44100, false},
                          {"ntsc", {30000, 1001}, 44100, false}, {"thirty", 30, 48000, false},
                          {"fifty", 50, 48000, false},           {"sixty", 60, 44100, false},
                          {"variable", 30, 48000, true}};

struct Target {
    const char* preset;
    const char* extension;
    bool lossless;
};

std::ostream& operator<<(std::ostream& stream, const Target& target) {
    return stream << target.preset;
}

const Target TARGETS[] = {
    {"mov-prores-1080p", "mov", true}, {"mkv-ffv1-flac", "mkv", true}, {"mp4-h264-720p", "mp4", false}};

class Sync : public ::testing::TestWithParam<std::tuple<Source, Target>> {
protected:
    static void SetUpTestSuite() { media = new TestMedia::Folder; }
    static void TearDownTestSuite() { delete media; }

    const Source& source() const { return std::get<0>(GetParam()); }
    const Target& target() const { return std::get<1>(GetParam()); }

    std::string input() const {
        static std::map<std::string, std::string> made;
        std::string& path = made[source().name];
        if (path.empty()) {
            path = *media / (std::string(source().name) + ".mov");
            TestMedia::FlashBeep flashBeep;
            flashBeep.width = 160;
            flashBeep.height = 90;
            flashBeep.rate = source().rate;
            flashBeep.frames = source().frames();
            flashBeep.period = source().period();
            flashBeep.sampleRate = source().sampleRate;
            flashBeep.variableFrameRate = source().variable;
            TestMedia::makeFlashBeep(path, flashBeep);
        }
        return path;
    }

    ProbedMedia exported(const std::function<void(ExportRequest&)>& change) const {
        const std::string output = place / (std::string("out.") + target().extension);
        ExportRequest request = TestExport::requestOf(input(), target().preset, output);
        change(request);
        const ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        EXPECT_TRUE(outcome.warnings.isEmpty()) << outcome.warnings.join(QLatin1Char('\n')).toStdString();
        return TestMedia::probe(output);
    }

    /// Every frame's period away from the first; none lost, none doubled. A flash tells no number.
    void expectEveryFrame(const ProbedMedia& result, long first, long count) const {
        ASSERT_TRUE(result.video);
        const std::vector<int> numbers = result.numbers();
        EXPECT_EQ(static_cast<long>(numbers.size()), count);
        if (source().variable)
            return;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const long number = first + static_cast<long>(i);
            const bool flash = number % source().period() < 2;
            ASSERT_EQ(numbers[i], flash ? -1 : static_cast<int>(number % 16)) << "frame " << i;
        }
    }

    void expectInStep(const ProbedMedia& result, std::size_t flashes) const {
        const std::vector<double> offsets = result.offsets();
        EXPECT_EQ(offsets.size(), flashes)
            << result.flashes().size() << " flashes, " << result.audio->onsets.size() << " beeps";
        for (const double offset : offsets)
            EXPECT_LE(std::abs(offset), 0.001) << "sound minus picture";
    }

    void expectLength(const ProbedMedia& result, double seconds) const {
        ASSERT_TRUE(result.audio);
        const double sound = static_cast<double>(result.audio->samples) / result.audio->sampleRate;
        // A lossy codec ends on a whole packet.
        const double tolerance = target().lossless ? 0.0011 : 0.025;
        EXPECT_NEAR(sound, seconds, tolerance);
        EXPECT_EQ(result.audio->gaps, 0);
        EXPECT_EQ(result.decodeErrors, 0);
    }

    static TestMedia::Folder* media;
    const TestMedia::Folder place;
};

TestMedia::Folder* Sync::media = nullptr;

TEST_P(Sync, AWholeFileComesOutFrameByFrameAndInStep) {
    const ProbedMedia result = exported([](ExportRequest&) {});
    expectEveryFrame(result, 0, source().frames());
    expectLength(result, source().length());
    expectInStep(result, SECONDS);
}

/// Cuts that lie on no frame of any of the rates.
constexpr qint64 CUT_IN = 613, CUT_OUT = 3391;

long frameAt(qint64 milliseconds, const Rate& rate) {
    return std::lround(static_cast<double>(milliseconds) / 1000 * boost::rational_cast<double>(rate));
}

TEST_P(Sync, AnOddCutByInAndOutLosesNoFrameAndStaysInStep) {
    const ProbedMedia result = exported([](ExportRequest& request) {
        request.in = KTime(CUT_IN);
        request.out = KTime(CUT_OUT);
    });
    const double rate = boost::rational_cast<double>(source().rate);
    const long first = frameAt(CUT_IN, source().rate);
    const long count = std::lround((CUT_OUT / 1000.0 - static_cast<double>(first) / rate) * rate);
    expectEveryFrame(result, first, count);
    expectInStep(result, 3);
}

TEST_P(Sync, TheSameCutByTheExportRangeLosesNoFrameAndStaysInStep) {
    const ProbedMedia result = exported([](ExportRequest& request) {
        request.exportRange = {KTime(CUT_IN), KTime(CUT_OUT)};
    });
    const long first = frameAt(CUT_IN, source().rate), last = frameAt(CUT_OUT, source().rate);
    expectEveryFrame(result, first, last - first);
    expectLength(result, static_cast<double>(last - first) / boost::rational_cast<double>(source().rate));
    expectInStep(result, 3);
}

std::string nameOf(const ::testing::TestParamInfo<std::tuple<Source, Target>>& info) {
    std::string name = std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).extension;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Rates, Sync, ::testing::Combine(::testing::ValuesIn(SOURCES), ::testing::ValuesIn(TARGETS)),
                         nameOf);

} // namespace
