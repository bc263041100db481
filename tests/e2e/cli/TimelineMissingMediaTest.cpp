// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines whose media are missing, broken or shorter than what is shown of them.
#include "RenderedTimelines.h"
#include <filesystem>

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, TellOnceWhatGoesBeyondItsMedium) {
    const auto told = [](std::string cut, const std::string& available) {
        cut.replace(cut.find(timeOf(500)), timeOf(500).size(), available);
        return render(write(cut, {})).errors.count(QStringLiteral("the clip goes "));
    };
    const std::string cut = clipOf("a", "both.mov", 40, 20);
    EXPECT_EQ(told(cut, timeOf(50)), 1) << "what there is said to be";
    EXPECT_EQ(told(cut, timeOf(60)), 1) << "what there is";
    EXPECT_EQ(told(clipOf("a", "both.mov", 40, 11), timeOf(50)), 1) << "by a frame";
    EXPECT_EQ(told(clipOf("a", "both.mov", -1, 11), timeOf(50)), 1);
    EXPECT_EQ(told(clipOf("a", "both.mov", 30, 20), timeOf(50)), 0);
}

TEST_F(RenderedTimelines, ShowMoreThanIsSaidToBeThereWhereThereIsMore) {
    std::string cut = clipOf("a", "both.mov", 5, 20);
    cut.replace(cut.find(timeOf(500)), timeOf(500).size(), timeOf(8));
    const std::string timeline = writeTracks(track("Video", cut) + ',' + track("Audio", cut));
    EXPECT_EQ(run({"validate", timeline}).output.toStdString(), "");
    const auto found = rendered(timeline);
    EXPECT_EQ(found.numbers(), shown(5, 20));
    EXPECT_EQ(found.audio->samples, 20 * 1920);
}

TEST_F(RenderedTimelines, AreLongAsStillPicturesAreShownWhateverIsSaidOfThem) {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=white:s=320x180", "-frames:v", "1", *media / "still.png"});
    std::string still = clipOf("still", "still.png", 0, 20);
    still.replace(still.find(timeOf(500)), timeOf(500).size(), timeOf(1));
    EXPECT_EQ(run({"validate", write(still, {})}).output.toStdString(), "");
}

TEST_F(RenderedTimelines, TellWhatTransitionsLackBeyondTheCut) {
    const auto told = [](const std::string& children, const char* kind = "Video") {
        const Result result = run({"validate", writeTracks(track(kind, children))});
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        return result.output;
    };
    const auto cross = [](const std::string& before, const std::string& behind) {
        return before + ',' + dissolveOf(3, 5) + ',' + behind;
    };
    const std::string last = clipOf("a", "both.mov", 38, 10), first = clipOf("b", "both.mov", 0, 10);
    const std::string middle = clipOf("m", "both.mov", 20, 10);
    const QString end = QStringLiteral("lasts 2000 ms; the transition behind the clip goes 120 ms beyond it and ");
    const QString start =
        QStringLiteral("lasts 2000 ms; the transition before the clip goes 120 ms before its beginning and ");
    EXPECT_EQ(told(cross(middle, middle)), QString());
    EXPECT_TRUE(told(cross(last, middle)).contains(end + QStringLiteral("holds the last picture for 120 ms")));
    EXPECT_TRUE(told(cross(middle, first)).contains(start + QStringLiteral("holds the first picture for 120 ms")));
    EXPECT_TRUE(told(cross(last, middle), "Audio").contains(end + QStringLiteral("is silent for 120 ms")));
    EXPECT_EQ(told(cross(last, first)).count(QLatin1Char('\n')), 2) << "each side";
    const std::string back = clipOf("a", "both.mov", 10, 8, warpOf("LinearTimeWarp.1", -1));
    EXPECT_TRUE(told(cross(back, middle))
                    .contains(QStringLiteral("the transition behind the clip goes 120 ms before its beginning and "
                                             "holds the first picture for 120 ms")));
    EXPECT_EQ(told(cross(clipOf("a", "both.mov", 45, 8, R"(,"effects":[{"OTIO_SCHEMA":"FreezeFrame.1"}])"), middle)),
              QString())
        << "a frozen frame is there as long as it is wanted";
    EXPECT_TRUE(render(writeTracks(track("Video", cross(last, middle)))).errors.contains(end));
    makeNumbered();
    EXPECT_TRUE(told(cross(numbered(112, 6), middle))
                    .contains(QStringLiteral("lasts 480 ms; the transition behind the clip goes 120 ms beyond it")));
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
    EXPECT_FALSE(result.errors.contains(QStringLiteral("(/"))) << "the words name the place";
    EXPECT_TRUE(run({"validate", cut}).output.contains(QStringLiteral("is not there (/tracks/")));
    EXPECT_FALSE(std::filesystem::exists(out()));
    std::vector<int> expected = shown(2, 5);
    append(expected, std::vector<int>(5, -1));
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).numbers(), expected);
    EXPECT_TRUE(render(cut, {"--missing", "black"}).errors.contains(QStringLiteral("warning: ")));
}

TEST_F(RenderedTimelines, TellThePlaceInTheFileOfWhatHasNoName) {
    EXPECT_TRUE(render(write(clipOf("", "gone.mov", 0, 5), {}))
                    .errors.contains(QStringLiteral("clip: the media \"gone.mov\" is not there (/tracks/")));
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
