// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are files of their own: how they are written, and what their check finds.
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

using namespace Fakes;
using namespace Kestra;
using Conf::NumberedName;
using Proc::TranscodingError;

namespace {

namespace fs = std::filesystem;

template <class Action>
Proc::ProcessingError Failure(Action action) {
    try {
        action();
    } catch (...) {
        return Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
    }
    return Proc::ProcessingError(TranscodingError::None, "nothing was thrown");
}

std::vector<char> BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::string& path, const std::vector<char>& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

struct Kind {
    const char* container;
    const char* codec;
    const char* extension;
};

class Sequence : public ::testing::TestWithParam<Kind> {
protected:
    void Write(const std::string& pattern, int frames = 3, int width = 64) const {
        VideoShape shape;
        shape.frames = frames;
        shape.width = width;
        WriteFile(folder.File(pattern), GetParam().container,
                  {VideoEncoder(MakeVideo(shape), Description(GetParam().codec))});
    }
    void Write() const { Write(name.ToPattern()); }
    std::string File(int number) const { return folder.File(name.NameOf(number)); }
    Proc::CheckedFile Check() const {
        const std::string path = folder.File("");
        return Proc::CheckPictures(ioPath(path.substr(0, path.size() - 1)), name, std::atomic<bool>(false));
    }
    Proc::ProcessingError Fault() const {
        return Failure([this] { Check(); });
    }
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.File("")))
            names.insert(entry.path().filename().string());
        return names;
    }

    const ScratchFolder folder;
    const NumberedName name{"50%_", std::string(".") + GetParam().extension, 4};
};

TEST_P(Sequence, IsAFileOfEachPictureAndNothingElse) {
    Write();
    const std::string end = name.suffix;
    EXPECT_EQ(Names(), (std::set<std::string>{"50%_0000" + end, "50%_0001" + end, "50%_0002" + end}));
    const Proc::CheckedFile file = Check();
    ASSERT_EQ(file.streams.size(), 1U);
    EXPECT_EQ(file.streams[0].packets, 3);
    EXPECT_EQ(file.streams[0].codec, GetParam().codec);
    EXPECT_EQ(file.streams[0].frame.width, 64U);
    EXPECT_EQ(file.streams[0].frame.height, 48U);
    std::int64_t size = 0;
    for (int number = 0; number < 3; ++number)
        size += static_cast<std::int64_t>(fs::file_size(File(number)));
    EXPECT_EQ(file.size, size);
}

TEST_P(Sequence, NeedsAPlaceForTheNumber) {
    for (const char* pattern : {"out", "%02d_%02d", "50%"}) {
        const auto failure = Failure([&] { Write(pattern); });
        EXPECT_EQ(failure.GetCode(), TranscodingError::MuxerRefused) << pattern;
        EXPECT_NE(failure.GetDescription().find("%05d"), std::string::npos) << failure.GetDescription();
    }
    EXPECT_TRUE(Names().empty());
}

TEST_P(Sequence, HoldsOneTrackOfItsCodecAndHasNoOptions) {
    const std::string path = folder.File(name.ToPattern());
    const auto refused = [&](const std::vector<Raw>& tracks, const Core::Property& options = Core::Property()) {
        return Failure([&] { WriteFile(path, GetParam().container, tracks, options); }).GetCode() ==
               TranscodingError::MuxerRefused;
    };
    const auto picture = [&] { return VideoEncoder(MakeVideo({}), Description(GetParam().codec)); };
    EXPECT_TRUE(refused({AudioEncoder(MakeAudio({}), Description("aac"))}));
    EXPECT_TRUE(refused({VideoEncoder(MakeVideo({}), Description("mpeg4"))}));
    EXPECT_TRUE(refused({picture(), picture()}));
    EXPECT_TRUE(refused({}));
    Core::Property options;
    options.SetChild("start_number", std::string("1"));
    EXPECT_TRUE(refused({picture()}, options));
    EXPECT_TRUE(Names().empty());
}

TEST_P(Sequence, AFolderThatCannotBeWrittenIsNamed) {
    const auto failure = Failure([&] { Write("nowhere/" + name.ToPattern()); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::OutputNotWritable) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find("nowhere/50%_0000"), std::string::npos) << failure.GetDescription();
}

TEST_P(Sequence, ItsCheckFindsEveryFileThatEndsEarlyOrLate) {
    Write();
    const std::vector<char> whole = BytesOf(File(1));
    for (std::size_t size = 0; size < whole.size(); size += std::max<std::size_t>(1, whole.size() / 40)) {
        WriteBytes(File(1), {whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
        EXPECT_EQ(Fault().GetCode(), TranscodingError::OutputFailed) << size << " of " << whole.size();
    }
    std::vector<char> longer = whole;
    longer.push_back(0);
    WriteBytes(File(1), longer);
    EXPECT_NE(Fault().GetDescription().find("something stands behind its end"), std::string::npos);
    WriteBytes(File(1), whole);
    EXPECT_EQ(Fault().GetCode(), TranscodingError::None);
}

TEST_P(Sequence, ItsCheckFindsNoughtsInPlaceOfTheEnd) {
    Write();
    const std::vector<char> whole = BytesOf(File(2));
    for (const std::size_t lost : {std::size_t(1), std::size_t(2), whole.size() / 2}) {
        std::vector<char> damaged = whole;
        std::fill(damaged.end() - static_cast<std::ptrdiff_t>(lost), damaged.end(), '\0');
        WriteBytes(File(2), damaged);
        EXPECT_EQ(Fault().GetCode(), TranscodingError::OutputFailed) << lost;
    }
}

TEST_P(Sequence, ItsCheckCountsUpToTheFirstGapAndFindsOtherSizes) {
    Write();
    fs::remove(File(1));
    EXPECT_EQ(Check().streams[0].packets, 1);
    fs::remove(File(0));
    EXPECT_NE(Fault().GetDescription().find("There is no finished picture"), std::string::npos);
    Write();
    const std::vector<char> usual = BytesOf(File(1));
    Write(name.ToPattern(), 2, 32);
    WriteBytes(File(1), usual);
    EXPECT_NE(Fault().GetDescription().find("of another kind or size"), std::string::npos) << Fault().GetDescription();
}

TEST_P(Sequence, ItsCheckEndsWhenItIsInterrupted) {
    Write();
    EXPECT_THROW(Proc::CheckPictures(ioPath(folder.File("")), name, std::atomic<bool>(true)), Proc::Interrupted);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Sequence,
                         ::testing::Values(Kind{"png-sequence", "png", "png"}, Kind{"jpeg-sequence", "mjpeg", "jpg"}),
                         [](const auto& kind) { return std::string(kind.param.codec); });

class PngSequence : public Sequence {};

TEST_P(PngSequence, ItsCheckFindsEveryChangedByte) {
    Write();
    const std::vector<char> whole = BytesOf(File(1));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::vector<char> damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 4);
        WriteBytes(File(1), damaged);
        EXPECT_EQ(Fault().GetCode(), TranscodingError::OutputFailed) << at;
    }
}

TEST_P(PngSequence, TellsThatItsColoursAreThoseOfComputers) {
    Write();
    EXPECT_EQ(Check().streams[0].colour, (Conf::ColourInfo{1, 13, 0, 2}));
    EXPECT_EQ(Check().streams[0].pixelFormat, "rgb24");
}

INSTANTIATE_TEST_SUITE_P(Kinds, PngSequence, ::testing::Values(Kind{"png-sequence", "png", "png"}),
                         [](const auto& kind) { return std::string(kind.param.codec); });

} // namespace
