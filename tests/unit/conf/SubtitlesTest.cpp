// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Subtitles.h"
#include "Kestra/Base/Time.h"
#include <gtest/gtest.h>

using Kestra::Conf::Subtitles;

namespace {

constexpr std::int64_t SECOND = Kestra::TIME_BASE;

std::string event(const std::string& text) {
    return "0,0,Default,,0,0,0,," + text;
}

Subtitles told() {
    Subtitles track;
    track.language = "deu";
    track.title = "Untertitel, für alle";
    track.isDefault = true;
    track.forced = true;
    track.header = "[Script Info]\n";
    track.cues = {{0, 2 * SECOND, event("one, with\na line and a 0 12\n")}, {SECOND, 4 * SECOND, event("two")}};
    return track;
}

std::string shown(const Subtitles& track) {
    std::string text;
    for (const Subtitles::Cue& cue : track.cues)
        text += std::to_string(cue.start * 10 / SECOND) + '-' + std::to_string(cue.end * 10 / SECOND) + ' ' +
                cue.Text() + ';';
    return text;
}

} // namespace

TEST(Subtitles, AreReadAsTheyWereTold) {
    Kestra::Core::Property node("track");
    told().TellIn(node);
    EXPECT_TRUE(Subtitles::Of(node) == told());
    Kestra::Core::Property empty("track");
    Subtitles().TellIn(empty);
    EXPECT_TRUE(Subtitles::Of(empty) == Subtitles());
}

TEST(Subtitles, HaveColoursAndPlacesWhereOverridesSaySo) {
    const auto of = [](const std::string& text) {
        Subtitles track;
        track.cues = {{0, SECOND, event("plain")}, {SECOND, 2 * SECOND, event(text)}};
        return std::make_pair(track.HasColours(), track.HasPlaces());
    };
    const std::pair<bool, bool> none{false, false}, coloured{true, false}, placed{false, true};
    EXPECT_EQ(of("plain"), none);
    EXPECT_EQ(of("{\\b1}bold{\\b0} \\c&H \\an8"), none) << "no overrides outside of braces";
    EXPECT_EQ(of("{\\alpha&H80&}thin{\\fs20"), none);
    EXPECT_EQ(of("{\\b1\\c&H0000FF&}red"), coloured);
    EXPECT_EQ(of("some {\\3c&HFF&}red"), coloured);
    EXPECT_EQ(of("{\\an8}above"), placed);
    EXPECT_EQ(of("{\\i1}{\\pos(1,2)}there"), placed);
}

TEST(Subtitles, OfAPartAreCutAtItsEnds) {
    const Subtitles part = told().Part(SECOND / 2, 3 * SECOND);
    EXPECT_EQ(shown(part), "0-15 one, with\na line and a 0 12\n;5-25 two;");
    EXPECT_EQ(part.title, told().title);
    EXPECT_EQ(shown(told().Part(2 * SECOND, 3 * SECOND)), "0-10 two;");
    EXPECT_TRUE(told().Part(4 * SECOND, 9 * SECOND).cues.empty());
}

TEST(Subtitles, ThatShareTimeAreOneForAsLongAsTheyDo) {
    Subtitles track;
    track.cues = {{0, 3 * SECOND, event("a")},
                  {SECOND, 2 * SECOND, event("b")},
                  {4 * SECOND, 5 * SECOND, event("c")},
                  {4 * SECOND, 5 * SECOND, event("d")}};
    EXPECT_EQ(shown(track.OneAtATime()), "0-10 a;10-20 a\\Nb;20-30 a;40-50 c\\Nd;");
    EXPECT_EQ(track.MostAtATime(), 2);
    Subtitles crowd;
    crowd.cues = std::vector<Subtitles::Cue>(40, {0, SECOND, event("x")});
    crowd.cues.push_back({SECOND, 2 * SECOND, event("y")});
    EXPECT_EQ(crowd.MostAtATime(), 40);
    EXPECT_EQ(crowd.OneAtATime().cues.at(0).Text().size(), 12 + 11 * 2U) << "twelve, with breaks between them";
    EXPECT_EQ(crowd.OneAtATime().cues.at(1).Text(), "y");
    const Subtitles apart = told().Part(2 * SECOND, 9 * SECOND);
    EXPECT_TRUE(apart.OneAtATime() == apart);
    EXPECT_TRUE(Subtitles().OneAtATime().cues.empty());
}
