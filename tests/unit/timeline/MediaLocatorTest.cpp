// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/MediaLocator.h"

#include "OtioFixture.h"
#include <sys/stat.h>

namespace Timeline::Tests {
namespace {

using Wanted = MediaLocator::Wanted;

class MediaLocatorTest : public OtioFixture {
protected:
    std::string find(const std::string& name, const std::string& root = {}, Wanted wanted = Wanted::File) const {
        const auto result = MediaLocator(folder.string(), root).locate(name, wanted);
        const auto* path = std::get_if<Kestra::ioPath>(&result);
        return path ? path->ToUtf8()
                    : (std::get<MediaLocator::Trouble>(result).isHere ? "!" : "?") +
                          std::get<MediaLocator::Trouble>(result).why;
    }
};

TEST_F(MediaLocatorTest, TakesEveryFormOfAPath) {
    const std::string plain = put("a.mov");
    const std::string blank = put("sub/with blank.mov");
    const std::string umlaut = put("sub/Käse.mov");
    EXPECT_EQ(find("a.mov"), plain);
    EXPECT_EQ(find("./sub/../a.mov"), plain);
    EXPECT_EQ(find(plain), plain);
    EXPECT_EQ(find("file:a.mov"), plain);
    EXPECT_EQ(find("file:" + plain), plain);
    EXPECT_EQ(find("file://" + plain), plain);
    EXPECT_EQ(find("file://localhost" + plain), plain);
    EXPECT_EQ(find("FILE://" + plain), plain);
    EXPECT_EQ(find("sub/with blank.mov"), blank);
    EXPECT_EQ(find("sub/with%20blank.mov"), blank);
    EXPECT_EQ(find("file://" + folder.string() + "/sub/with%20blank.mov"), blank);
    EXPECT_EQ(find("sub/K%C3%A4se.mov"), umlaut);
    EXPECT_EQ(find("sub/K%c3%a4se.mov"), umlaut);
}

TEST_F(MediaLocatorTest, TakesANameAsItIsWrittenBeforeItDecodesIt) {
    const std::string percent = put("100%25.mov");
    EXPECT_EQ(find("100%25.mov"), percent);
    const std::string decoded = put("100%.mov");
    EXPECT_EQ(find("file:100%25.mov"), decoded) << "a URL is always encoded";
    EXPECT_EQ(find("100%.mov"), decoded);
    const std::string colon = put("take:2.mov");
    EXPECT_EQ(find("take:2.mov"), colon) << "a file may be called like a URL";
}

TEST_F(MediaLocatorTest, OpensNothingButFiles) {
    EXPECT_EQ(find("http://example.org/a.mov"), "!is a URL of the scheme \"http\"; only files are opened");
    EXPECT_EQ(find("concat:a.mov|b.mov"), "!is a URL of the scheme \"concat\"; only files are opened");
    put("sub/x");
    EXPECT_EQ(find("sub"), "!is no plain file");
    const std::string pipe = (folder / "pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(find("pipe"), "!is no plain file");
    EXPECT_EQ(find("/dev/zero"), "!is no plain file");
    EXPECT_EQ(find(""), "!has no name");
    EXPECT_EQ(find("a%00.mov"), "!has a name with a zero byte");
}

TEST_F(MediaLocatorTest, TellsWhatIsNotThereAndWhatStandsElsewhere) {
    EXPECT_EQ(find("b.mov"), "?is not there");
    EXPECT_EQ(find("file://server/share/b.mov"), "?stands on another machine");
    for (const char* const path : {"C:\\clips\\b.mov", "c:/clips/b.mov", "file:///C:/clips/b.mov",
                                   "file:///C%3A/clips/b.mov", "\\\\server\\clips\\b.mov"})
        EXPECT_EQ(find(path), "?stands at a path of Windows") << path;
}

TEST_F(MediaLocatorTest, LooksBelowTheFolderForMedia) {
    const std::string root = (folder / "media").string();
    const std::string inside = put("media/clips/b.mov");
    const std::string flat = put("media/c.mov");
    EXPECT_EQ(find("clips/b.mov", root), inside);
    EXPECT_EQ(find("/elsewhere/c.mov", root), flat);
    EXPECT_EQ(find("D:\\old\\c.mov", root), flat);
    EXPECT_EQ(find("file://server/share/c.mov", root), flat);
    EXPECT_EQ(find("/elsewhere/b.mov", root), "?is not there, nor below the folder for media");
    put("c.mov");
    EXPECT_EQ(find("c.mov", root), (folder / "c.mov").string()) << "what is in its place is taken";
}

TEST_F(MediaLocatorTest, FindsFolders) {
    put("seq/1.png");
    EXPECT_EQ(find("seq", {}, Wanted::Folder), (folder / "seq").string());
    EXPECT_EQ(find("a.mov", {}, Wanted::Folder), "!is no folder");
}

} // namespace
} // namespace Timeline::Tests
