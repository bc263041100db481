// SPDX-License-Identifier: GPL-3.0-or-later
// Time codes of first pictures: what their texts name, and where files tell them.
#include "Kestra/FF/Probe/StartTimecode.h"
#include "unit/source/SourceFixture.h"

namespace TestMedia {
namespace {

using Kestra::FF::TimeOfTimecode;

constexpr std::int64_t HOUR = 3600 * TIME_BASE;
const Rate NTSC(30000, 1001);

TEST(Timecode, IsTheTimeOfTheFrameThatItNames) {
    EXPECT_EQ(TimeOfTimecode("00:00:00:00", 25), 0);
    EXPECT_EQ(TimeOfTimecode("01:00:00:00", 25), HOUR);
    EXPECT_EQ(TimeOfTimecode("10:59:58:24", 25), FramesToTime((10 * 3600 + 59 * 60 + 58) * 25 + 24, 25));
    EXPECT_EQ(TimeOfTimecode("01:00:00:00", Rate(24000, 1001)), FramesToTime(86400, Rate(24000, 1001)));
    EXPECT_EQ(TimeOfTimecode("01:00:00:00", NTSC), FramesToTime(108000, NTSC)) << "none dropped";
}

TEST(Timecode, CountsNoDroppedNumbers) {
    EXPECT_EQ(TimeOfTimecode("00:00:59;29", NTSC), FramesToTime(1799, NTSC));
    EXPECT_EQ(TimeOfTimecode("00:01:00;02", NTSC), FramesToTime(1800, NTSC)) << "the next frame";
    EXPECT_EQ(TimeOfTimecode("00:10:00;00", NTSC), FramesToTime(17982, NTSC));
    EXPECT_EQ(TimeOfTimecode("01:00:00;00", NTSC), FramesToTime(107892, NTSC));
    EXPECT_EQ(TimeOfTimecode("01:00:00.00", NTSC), FramesToTime(107892, NTSC));
    EXPECT_EQ(TimeOfTimecode("00:01:00;04", Rate(60000, 1001)), FramesToTime(3600, Rate(60000, 1001)));
    EXPECT_EQ(TimeOfTimecode("01:00:00;00", 25), HOUR) << "there nothing is dropped, whatever it is written with";
}

TEST(Timecode, ThatIsNoneIsNotTaken) {
    for (const char* text : {"", "01:00:00", "1:00:00:00", "01:00:00:000", "01:60:00:00", "01:00:60:00", "01:00:00:25",
                             "01;00;00;00", "-1:00:00:00", "aa:bb:cc:dd", "01:00:00:0x"})
        EXPECT_FALSE(TimeOfTimecode(text, 25)) << text;
    EXPECT_FALSE(TimeOfTimecode("00:01:00;01", NTSC)) << "a number that is dropped";
    EXPECT_FALSE(TimeOfTimecode("01:00:00:00", 0));
}

class TimecodeOf : public SourceTest {
protected:
    std::optional<std::int64_t> written(const std::string& name, const std::string& rate, const std::string& text,
                                        const std::vector<std::string>& more = {}) {
        const auto base = join(pictures(rate, 5), {"-timecode", text});
        return open(make(name, join(base, more)))->GetInfo().timecode;
    }
};

TEST_F(TimecodeOf, FilesIsWhatTheyWereWrittenWith) {
    for (const char* name : {"a.mov", "a.mp4", "a.mxf", "a.mpg", "a.m2v"}) {
        EXPECT_EQ(written(name, "25", "01:00:00:00"), HOUR) << name;
        EXPECT_EQ(written(name, "30000/1001", "01:00:00;02"), FramesToTime(107894, NTSC)) << name;
    }
    EXPECT_EQ(written("a.avi", "25", "01:00:00:00"), HOUR);
}

TEST_F(TimecodeOf, AFileInATagIsTaken) {
    EXPECT_EQ(written("a.mkv", "25", "00:00:00:00", {"-metadata", "timecode=00:00:02:05"}), FramesToTime(55, 25));
}

TEST_F(TimecodeOf, ATrackOfItsOwnIsCountedAtThatTracksRate) {
    const std::string shown = make("a.mov", pictures("50", 5));
    const std::string counted = make("b.mov", join(pictures("25", 5), {"-timecode", "00:00:01:20"}));
    const std::string both =
        make("c.mov", {"-i", shown, "-i", counted, "-map", "0:v", "-map", "1:d", "-c", "copy", "-write_tmcd", "0"});
    EXPECT_EQ(open(both)->GetInfo().timecode, FramesToTime(45, 25));
}

TEST_F(TimecodeOf, FilesSaysWhetherNumbersAreDropped) {
    const auto drops = [this](const std::string& rate, const std::string& text) {
        const auto arguments = join(pictures(rate, 5), {"-timecode", text});
        return open(make("a.mov", arguments))->GetInfo().timecodeDropsNumbers;
    };
    EXPECT_TRUE(drops("30000/1001", "01:00:00;02"));
    EXPECT_FALSE(drops("30000/1001", "01:00:00:02"));
    EXPECT_FALSE(drops("25", "01:00:00:02"));
}

TEST_F(TimecodeOf, FilesThatTellNoneIsUnset) {
    EXPECT_FALSE(open(make("a.mp4", pictures("25", 5)))->GetInfo().timecode);
    EXPECT_FALSE(written("a.mkv", "25", "00:00:00:00", {"-metadata", "timecode=yesterday"}));
    EXPECT_FALSE(open(make("a.wav", {"-f", "lavfi", "-i", numberedSamples(8000, 800)}))->GetInfo().timecode);
}

} // namespace
} // namespace TestMedia
