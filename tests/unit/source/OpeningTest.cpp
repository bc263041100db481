// SPDX-License-Identifier: GPL-3.0-or-later
// What is refused, and in which words.
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcessingError.h"
#include "unit/source/SourceFixture.h"
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace TestMedia {
namespace {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

class Opening : public SourceTest {
protected:
    ProcessingError refusal(const std::string& path) {
        try {
            open(path);
        } catch (...) {
            return ProcessingError::MakeProcessingErrorFromException(std::current_exception());
        }
        ADD_FAILURE() << path << " was opened";
        return {};
    }
    void expectRefused(const std::string& path, TranscodingError code, const std::string& reason) {
        const ProcessingError error = refusal(path);
        EXPECT_EQ(error.GetCode(), code) << error.GetDescription();
        EXPECT_NE(error.GetDescription().find(path), std::string::npos) << error.GetDescription();
        EXPECT_NE(error.GetDescription().find(reason), std::string::npos) << error.GetDescription();
    }
    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(folder / name) << content;
        return folder / name;
    }
};

TEST_F(Opening, OfAMissingFileSaysThatItIsNotThere) {
    expectRefused(folder / "none.mp4", TranscodingError::SourceNotFound, "No such file");
}

TEST_F(Opening, OfAFolderSaysThatItIsOne) {
    expectRefused(folder / "", TranscodingError::SourceUnreadable, "folder");
}

TEST_F(Opening, OfAnEmptyFileSaysSo) {
    expectRefused(write("a.mp4", ""), TranscodingError::SourceUnreadable, "empty");
}

TEST_F(Opening, OfAFileWhoseFirstPacketClaimsMoreThanMemoryHoldsNamesIt) {
    const std::string path = folder / "claim.ivf";
    runFfmpeg({"-f", "lavfi", "-i", "testsrc=s=64x48:r=25", "-frames:v", "2", "-c:v", "libvpx", path});
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(32); // behind the file's header the size of the first picture
    file.write("\0\xFF\xFF\xFF", 4);
    file.close();
    expectRefused(path, TranscodingError::OutOfMemory, "it takes more memory than there is");
}

TEST_F(Opening, OfTextIsRefusedUnderAnyName) {
    for (const char* name : {"a.txt", "a.mp4", "a.mp3", "a.nfo", "a.srt", "a.png"}) {
        const std::string path = write(name, "1\n00:00:01,000 --> 00:00:02,000\nThese are words, not pictures.\n");
        EXPECT_EQ(refusal(path).GetCode(), TranscodingError::SourceUnreadable) << name;
    }
}

TEST_F(Opening, OfSubtitlesAloneNamesThatThereIsNothingToShow) {
    const std::string text = write("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nwords\n");
    expectRefused(make("a.mkv", {"-i", text}), TranscodingError::SourceUnreadable, "neither picture nor sound");
}

TEST_F(Opening, OfAPipeIsRefusedWithoutWaitingForAWriter) {
    const std::string path = folder / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    expectRefused(path, TranscodingError::SourceUnreadable, "not a regular file");
}

TEST_F(Opening, OfAPlaylistDoesNotOpenWhatItNames) {
    const std::string media = make("a.ts", {"-f", "lavfi", "-i", "color=s=64x64:d=1"});
    const std::string path =
        write("a.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nhttp://127.0.0.1:9/a.ts\n#EXT-X-ENDLIST\n");
    EXPECT_EQ(refusal(path).GetCode(), TranscodingError::SourceUnreadable);
}

/// Puts `entry` in place of the last `old` bytes of the box that is found by the path, whose boxes grow by that much.
std::string replaced(std::string file, const std::vector<std::string>& path, std::size_t old,
                     const std::string& entry) {
    const auto numberAt = [&file](std::size_t at) {
        std::size_t value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | static_cast<unsigned char>(file[at + i]);
        return value;
    };
    std::size_t begin = 0, end = file.size();
    for (const std::string& name : path) {
        while (file.compare(begin + 4, 4, name) != 0)
            begin += numberAt(begin);
        end = begin + numberAt(begin);
        const std::size_t length = numberAt(begin) + entry.size() - old;
        for (std::size_t i = 0; i < 4; ++i)
            file[begin + i] = static_cast<char>(length >> (24 - 8 * i));
        begin += 8;
    }
    return file.replace(end - old, old, entry);
}

TEST_F(Opening, OfAFilmWhoseSamplesStandInAnotherFileIsRefused) {
    const std::string film = make("a.mov", {"-f", "lavfi", "-i", "color=s=64x64:d=1"});
    std::ifstream stream(film, std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(stream), {}};
    // An alias in place of the word that the samples stand in this file.
    std::string alias("\0\0\0\xb8"
                      "alis\0\0\0\0",
                      12);
    alias += std::string(10, '\0') + '\4' + "disk" + std::string(23, '\0') + std::string(12, '\0') + '\5' + "b.mov" +
             std::string(58, '\0') + std::string(16, '\0') + std::string("\0\1\0\1", 4) + std::string(16, '\0');
    alias += std::string("\0\2\0\x0e", 4) + "disk:dir:b.mov" + std::string("\xff\xff\0\0", 4);
    alias[3] = static_cast<char>(alias.size());
    const std::string named = replaced(whole, {"moov", "trak", "mdia", "minf", "dinf", "dref"}, 12, alias);
    std::ofstream(folder / "b.mov", std::ios::binary) << whole;
    expectRefused(write("c.mov", named), TranscodingError::SourceUnreadable, "stand in another file");
}

TEST_F(Opening, OfAFilmWhoseSamplesStandAtAUrlIsRefused) {
    const std::string film = make("a.mp4", {"-f", "lavfi", "-i", "color=s=64x64:d=1"});
    std::ifstream stream(film, std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(stream), {}};
    const std::vector<std::string> place{"moov", "trak", "mdia", "minf", "dinf", "dref"};
    const std::string named = std::string("\0\0\0\x12url \0\0\0\0", 12) + std::string("b.mp4\0", 6);
    expectRefused(write("c.mp4", replaced(whole, place, 12, named)), TranscodingError::SourceUnreadable,
                  "stand in another file");
    // Neither here nor anywhere else, so here.
    const std::string untold("\0\0\0\x0curl \0\0\0\0", 12);
    EXPECT_TRUE(open(write("d.mp4", replaced(whole, place, 12, untold)))->GetInfo().video);
}

TEST_F(Opening, SearchesZerosForAHeaderInBounds) {
    for (const char* name : {"a.mxf", "a.nut"}) {
        const std::string film = make(name, join(pictures("25", 25), {"-c:v", "mpeg2video"}));
        ASSERT_EQ(truncate(film.c_str(), std::int64_t{20} << 30), 0);
        const std::atomic<bool> interrupted{false};
        Kestra::FF::Demuxer demuxer(ioPath(film), interrupted);
        EXPECT_LT(demuxer.GetContext().pb->bytes_read, 200 << 20) << name;
    }
}

TEST_F(Opening, OfMoreThanTheLimitsAllowIsRefused) {
    const std::string film = make("a.mkv", {"-f", "lavfi", "-i", "color=s=640x480:d=1", "-c:v", "ffv1"});
    auto& factory = Kestra::Core::CoreManager::Instance().GetSourceFactory();
    Kestra::Proc::MediaLimits limits;
    limits.pictureBytes = 640 * 480 * 3 / 2;
    EXPECT_TRUE(factory.OpenMedia(ioPath(film), nullptr, limits));
    --limits.pictureBytes;
    EXPECT_THROW(factory.OpenMedia(ioPath(film), nullptr, limits), Kestra::Proc::ProcException);
}

TEST_F(Opening, TakesNamesWithColonsAndSigns) {
    for (const char* name : {"http:a.mp4", "50%d.mp4", "\xC3\xA4 b'\".mp4"}) {
        const std::string plain = make("plain.mp4", {"-f", "lavfi", "-i", "color=s=64x64:d=1"});
        const std::string path = folder / name;
        ASSERT_EQ(std::rename(plain.c_str(), path.c_str()), 0);
        EXPECT_EQ(open(path)->GetInfo().duration, TIME_BASE) << name;
    }
}

TEST_F(Opening, EndsWhenItIsInterrupted) {
    const std::string path = make("a.mkv", join(pictures("25", 10), {"-c:v", "ffv1"}));
    std::atomic<bool> interrupted{false};
    auto& factory = Kestra::Core::CoreManager::Instance().GetSourceFactory();
    EXPECT_TRUE(factory.OpenMedia(ioPath(path), &interrupted));
    interrupted = true;
    EXPECT_THROW(factory.OpenMedia(ioPath(path), &interrupted), Kestra::Proc::ProcException);
}

} // namespace
} // namespace TestMedia
