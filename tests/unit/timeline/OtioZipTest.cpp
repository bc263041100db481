// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines packed with their media: what is unpacked, for how long, and what is not to be trusted.
#include "OtioFixture.h"
#include "Timeline/Reader/PrivateFolder.h"
#include "Timeline/Reader/ZipArchive.h"
#include <algorithm>
#include <array>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zip.h>

namespace Timeline::Tests {
namespace {

namespace fs = std::filesystem;

struct Packed {
    std::string name;
    std::string content;
    bool stored = true;
    bool encrypted = false;
    mode_t mode = 0; ///< unless 0, as its external attributes tell
};

class OtioZip : public OtioFixture {
protected:
    void SetUp() override {
        OtioFixture::SetUp();
        fs::create_directories(folder / "tmp");
        ::setenv("TMPDIR", (folder / "tmp").c_str(), 1);
    }
    void TearDown() override {
        ::unsetenv("TMPDIR");
        OtioFixture::TearDown();
    }

    std::string pack(const std::vector<Packed>& entries) const {
        const std::string path = (folder / "cut.otioz").string();
        int error = 0;
        zip_t* const archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
        EXPECT_TRUE(archive);
        for (const Packed& entry : entries) {
            zip_source_t* const source = zip_source_buffer(archive, entry.content.data(), entry.content.size(), 0);
            const zip_int64_t index = zip_file_add(archive, entry.name.c_str(), source, ZIP_FL_ENC_UTF_8);
            EXPECT_GE(index, 0) << entry.name;
            const auto number = static_cast<zip_uint64_t>(index);
            zip_set_file_compression(archive, number, entry.stored ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 0);
            const zip_uint16_t encryption = entry.encrypted ? ZIP_EM_AES_256 : ZIP_EM_NONE;
            EXPECT_EQ(zip_file_set_encryption(archive, number, encryption, "secret"), 0);
            if (entry.mode != 0)
                zip_file_set_external_attributes(archive, number, 0, ZIP_OPSYS_UNIX, entry.mode << 16);
        }
        EXPECT_EQ(zip_close(archive), 0);
        return path;
    }
    static Reading readZip(const std::string& path, const ReadingOptions& options = {}) {
        return OtioReader().read(Kestra::ioPath(path), options);
    }
    /// A timeline of one clip of each medium.
    static Packed cut(const std::vector<std::string>& media) {
        std::vector<std::string> clips;
        for (const std::string& one : media)
            clips.push_back(clipOf("c", rangeOf(0, 5), fileReference(one)));
        return {"content.otio", timelineOf({trackOf(clips)})};
    }
    static std::string fileOf(const Reading& reading, std::size_t index) {
        return std::get<MediaFile>(clipAt(firstTrack(reading), index).media.target).path.ToUtf8();
    }
    static std::string contentOf(const std::string& path) {
        std::stringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
    std::size_t leftBehind() const {
        return static_cast<std::size_t>(
            std::distance(fs::recursive_directory_iterator(folder / "tmp"), fs::recursive_directory_iterator()));
    }
    /// Reading finds an error about the entry, and nothing stays.
    void expectError(const std::vector<Packed>& entries, const std::string& words) const {
        {
            const Reading reading = readZip(pack(entries));
            EXPECT_TRUE(reading.has(Finding::Kind::Error)) << words;
            EXPECT_NE(inWords(reading).find(words), std::string::npos) << inWords(reading) << words;
        }
        EXPECT_EQ(leftBehind(), 0U) << words;
    }
};

TEST_F(OtioZip, IsReadWithTheMediaThatItRefersTo) {
    const std::string path = pack({cut({"media/ä b.mov", "media/sub/c.mov"}),
                                   {"version.txt", "1.0.0"},
                                   {"media/ä b.mov", "bytes of b"},
                                   {"media/sub/c.mov", std::string(100000, 'c'), false},
                                   {"media/unused.mov", "bytes of none"},
                                   {"elsewhere/d.mov", "bytes of d"}});
    EXPECT_TRUE(OtioReader().reads(Kestra::ioPath(path)));
    EXPECT_TRUE(OtioReader().reads(Kestra::ioPath("CUT.OTIOZ")));
    Reading reading = readZip(path);
    EXPECT_EQ(inWords(reading), "");
    EXPECT_EQ(reading.document->duration(), frames(10));
    EXPECT_EQ(contentOf(fileOf(reading, 0)), "bytes of b");
    EXPECT_EQ(contentOf(fileOf(reading, 1)), std::string(100000, 'c'));
    const fs::path unpacked = fs::path(fileOf(reading, 0)).parent_path().parent_path();
    EXPECT_EQ(unpacked.parent_path(), folder / "tmp");
    EXPECT_EQ(contentOf(unpacked / "media/unused.mov"), "") << "nobody refers to it";
    EXPECT_FALSE(fs::exists(unpacked / "elsewhere"));
}

TEST_F(OtioZip, LiesInAFolderForThisUserAloneAsLongAsItsDocument) {
    Reading reading = readZip(pack({cut({"media/b.mov"}), {"media/b.mov", "bytes"}}));
    const std::string file = fileOf(reading, 0);
    struct stat state = {};
    ASSERT_EQ(::stat(fs::path(file).parent_path().parent_path().c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0700U);
    const auto other = std::make_shared<Document>(*reading.document);
    reading = {};
    EXPECT_EQ(contentOf(file), "bytes") << "a document that was made of it holds it, too";
    other->resources.reset();
    EXPECT_EQ(leftBehind(), 0U);
}

TEST_F(OtioZip, HasItsMediaWhenTheirLengthsAreAskedFor) {
    ReadingOptions options;
    std::string seen;
    options.lengthOf = [&seen](const MediaReference& media, Track::Kind) {
        seen = contentOf(std::get<MediaFile>(media.target).path.ToUtf8());
        return std::optional(frames(7));
    };
    const std::string clip = objectOf("Clip.1", "c", R"(,"media_reference":)" + fileReference("media/b.mov"));
    const Reading reading =
        readZip(pack({{"content.otio", timelineOf({trackOf({clip})})}, {"media/b.mov", "bytes"}}), options);
    EXPECT_EQ(seen, "bytes");
    EXPECT_EQ(reading.document->duration(), frames(7));
}

TEST_F(OtioZip, HasThePicturesOfSequencesAndOfWhatIsNested) {
    const std::string sequence =
        R"({"OTIO_SCHEMA":"ImageSequenceReference.1","target_url_base":"media/shot/","name_prefix":"p_",)"
        R"("name_suffix":".png","start_frame":1,"frame_step":1,"rate":25,"frame_zero_padding":2,"available_range":)" +
        rangeOf(1, 2) + '}';
    const std::string nested = stackOf({trackOf({clipOf("n", rangeOf(0, 2), fileReference("media/n.mov"))})});
    const Reading reading =
        readZip(pack({{"content.otio", timelineOf({trackOf({clipOf("s", rangeOf(1, 2), sequence), nested})})},
                      {"media/shot/p_01.png", "one"},
                      {"media/shot/p_02.png", "two"},
                      {"media/shot/q_01.png", "other"},
                      {"media/n.mov", "nested"}}));
    EXPECT_EQ(inWords(reading), "");
    const auto& pictures = std::get<ImageSequence>(clipAt(firstTrack(reading), 0).media.target);
    const fs::path shot = pictures.folder.ToUtf8();
    EXPECT_EQ(contentOf(shot / pictures.nameOf(0)), "one");
    EXPECT_EQ(contentOf(shot / pictures.nameOf(1)), "two");
    EXPECT_EQ(contentOf(shot / "q_01.png"), "");
    EXPECT_EQ(contentOf(shot / "../n.mov"), "nested");
}

TEST_F(OtioZip, FindsItsMediaHoweverTheFolderIsWritten) {
    const std::string path = pack({cut({"media/b.mov"}), {"media/b.mov", "bytes"}, {"media/c.mov", "others"}});
    fs::create_directory_symlink(folder / "tmp", folder / "link");
    for (const char* const written : {"tmp/../tmp", "./tmp//", "link", "tmp/../link/."}) {
        ::setenv("TMPDIR", (folder / written).c_str(), 1);
        const Reading reading = readZip(path);
        EXPECT_EQ(inWords(reading), "") << written;
        const fs::path file = fileOf(reading, 0);
        EXPECT_EQ(file.parent_path().parent_path().parent_path(), fs::canonical(folder / "tmp")) << written;
        EXPECT_EQ(contentOf(file), "bytes") << written;
        EXPECT_FALSE(fs::exists(file.parent_path() / "c.mov")) << "an empty file is no medium";
    }
    for (const std::string& none : {std::string(), (folder / "none").string(), (folder / "a.mov").string()}) {
        ::setenv("TMPDIR", none.c_str(), 1);
        const Reading reading = readZip(path);
        EXPECT_EQ(inWords(reading), "") << none;
        EXPECT_EQ(fs::path(fileOf(reading, 0)).parent_path().parent_path().parent_path(), fs::canonical("/tmp"));
    }
}

TEST_F(OtioZip, AddsUpWhatItUnpacks) {
    std::vector<std::string> media;
    std::vector<Packed> entries;
    for (int index = 0; index < 9; ++index) {
        media.push_back("media/" + std::to_string(index) + ".mov");
        entries.push_back({media.back(), std::string(16 << 20, '\0'), false});
    }
    entries.push_back(cut(media));
    const std::string path = pack(entries);
    const Reading reading = readZip(path);
    ASSERT_EQ(reading.findings.size(), 2U) << inWords(reading);
    EXPECT_EQ(reading.findings[0].text.find("its entry \"media/7.mov\" makes 129 MiB of an archive of "), 0U)
        << inWords(reading);
    EXPECT_EQ(fs::file_size(fileOf(reading, 6)), 16U << 20);
}

TEST_F(OtioZip, IsNotUnpackedAnyFurtherWhenThatIsInterrupted) {
    std::atomic<bool> interrupted{false};
    ReadingOptions options;
    options.interrupted = &interrupted;
    options.lengthOf = [&interrupted](const MediaReference&, Track::Kind) {
        interrupted = true;
        return std::optional(frames(7));
    };
    const std::string open = objectOf("Clip.1", "c", R"(,"media_reference":)" + fileReference("media/b.mov"));
    const std::string known = clipOf("d", rangeOf(0, 5), fileReference("media/c.mov"));
    const Reading reading = readZip(pack({{"content.otio", timelineOf({trackOf({open, known})})},
                                          {"media/b.mov", "bytes"},
                                          {"media/c.mov", "others"}}),
                                    options);
    EXPECT_EQ(inWords(reading), "its entry \"media/c.mov\" is not unpacked: that was stopped\n");
    EXPECT_EQ(contentOf(fileOf(reading, 0)), "bytes");
    EXPECT_TRUE(reading.has(Finding::Kind::Error));
}

TEST_F(OtioZip, TellsMediaThatAreNotInIt) {
    const Reading reading = readZip(pack({cut({"media/none.mov"})}));
    EXPECT_TRUE(reading.has(Finding::Kind::MissingMedia)) << inWords(reading);
}

TEST_F(OtioZip, ThatIsNoneIsRefused) {
    EXPECT_EQ(inWords(readZip((folder / "none.otioz").string())), "it is not there\n");
    fs::create_directories(folder / "folder.otioz");
    EXPECT_EQ(inWords(readZip((folder / "folder.otioz").string())), "it is no plain file\n");
    EXPECT_NE(inWords(readZip(put("cut.otioz", "no archive at all"))).find("it is no zip archive"), std::string::npos);
    expectError({{"media/b.mov", "bytes"}}, "there is no content.otio in it");
    expectError({cut({"media/b.mov"}), {"version.txt", "2.0.0"}}, "it is an archive of version 2");
    for (const char* const known : {"1", "1\n", "1.0.0\r\n", "1 "})
        EXPECT_EQ(inWords(readZip(pack({cut({"media/b.mov"}), {"version.txt", known}, {"media/b.mov", "bytes"}}))), "");
    ReadingOptions lenient;
    lenient.lenient = true;
    const Reading reading =
        readZip(pack({cut({"media/b.mov"}), {"version.txt", "2.0.0"}, {"media/b.mov", "bytes"}}), lenient);
    EXPECT_EQ(inWords(reading), "");
}

TEST_F(OtioZip, WithNamesThatLeadOutOfItIsRefused) {
    for (const std::string name :
         {"media/../../evil.mov", "../evil.mov", "/tmp/evil.mov", "media/..\\evil.mov", "media/c:evil.mov"})
        expectError({cut({"media/b.mov"}), {"media/b.mov", "bytes"}, {name, "evil"}},
                    "its entry \"" + name + "\" has a name that leads out of the archive");
    EXPECT_FALSE(fs::exists(folder / "evil.mov"));
    EXPECT_TRUE(staysInside("media/..b/c.mov"));
}

TEST_F(OtioZip, WithEntriesThatAreNotToBeTrustedIsRefused) {
    const auto medium = [](Packed entry) {
        entry.name = "media/b.mov";
        return entry;
    };
    expectError({cut({"media/b.mov"}), medium({{}, "/etc/passwd", true, false, S_IFLNK | 0777})},
                "its entry \"media/b.mov\" is no plain file");
    expectError({cut({"media/b.mov"}), medium({{}, "bytes", true, true})}, "its entry \"media/b.mov\" is encrypted");
    expectError({cut({"media/b.mov"}), medium({{}, std::string(32 << 20, '\0'), false})},
                "its entry \"media/b.mov\" claims to hold 32 MiB in ");
    Packed secret = cut({"media/b.mov"});
    secret.encrypted = true;
    expectError({secret}, "its entry \"content.otio\" is encrypted");
    expectError({cut({"media/b.mov"}), {"media/b.mov", "bytes"}, {"media/b.mov/c.mov", "bytes"}},
                "its entry \"media/b.mov/c.mov\" cannot be unpacked");
}

TEST_F(OtioZip, ThatIsDamagedIsToldByTheEntry) {
    const std::string path =
        pack({cut({"media/b.mov"}), {"media/b.mov", "bytes of the medium b"}, {"media/c.mov", "c"}});
    const std::string whole = contentOf(path);
    std::string changed = whole;
    changed.replace(changed.find("medium b"), 8, "medium x");
    put("cut.otioz", changed);
    EXPECT_NE(inWords(readZip(path)).find("its entry \"media/b.mov\" is damaged"), std::string::npos);
    std::string twice = whole;
    for (std::size_t at = twice.find("media/c.mov"); at != std::string::npos; at = twice.find("media/c.mov"))
        twice.replace(at, 11, "media/b.mov");
    put("cut.otioz", twice);
    EXPECT_NE(inWords(readZip(path)).find("its entry \"media/b.mov\" is in it twice"), std::string::npos);
    put("cut.otioz", whole.substr(0, whole.size() / 2));
    EXPECT_NE(inWords(readZip(path)).find("it is no zip archive, or a damaged one"), std::string::npos);
    EXPECT_EQ(leftBehind(), 0U);
}

TEST_F(OtioZip, TellsWhatIsDamagedOnceHoweverOftenItIsShown) {
    const std::string path = pack({cut({"media/b.mov", "media/b.mov"}), {"media/b.mov", "bytes of the medium b"}});
    std::string changed = contentOf(path);
    put("cut.otioz", changed.replace(changed.find("medium b"), 8, "medium x"));
    const Reading reading = readZip(path);
    EXPECT_EQ(reading.findings.size(), 1U) << inWords(reading);
    for (const std::size_t clip : {0, 1})
        EXPECT_TRUE(std::holds_alternative<MissingMedia>(clipAt(firstTrack(reading), clip).media.target))
            << "nobody is to look for what is known to be damaged";
}

/// A folder of a process that was killed.
std::string leftFolder() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const PrivateFolder folder;
        std::ofstream(folder.path() + "/medium") << "bytes";
        static_cast<void>(::write(ends[1], folder.path().data(), folder.path().size()));
        ::raise(SIGKILL);
    }
    ::close(ends[1]);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
    std::string path(4096, '\0');
    path.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::read(ends[0], path.data(), path.size()))));
    ::close(ends[0]);
    return path;
}

