// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/Described.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

class FewDescriptors : public ::testing::TestWithParam<int> {};

TEST_P(FewDescriptors, AreAnErrorThatIsNamedOrEnough) {
    const TestMedia::Folder folder, place;
    TestMedia::FlashBeep media;
    media.frames = 25;
    TestMedia::makeFlashBeep(folder / "clip.mov", media);
    Program program({"render", folder / "clip.mov", "-p", "mp4-h264-480p", "-o", place / "film.mp4"});
    // Whoever started the test may have left some of his own open, which would count.
    program.setWrapper(
        {QStringLiteral("sh"), QStringLiteral("-c"),
         QStringLiteral("exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ulimit -n %1; exec \"$@\"").arg(GetParam()),
         QStringLiteral("sh")});
    const Result result = program.run();
    ASSERT_TRUE(result.code == 0 || result.code == 1) << result.code << result.errors.toStdString();
    if (result.code == 0) {
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
        return;
    }
    EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("files"))) << result.errors.toStdString();
    EXPECT_TRUE(TestFiles::namesIn(place / "").isEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfAll, FewDescriptors, testing::Values(5, 6, 8, 10, 13, 16, 20, 30, 35, 36, 37, 40, 64));

/// As some services start programs.
class ClosedDescriptors : public ::testing::TestWithParam<const char*> {};

TEST_P(ClosedDescriptors, AreNoPlaceForTheFileNorForSignals) {
    const TestMedia::Folder folder, place;
    TestMedia::FlashBeep media;
    media.frames = 25;
    TestMedia::makeFlashBeep(folder / "clip.mov", media);
    const bool hasOutput = std::string(GetParam()).find(">&-") != 0;
    for (const char* const progress : {"plain", "json"}) {
        const std::string film = place / (std::string(progress) + ".mp4");
        Program program(
            {"render", folder / "clip.mov", "-p", "mp4-h264-480p", "-o", film, "--progress", progress, "-v"});
        program.setWrapper({QStringLiteral("sh"), QStringLiteral("-c"),
                            QStringLiteral("exec \"$@\" ") + QString::fromUtf8(GetParam()), QStringLiteral("sh")});
        const Result result = program.run();
        EXPECT_EQ(result.code, hasOutput ? 0 : 1) << result.errors.toStdString();
        EXPECT_EQ(TestMedia::describe(film).all("video").size(), 1U) << GetParam();
    }
    EXPECT_EQ(TestFiles::namesIn(place / "").size(), 2);
}

INSTANTIATE_TEST_SUITE_P(OfAll, ClosedDescriptors, testing::Values("2>&-", "<&-", "<&- 2>&-", ">&-", ">&- 2>&- <&-"));

} // namespace
