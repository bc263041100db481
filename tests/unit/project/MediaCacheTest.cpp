// SPDX-License-Identifier: GPL-3.0-or-later
// What one test had made is given to the next one, and never anything else.
#include "support/MediaCache.h"
#include "support/FlashBeep.h"
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using TestMedia::MediaCache;

std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::size_t filesIn(const std::string& folder) {
    const std::filesystem::directory_iterator files(folder);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

class Cache : public ::testing::Test {
protected:
    Cache() { write(made, bytes); }
    bool fetched(const std::string& key = "key.mov") const {
        std::filesystem::remove(copy);
        return cache.fetch(key, copy);
    }

    const TestMedia::Folder folder;
    const std::string place = folder / "kept", made = folder / "made.mov", copy = folder / "copy.mov";
    const std::string bytes = std::string("any\0bytes\n", 10) + std::string(100'000, 'x');
    const MediaCache cache{place};
};

TEST_F(Cache, GivesTheBytesThatWereKeptUnderTheKey) {
    EXPECT_FALSE(fetched());
    cache.keep("key.mov", made);
    ASSERT_TRUE(fetched());
    EXPECT_EQ(read(copy), bytes);
    EXPECT_FALSE(fetched("other.mov"));
    EXPECT_EQ(filesIn(place), 1U);
}

TEST_F(Cache, DoesNotSeeWhatATestDoesToItsFiles) {
    cache.keep("key.mov", made);
    write(made, "damaged");
    ASSERT_TRUE(fetched());
    write(copy, "damaged, too");
    ASSERT_TRUE(fetched());
    EXPECT_EQ(read(copy), bytes);
}

TEST_F(Cache, GivesNothingThatIsNotWhole) {
    cache.keep("key.mov", made);
    const std::string entry = place + "/key.mov", whole = read(entry);
    for (const std::size_t left : {std::size_t{0}, std::size_t{5}, whole.size() / 2, whole.size() - 1}) {
        write(entry, whole.substr(0, left));
        EXPECT_FALSE(fetched()) << left;
    }
    for (const std::size_t at : {std::size_t{0}, whole.size() / 2, whole.size() - 1}) {
        std::string altered = whole;
        ++altered[at];
        write(entry, altered);
        EXPECT_FALSE(fetched()) << at;
    }
    write(place + "/other.mov", whole);
    EXPECT_FALSE(fetched("other.mov")) << "an entry under another one's name";
    cache.keep("key.mov", made);
    EXPECT_TRUE(fetched());
}

TEST_F(Cache, GivesNothingOfAWriterThatWasKilled) {
    write(made, std::string(20'000'000, 'y'));
    std::filesystem::create_directory(place);
    const pid_t writer = fork();
    if (writer == 0) {
        cache.keep("key.mov", made);
        pause();
    }
    while (filesIn(place) == 0)
        usleep(100);
    kill(writer, SIGKILL);
    ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
    EXPECT_TRUE(!fetched() || read(copy) == read(made)) << "it may have been done before";
    cache.keep("key.mov", made);
    ASSERT_TRUE(fetched());
    EXPECT_EQ(read(copy), read(made));
}

TEST_F(Cache, KeepsNothingWithoutAKeyOrAFolder) {
    cache.keep({}, made);
    EXPECT_FALSE(fetched({}));
    const MediaCache none{std::string()};
    none.keep("key.mov", made);
    EXPECT_FALSE(none.fetch("key.mov", copy));
    EXPECT_FALSE(std::filesystem::exists(place));
}

TEST_F(Cache, KnowsAFileByAllThatItIsMadeOf) {
    const auto key = [this](const std::string& filter, const std::string& name) {
        return MediaCache::keyOf({"-i", made, "-vf", filter, folder / name});
    };
    const std::string first = key("negate", "a.mov");
    ASSERT_FALSE(first.empty());
    EXPECT_EQ(key("negate", "elsewhere.mov"), first);
    EXPECT_NE(key("hflip", "a.mov"), first);
    EXPECT_NE(key("negate", "a.mkv"), first);
    EXPECT_NE(MediaCache::keyOf({"-vf", "negate", "-i", made, folder / "a.mov"}), first) << "the same in another order";
    write(made, "other bytes");
    EXPECT_NE(key("negate", "a.mov"), first);
}

TEST_F(Cache, DoesNotKnowFilesThatOweMoreThanTheArgumentsTell) {
    write(folder / "list.txt", "file made.mov");
    EXPECT_EQ(MediaCache::keyOf({"-f", "concat", "-i", folder / "list.txt", folder / "a.mov"}), "");
    EXPECT_EQ(MediaCache::keyOf({"-i", folder / "list.txt", folder / "a.mov"}), "");
    EXPECT_EQ(MediaCache::keyOf({"-i", "concat:" + made + "|" + made, folder / "a.mov"}), "");
    EXPECT_EQ(MediaCache::keyOf({"-i", made, "-vf", "movie=" + made, folder / "a.mov"}), "");
    EXPECT_EQ(MediaCache::keyOf({"-i", made, folder / "first.mov", folder / "second.mov"}), "");
    EXPECT_EQ(MediaCache::keyOf({"-i", made, folder / "picture%d.png"}), "");
    EXPECT_EQ(MediaCache::keyOf({"-i", made, "-f", "segment", folder / "a.mov"}), "");
}

/// Sends what is made here through a cache of its own.
class CacheOfThisTest {
public:
    explicit CacheOfThisTest(const std::string& folder) { setenv(NAME, folder.c_str(), 1); }
    ~CacheOfThisTest() { wasSet ? setenv(NAME, before.c_str(), 1) : unsetenv(NAME); }
    CacheOfThisTest(const CacheOfThisTest&) = delete;
    CacheOfThisTest& operator=(const CacheOfThisTest&) = delete;

private:
    static constexpr const char* NAME = "EDITOREXPORT_MEDIA_CACHE";
    const bool wasSet = getenv(NAME) != nullptr;
    const std::string before = wasSet ? getenv(NAME) : "";
};

TEST_F(Cache, MakesAFileOnceAndTheSameWithoutIt) {
    TestMedia::FlashBeep media;
    media.frames = 5;
    media.more = {"-fflags", "+bitexact"};
    {
        const CacheOfThisTest none{""};
        TestMedia::makeFlashBeep(folder / "plain.mov", media);
    }
    const CacheOfThisTest own(place);
    TestMedia::makeFlashBeep(folder / "first.mov", media);
    EXPECT_EQ(read(folder / "first.mov"), read(folder / "plain.mov"));
    ASSERT_EQ(filesIn(place), 1U);
    TestMedia::makeFlashBeep(folder / "second.mov", media);
    EXPECT_EQ(read(folder / "second.mov"), read(folder / "plain.mov"));
    EXPECT_EQ(filesIn(place), 1U);
    // Two that nothing but chance makes alike.
    for (const char* const name : {"a.wav", "b.wav"})
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "anoisesrc=d=0.1", folder / name});
    EXPECT_EQ(read(folder / "a.wav"), read(folder / "b.wav"));
}

} // namespace