TEST_F(OtioZip, LeavesNothingOfProcessesThatWereKilled) {
    const PrivateFolder alive;
    const std::string left = leftFolder();
    ASSERT_TRUE(fs::exists(left + "/medium"));
    const fs::path tmp = folder / "tmp";
    const fs::path copied = tmp / "editor-export-timeline-copied", named = tmp / "editor-export-timeline-backup";
    fs::copy(left, copied, fs::copy_options::recursive);
    fs::create_directory(named);
    std::ofstream(named / "own") << "work of the user";
    fs::create_directory_symlink(left, tmp / "editor-export-timeline-linked");
    const PrivateFolder next;
    EXPECT_FALSE(fs::exists(left));
    for (const fs::path& kept : {fs::path(alive.path()), copied / "medium", named / "own"})
        EXPECT_TRUE(fs::exists(kept)) << kept;
    EXPECT_TRUE(fs::is_symlink(tmp / "editor-export-timeline-linked"));
}

TEST(ZipEntry, IsHeldAgainstTheFreeSpace) {
    ZipArchive::Entry entry;
    entry.name = "media/b.mov";
    entry.size = entry.packed = 1000ULL << 20;
    const auto whyNot = [&entry](std::uint64_t free) { return ZipArchive::whyNot(entry, {free, 0, entry.packed}); };
    EXPECT_EQ(whyNot(1064ULL << 20), "");
    EXPECT_EQ(whyNot(1063ULL << 20), "takes 1000 MiB, and where it would be unpacked 1063 MiB are free");
    entry.size = entry.packed = UINT64_MAX;
    EXPECT_NE(whyNot(1000ULL << 20), "");
}

TEST(ZipEntry, IsHeldAgainstTheArchiveTogetherWithTheOthers) {
    constexpr std::uint64_t MEBIBYTE = 1 << 20;
    ZipArchive::Entry entry;
    entry.name = "media/b.mov";
    entry.size = 16 * MEBIBYTE;
    entry.packed = 16 << 10;
    const auto whyNot = [&entry](std::uint64_t unpacked, std::uint64_t archive) {
        return ZipArchive::whyNot(entry, {UINT64_MAX, unpacked, archive});
    };
    EXPECT_EQ(whyNot(112 * MEBIBYTE, 1000), "") << "so little does no harm";
    EXPECT_EQ(whyNot(113 * MEBIBYTE, 1000), "makes 129 MiB of an archive of 1000 bytes, which media never do");
    EXPECT_EQ(whyNot(984 * MEBIBYTE, 20 * MEBIBYTE), "");
    EXPECT_NE(whyNot(1034 * MEBIBYTE, 20 * MEBIBYTE), "");
}

} // namespace
} // namespace Timeline::Tests
