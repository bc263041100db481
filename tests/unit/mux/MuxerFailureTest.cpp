// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/FailingOutput.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Fakes;
using namespace Kestra;
using Proc::TranscodingError;

namespace {

/// The code and the sentence of what `action` throws; None when it throws nothing.
template <class Action>
Proc::ProcessingError Failure(Action action) {
    try {
        action();
    } catch (...) {
        return Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
    }
    return Proc::ProcessingError(TranscodingError::None, "nothing was thrown");
}

std::vector<Raw> BothTracks() {
    return {VideoEncoder(MakeVideo({}), Description("h264")), AudioEncoder(MakeAudio({}), Description("aac"))};
}

std::int64_t BytesOfAGoodRun(const std::string& path, const std::string& container) {
    const boost::intrusive_ptr<FailingOutput> output(new FailingOutput(ioPath(path)));
    WriteFile(output, container, BothTracks());
    return output->GetBytesWritten();
}

class DiskFull : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(DiskFull, IsAFailureWhereverItHappens) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    const std::int64_t all = BytesOfAGoodRun(path, GetParam());
    ASSERT_GT(all, 1000);
    // The header, the media, the moving of the index, the very last byte.
    for (const std::int64_t room :
         {std::int64_t{0}, std::int64_t{20}, all / 4, all / 2, all * 3 / 4, all - 200, all - 1}) {
        const boost::intrusive_ptr<FailingOutput> output(new FailingOutput(ioPath(path)));
        output->room = room;
        const auto failure = Failure([&] { WriteFile(output, GetParam(), BothTracks()); });
        EXPECT_EQ(failure.GetCode(), TranscodingError::DiskFull)
            << "room for " << room << " of " << all << " bytes: " << failure.GetDescription();
    }
}

TEST_P(DiskFull, IsAFailureWhenItShowsOnClosing) {
    const ScratchFolder folder;
    const boost::intrusive_ptr<FailingOutput> output(new FailingOutput(ioPath(folder.File("out"))));
    output->failClose = true;
    EXPECT_EQ(Failure([&] { WriteFile(output, GetParam(), BothTracks()); }).GetCode(), TranscodingError::DiskFull);
}

INSTANTIATE_TEST_SUITE_P(Muxer, DiskFull, testing::Values("mp4", "mov", "mkv"));

TEST(Muxer, CreatesNothingBeforeOpen) {
    const ScratchFolder folder;
    const std::string path = folder.File("out.mp4");
    Core::Property tree;
    tree.SetChild(Conf::IFormatFile::TAG_CONTAINER_ID, std::string("mp4"));
    auto format = Conf::IFormatFile::Create();
    format->SetProperty(tree);
    const auto muxer =
        Core::CoreManager::Instance().GetMuxerFactory().CreateMuxer(format, Core::DataOutputFF::Create(ioPath(path)));
    const auto encoder = VideoEncoder(MakeVideo({}), Description("h264"));
    encoder->Prepare();
    boost::intrusive_ptr<Conf::IFormatCodec> codec;
    encoder->GetFormatCodec(codec);
    EXPECT_EQ(muxer->AddStream(codec), 0);
    struct stat status = {};
    EXPECT_NE(::stat(path.c_str(), &status), 0);
    muxer->Abort();
}

TEST(Muxer, RefusesAnUnknownOptionByName) {
    const ScratchFolder folder;
    Core::Property options;
    options.SetChild("movflogs", std::string("+faststart"));
    const auto failure = Failure([&] { WriteFile(folder.File("out"), "mp4", BothTracks(), options); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused);
    EXPECT_NE(failure.GetDescription().find("movflogs"), std::string::npos) << failure.GetDescription();
}

TEST(Muxer, RefusesAValueByNameAndValue) {
    const ScratchFolder folder;
    Core::Property options;
    options.SetChild("movflags", std::string("quickstart"));
    const auto failure = Failure([&] { WriteFile(folder.File("out"), "mp4", BothTracks(), options); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused);
    EXPECT_NE(failure.GetDescription().find("movflags"), std::string::npos) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find("quickstart"), std::string::npos) << failure.GetDescription();
}

TEST(Muxer, RefusesACodecThatTheContainerCannotHold) {
    const ScratchFolder folder;
    const auto failure = Failure([&] { WriteFile(folder.File("out"), "webm", BothTracks()); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused);
    EXPECT_NE(failure.GetDescription().find("webm"), std::string::npos);
    EXPECT_NE(failure.GetDescription().find("h264"), std::string::npos);
}

TEST(MuxerFactory, RefusesAnUnknownContainerByName) {
    const ScratchFolder folder;
    const auto failure = Failure([&] { WriteFile(folder.File("out"), "mp5", BothTracks()); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused);
    EXPECT_NE(failure.GetDescription().find("mp5"), std::string::npos);
}

TEST(DataOutput, NamesAFolderThatIsNotThere) {
    const ScratchFolder folder;
    const auto failure = Failure([&] { WriteFile(folder.File("none/out.mp4"), "mp4", BothTracks()); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::OutputNotWritable);
    EXPECT_NE(failure.GetDescription().find("none/out.mp4"), std::string::npos);
}

TEST(DataOutput, RefusesAPipeThatNobodyReads) {
    const ScratchFolder folder;
    const std::string path = folder.File("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const auto failure = Failure([&] { Core::DataOutputFF::Create(ioPath(path))->Open(); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::OutputNotWritable);
}

TEST(DataOutput, FailsOnADeviceWithoutRoom) {
    const auto output = Core::DataOutputFF::Create(ioPath("/dev/full"));
    const auto failure = Failure([&] {
        output->Open();
        const std::string bytes(4096, 'x');
        output->Write(bytes.data(), bytes.size());
        output->Close();
    });
    EXPECT_EQ(failure.GetCode(), TranscodingError::DiskFull);
}

TEST(DataOutput, ThrowsItsFirstFailureAgainOnClose) {
    const auto output = Core::DataOutputFF::Create(ioPath("/dev/full"));
    output->Open();
    const std::string bytes(3 << 20, 'x');
    EXPECT_EQ(Failure([&] { output->Write(bytes.data(), bytes.size()); }).GetCode(), TranscodingError::DiskFull);
    EXPECT_EQ(Failure([&] { output->Close(); }).GetCode(), TranscodingError::DiskFull);
}

TEST(DataOutput, OverwritesInTheMiddleAndKeepsTheEnd) {
    const ScratchFolder folder;
    const std::string path = folder.File("bytes");
    const auto output = Core::DataOutputFF::Create(ioPath(path));
    output->Open();
    output->Write("0123456789", 10);
    output->Seek(3);
    output->Write("abc", 3);
    EXPECT_EQ(output->GetPosition(), 6);
    EXPECT_EQ(output->GetSize(), 10);
    output->Close();
    std::FILE* file = std::fopen(path.c_str(), "rb");
    ASSERT_NE(file, nullptr);
    char bytes[16] = {};
    EXPECT_EQ(std::fread(bytes, 1, sizeof bytes, file), 10U);
    std::fclose(file);
    EXPECT_STREQ(bytes, "012abc6789");
}
