// SPDX-License-Identifier: GPL-3.0-or-later
// Every sound track of media files, each a stream of its own beside the first one.
#include "Render/SoundTracks.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/project/RenderFixture.h"

namespace Project::Tests {
namespace {

using Fakes::FurtherSound;
using Render::Sequence;
using Render::SoundTracks;

class SoundTracksTest : public RenderFixture {
protected:
    static Contents clip(int frames, std::int64_t samples, std::vector<FurtherSound> further) {
        Contents contents;
        contents.frames = frames;
        contents.samples = samples;
        contents.furtherSounds = std::move(further);
        return contents;
    }
    Sequence all(const std::vector<Contents>& contents) {
        const auto paths = put(contents);
        return SoundTracks::all(Sequence::ofFiles(paths), paths);
    }
    /// What is heard of each track.
    static std::vector<std::vector<Stretch>> heard(const Sequence& line, const Types::Range& range = {}) {
        const Sound first = sound(line, 48000, 25, range);
        std::vector<Sound> tracks = first->GetFurtherTracks();
        tracks.insert(tracks.begin(), first);
        std::vector<std::vector<Stretch>> found;
        for (const Sound& track : tracks) {
            EXPECT_EQ(track->GetDuration(), first->GetDuration());
            found.push_back(runs(track, 48000));
        }
        return found;
    }
};

using All = std::vector<std::vector<Stretch>>;

TEST_F(SoundTracksTest, AreStreamsOfTheSameLengthBesideTheFirst) {
    const Sequence line = all({clip(50, 96000, {{96000}, {48000}})});
    EXPECT_EQ(
        heard(line),
        (All{{{1, 0, 0, 96000}}, {{1001, 0, 0, 96000}}, {{2001, 0, 0, 48000}, {Fakes::SILENCE, 48000, 0, 48000}}}));
    EXPECT_EQ(media->opened(), 3) << "the first one is not opened again";
}

TEST_F(SoundTracksTest, AreCutByTheRangeToTheSameSample) {
    const Sequence line = all({clip(100, 192000, {{192000}})});
    EXPECT_EQ(heard(line, milliseconds(1000, 2500)), (All{{{1, 0, 48000, 72000}}, {{1001, 0, 48000, 72000}}}));
}

TEST_F(SoundTracksTest, OfFilesThatAreJoinedFollowEachOtherAndAFileWithoutSoundIsSilentInAll) {
    const Sequence line = all({clip(25, 0, {}), clip(25, 48000, {{48000}}), clip(25, 48000, {{24000}})});
    EXPECT_EQ(heard(line), (All{{{Fakes::SILENCE, 0, 0, 48000}, {2, 48000, 0, 48000}, {3, 96000, 0, 48000}},
                                {{Fakes::SILENCE, 0, 0, 48000},
                                 {1002, 48000, 0, 48000},
                                 {1003, 96000, 0, 24000},
                                 {Fakes::SILENCE, 120000, 0, 24000}}}));
}

TEST_F(SoundTracksTest, OfOneFileThatStandsTwiceAreOpenedOnce) {
    const auto paths = put({clip(25, 48000, {{48000}})});
    const std::vector<Kestra::ioPath> twice{paths[0], paths[0]};
    const Sequence line = SoundTracks::all(Sequence::ofFiles(twice), twice);
    EXPECT_EQ(heard(line),
              (All{{{1, 0, 0, 48000}, {1, 48000, 0, 48000}}, {{1001, 0, 0, 48000}, {1001, 48000, 0, 48000}}}));
    EXPECT_EQ(media->opened(), 2);
}

TEST_F(SoundTracksTest, AreAsLongAsTheLongest) {
    const Sequence line = all({clip(25, 48000, {{96000}})});
    EXPECT_EQ(line.document->duration(), Kestra::Ticks(2 * Kestra::TIME_BASE));
    EXPECT_EQ(heard(line), (All{{{1, 0, 0, 48000}, {Fakes::SILENCE, 48000, 0, 48000}}, {{1001, 0, 0, 96000}}}));
}

TEST_F(SoundTracksTest, HaveTheOriginOfTheEarliest) {
    const std::int64_t early = -Kestra::TIME_BASE / 5;
    all({clip(25, 48000, {{48000, early}, {48000, 0}})});
    std::vector<std::pair<int, std::optional<std::int64_t>>> choices;
    for (const Kestra::Proc::TrackChoice& choice : media->choices())
        choices.emplace_back(*choice.sound, choice.origin);
    using Choice = std::pair<int, std::optional<std::int64_t>>;
    EXPECT_EQ(choices, (std::vector<Choice>{{2, {}}, {3, {}}, {1, early}, {3, early}}));
}

TEST_F(SoundTracksTest, OfDifferentNumbersDoNotGoTogether) {
    EXPECT_THROW(all({clip(25, 48000, {{48000}}), clip(25, 48000, {})}), Kestra::Proc::ProcException);
}

TEST_F(SoundTracksTest, ThatAreAloneHaveNoOthers) {
    const Sequence line = all({clip(25, 48000, {})});
    EXPECT_TRUE(line.furtherSounds.empty());
    EXPECT_TRUE(sound(line, 48000, 25)->GetFurtherTracks().empty());
}

} // namespace
} // namespace Project::Tests
