// SPDX-License-Identifier: GPL-3.0-or-later
// Markers and name of timelines in the files that "render" makes of them.
#include "RenderedTimelines.h"
#include <sstream>

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, KeepTheirMarkersAndTheirNameWhereTheContainerHasPlacesForThem) {
    const std::string markers =
        R"(,"markers":[{"OTIO_SCHEMA":"Marker.2","name":"Titles","marked_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
        timeOf(25) + R"(,"duration":)" + timeOf(1) + "}}]";
    const std::string cut = write(clipOf("a", "both.mov", 10, 40, markers), {});
    ASSERT_EQ(render(cut, {"--in", "0.2"}).code, 0);
    TestMedia::runFfmpeg({"-i", out(), "-f", "ffmetadata", *media / "told.txt"});
    std::stringstream text;
    text << std::ifstream(*media / "told.txt").rdbuf();
    const std::string told = text.str();
    EXPECT_NE(told.find("title=My cut"), std::string::npos) << told;
    EXPECT_NE(told.find("START=400000000"), std::string::npos) << told; // frame 25 of the media is 0.6 s into the clip
    EXPECT_NE(told.find("title=Titles"), std::string::npos) << told;
    const Result bare = run({"render", write({}, clipOf("s", "both.mov", 10, 40, markers)), "-p", "wav", "-o",
                             *media / "o.wav", "--overwrite"});
    EXPECT_EQ(bare.code, 0) << bare.errors.toStdString();
    EXPECT_TRUE(bare.errors.contains(QStringLiteral("note: Each of the timeline's markers is left out")))
        << bare.errors.toStdString();
}

TEST_F(RenderedTimelines, KeepTheMarkersOfWhatIsCutAsAWhole) {
    const auto range = [](int start, int frames) {
        return R"({"OTIO_SCHEMA":"TimeRange.1","start_time":)" + timeOf(start) + R"(,"duration":)" + timeOf(frames) +
               '}';
    };
    const std::string marked =
        clipOf("a", "both.mov", 0, 40,
               R"(,"markers":[{"OTIO_SCHEMA":"Marker.2","name":"Titles","marked_range":)" + range(25, 1) + "}]");
    ASSERT_EQ(render(writeTracks(R"({"OTIO_SCHEMA":"Track.1","kind":"Video","source_range":)" + range(10, 30) +
                                 R"(,"children":[)" + marked + "]}"))
                  .code,
              0);
    TestMedia::runFfmpeg({"-i", out(), "-f", "ffmetadata", *media / "told.txt"});
    std::stringstream text;
    text << std::ifstream(*media / "told.txt").rdbuf();
    EXPECT_NE(text.str().find("START=600000000"), std::string::npos) << text.str();
    EXPECT_NE(text.str().find("title=Titles"), std::string::npos) << text.str();
}

} // namespace
