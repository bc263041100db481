// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are played backwards.
#include "Kestra/Proc/Filters/FrameSampler.h"
#include "unit/source/SourceFixture.h"

namespace TestMedia {
namespace {

using Kestra::FrameGrid;
using Kestra::FrameIndex;
using Kestra::Ticks;
using Kestra::TimeMap;
using Kestra::Proc::FrameSampler;
using Kestra::Proc::SamplingRule;

class Backwards : public SourceTest {};

TEST_F(Backwards, ShowsEachPictureOfALongGroup) {
    for (const char* name : {"a.mp4", "a.mkv", "a.ts", "a.mpg"}) {
        const bool mpeg = std::string(name) == "a.mpg";
        const std::vector<std::string> codec{"-c:v", mpeg ? "mpeg2video" : "libx264", "-g", "90", "-bf", "2", "-q",
                                             "2"};
        const auto source = open(make(name, join(pictures("25", 180), codec)));
        const std::int64_t length = source->GetInfo().duration;
        const SamplingRule rule(FrameGrid(25), SamplingRule::Pace::Any, TimeMap{Ticks(0), Ticks(length), -1});
        FrameSampler sampler(source->CreateVideoStream(), {rule, FrameSampler::Repeats::AsOne, {}, FrameIndex(180)});
        std::vector<int> numbers;
        for (const ReadPicture& picture : readPictures(sampler))
            numbers.push_back(picture.number);
        std::vector<int> expected;
        for (int number = 179; number >= 0; --number)
            expected.push_back(number);
        EXPECT_EQ(numbers, expected) << name;
        EXPECT_TRUE(source->TakeDamageReports().empty()) << name;
    }
}

} // namespace
} // namespace TestMedia
