// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines to the place of what they are read from, which is refused.
#include "RenderedTimelines.h"
#include "support/FileHelpers.h"
#include <filesystem>

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, NeverReplaceTheirMedia) {
    TestMedia::FlashBeep clip;
    clip.frames = 10;
    TestMedia::makeFlashBeep(*media / "own.mkv", clip);
    const auto size = std::filesystem::file_size(*media / "own.mkv");
    const std::string cut = write(clipOf("a", "own.mkv", 0, 5), {});
    const Result result = run({"render", cut, "-p", "mkv-ffv1-flac", "-o", *media / "own.mkv", "--overwrite"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("it is one of the timeline's media")))
        << result.errors.toStdString();
    EXPECT_EQ(std::filesystem::file_size(*media / "own.mkv"), size);
}

/// Exporting `cut` over that file is refused, and the file stays as it is.
void expectKept(const std::string& cut, const std::string& file, const std::vector<std::string>& more = {}) {
    const QByteArray before = TestFiles::read(file);
    std::vector<std::string> arguments{"render", cut, "-p", "mkv-ffv1-flac", "-o", file, "--overwrite"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Result result = run(arguments);
    EXPECT_EQ(result.code, 2) << file;
    EXPECT_TRUE(result.errors.contains(QStringLiteral("it is one of the timeline's media")))
        << file << ": " << result.errors.toStdString();
    EXPECT_EQ(TestFiles::read(file), before) << file;
}

TEST_F(RenderedTimelines, NeverReplaceAPictureOfASequence) {
    makeNumbered();
    const std::string cut = write(numbered(108, 3), {});
    std::filesystem::create_hard_link(*media / "p.110.png", *media / "shown");
    expectKept(cut, *media / "shown");
    std::filesystem::create_symlink(*media / "p.112.png", *media / "behind");
    expectKept(cut, *media / "behind");
}

TEST_F(RenderedTimelines, NeverReplaceWhatTheyNameAndDoNotShow) {
    const std::string other = *media / "other.mkv";
    std::filesystem::copy_file(*media / "both.mov", other);
    const std::string shown = clipOf("a", "both.mov", 0, 5);
    const std::string hidden = clipOf("b", "other.mkv", 0, 5);
    expectKept(write(shown + ',' + clipOf("b", "other.mkv", 0, 5, R"(,"enabled":false)"), {}), other);
    expectKept(writeTracks(track("Video", shown) + ',' + track("Subtitle", hidden)), other);
    const std::string unread = R"({"OTIO_SCHEMA":"Unknown.1","inside":)" + hidden + '}';
    expectKept(write(shown + ',' + unread, {}), other);
    std::ofstream(*media / "text.mkv") << "no media at all";
    expectKept(write(shown + ',' + clipOf("broken", "text.mkv", 0, 5), {}), *media / "text.mkv",
               {"--missing", "black"});
}

TEST_F(RenderedTimelines, NeverReplaceWhatAFolderIsReadFrom) {
    std::filesystem::create_directory(*media / "cut.otiod");
    const std::string content = write(clipOf("a", "../both.mov", 0, 5), {}, "cut.otiod/content.otio");
    const auto size = std::filesystem::file_size(content);
    const Result result = run({"render", *media / "cut.otiod", "-p", "mkv-ffv1-flac", "-o", content, "--overwrite"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("it is one of the inputs"))) << result.errors.toStdString();
    EXPECT_EQ(std::filesystem::file_size(content), size);
}

} // namespace
