// What is refused, and in which words.
#include "Kestra/Proc/ProcessingError.h"
#include "unit/source/SourceFixture.h"
#include <fstream>
#include <sys/stat.h>

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
