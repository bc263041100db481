// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines whose media are missing, broken or shorter than what is shown of them.
#include "RenderedTimelines.h"
#include <filesystem>

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, TellOnceWhatGoesBeyondItsMedium) {
    const auto told = [](std::string cut, const std::string& available) {
        cut.replace(cut.find(timeOf(500)), timeOf(500).size(), available);
        return render(write(cut, {})).errors.count(QStringLiteral("beyond"));
    };
    const std::string cut = clipOf("a", "both.mov", 40, 20);
    EXPECT_EQ(told(cut, timeOf(50)), 1) << "what there is said to be";
    EXPECT_EQ(told(cut, timeOf(60)), 1) << "what there is";
    EXPECT_EQ(told(clipOf("a", "both.mov", 30, 20), timeOf(50)), 0);
}

TEST_F(RenderedTimelines, TellWhatGoesBeyondAMediumOfWhichNoRangeIsTold) {
    const auto found = [](int start, int frames, const char* kind = "Video", const std::string& more = {}) {
        std::string cut = clipOf("a", "both.mov", start, frames, more);
        const std::size_t range = cut.find(R"(,"available_range")");
        cut.replace(range, std::string::npos, "}}");
        const Result result = run({"validate", writeTracks(track(kind, cut))});
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        const QString text = result.output.trimmed();
        const int begin = text.indexOf(QStringLiteral("lasts "));
        return text.mid(begin, text.lastIndexOf(QStringLiteral(" (/")) - begin).toStdString();
    };
    EXPECT_EQ(found(40, 20), "lasts 2000 ms; the clip goes 400 ms beyond it and holds the last picture for 400 ms");
    EXPECT_EQ(found(40, 20, "Audio"), "lasts 2000 ms; the clip goes 400 ms beyond it and is silent for 400 ms");
    EXPECT_EQ(found(-5, 10),
              "lasts 2000 ms; the clip goes 200 ms before its beginning and holds the first picture for 200 ms");
    EXPECT_EQ(found(100, 10), "lasts 2000 ms; the clip goes 2400 ms beyond it and shows nothing but the last picture");
    EXPECT_EQ(found(10, 20, "Video", warpOf("LinearTimeWarp.1", -1)),
              "lasts 2000 ms; the clip goes 400 ms before its beginning and holds the first picture for 400 ms");
    EXPECT_EQ(found(0, 50).find("beyond"), std::string::npos);
}

TEST_F(RenderedTimelines, AreRefusedWhereMediaAreMissing) {
    const std::string cut = write(clipOf("a", "both.mov", 2, 5) + ',' + clipOf("gone", "gone.mov", 0, 5), {});
    std::filesystem::remove(out());
    const Result result = render(cut);
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(
        result.errors.contains(QStringLiteral("track \"Video1\", clip \"gone\": the media \"gone.mov\" is not there")))
        << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("--missing black")));
    EXPECT_FALSE(std::filesystem::exists(out()));
    std::vector<int> expected = shown(2, 5);
    append(expected, std::vector<int>(5, -1));
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).numbers(), expected);
    EXPECT_TRUE(render(cut, {"--missing", "black"}).errors.contains(QStringLiteral("warning: ")));
}

TEST_F(RenderedTimelines, TellWhatStandsInPlaceOfWhatIsMissing) {
    const std::string cut = writeTracks(track("Video", clipOf("a", "both.mov", 2, 10)) + ',' +
                                        track("Video", gapOf(5) + ',' + clipOf("gone", "gone.mov", 0, 5)));
    const auto told = QStringLiteral("black, or what lies on lower tracks where there is something, and silent");
    EXPECT_TRUE(render(cut).errors.contains(told));
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).numbers(), shown(2, 10));
    EXPECT_TRUE(render(cut, {"--missing", "black"}).errors.contains(told));
    EXPECT_FALSE(render(write(clipOf("a", "both.mov", 2, 10), {}), {"--missing", "black"}).errors.contains(told));
}

TEST_F(RenderedTimelines, AskForNoMediaOfWhatIsSwitchedOff) {
    std::ofstream(*media / "text.mov") << "no media at all";
    const std::string off = R"(,"enabled":false)";
    const std::string cut = write(clipOf("a", "both.mov", 2, 5) + ',' + clipOf("gone", "gone.mov", 0, 5, off) + ',' +
                                      clipOf("broken", "text.mov", 0, 5, off),
                                  {});
    std::vector<int> expected = shown(2, 5);
    append(expected, std::vector<int>(10, -1));
    EXPECT_EQ(rendered(cut).numbers(), expected);
    EXPECT_TRUE(render(cut).errors.contains(QStringLiteral("warning: "))) << "that one is not there is told";
}

TEST_F(RenderedTimelines, ShowBlackInPlaceOfMediaThatCannotBeOpened) {
    std::ofstream(*media / "text.mov") << "no media at all";
    const std::string cut = write(clipOf("a", "both.mov", 2, 5) + ',' + clipOf("broken", "text.mov", 0, 5), {});
    EXPECT_EQ(render(cut).code, 2);
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).video->frames.size(), 10U);
}

} // namespace
