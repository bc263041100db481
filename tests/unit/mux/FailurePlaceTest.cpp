// SPDX-License-Identifier: GPL-3.0-or-later
// Which function an exception of the engine names as its origin: the one that failed, not one that helps it to throw.
#include "Kestra/Base/Exception.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/Segmenter.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <boost/exception/get_error_info.hpp>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

using namespace Fakes;
using namespace Kestra;

namespace {

template <class Info>
std::string Record(const boost::exception& error) {
    const auto* record = boost::get_error_info<Info>(error);
    return record ? std::string(*record) : std::string("nowhere");
}

/// "File.cpp: function", the function without its signature.
std::string Origin(const std::function<void()>& action) {
    try {
        action();
    } catch (const boost::exception& error) {
        const std::string file = Record<boost::throw_file>(error);
        const std::string function = Record<boost::throw_function>(error);
        const std::string named = function.substr(0, function.find('('));
        return file.substr(file.rfind('/') + 1) + ": " + named.substr(named.find_last_of(": ") + 1);
    }
    return "nothing was thrown";
}

void Open(const std::string& path) {
    Core::CoreManager::Instance().GetSourceFactory().OpenMedia(ioPath(path));
}

boost::intrusive_ptr<Proc::IMuxer> Mp4Muxer(const boost::intrusive_ptr<Core::IDataOutput>& output) {
    Core::Property tree;
    tree.SetChild(Conf::IFormatFile::TAG_CONTAINER_ID, std::string("mp4"));
    auto format = Conf::IFormatFile::Create();
    format->SetProperty(tree);
    return Core::CoreManager::Instance().GetMuxerFactory().CreateMuxer(format, output);
}

void EncodeWith(const std::string& option, const std::string& value) {
    Core::Property description = Description("h264");
    Options(description).SetChild(option, value);
    VideoEncoder(MakeVideo({}), description)->Prepare();
}

} // namespace

TEST(FailurePlace, OfASourceIsItsOpening) {
    const ScratchFolder folder;
    EXPECT_EQ(Origin([&] { Open(folder.File("none.mp4")); }), "SourceFile.cpp: SourceFile");
    EXPECT_EQ(Origin([&] { Open(folder.File("")); }), "SourceFile.cpp: SourceFile") << "a folder";
    std::ofstream(folder.File("words.mp4")) << "These are words, not pictures.";
    EXPECT_EQ(Origin([&] { Open(folder.File("words.mp4")); }), "SourceFile.cpp: ReadHeader");
}

TEST(FailurePlace, OfAnOutputIsTheOperationThatFailed) {
    const ScratchFolder folder;
    const auto output = Core::DataOutputFF::Create(ioPath(folder.File("none/out")));
    EXPECT_EQ(Origin([&] { output->Open(); }), "DataOutputFF.cpp: Open");
    EXPECT_EQ(Origin([&] { output->Write("a", 1); }), "DataOutputFF.cpp: Write");
    EXPECT_EQ(Origin([&] { output->Seek(1); }), "DataOutputFF.cpp: Seek");
}

TEST(FailurePlace, OfAMuxerIsTheOperationThatWasAskedFor) {
    const ScratchFolder folder;
    const auto muxer = Mp4Muxer(Core::DataOutputFF::Create(ioPath(folder.File("out.mp4"))));
    EXPECT_EQ(Origin([&] { muxer->Write(0, nullptr); }), "MuxerFF.cpp: Write");
    EXPECT_EQ(Origin([&] { muxer->AddStream(nullptr); }), "MuxerFF.cpp: AddStream");
    EXPECT_EQ(Origin([&] { muxer->Open(); }), "MuxerFF.cpp: Open");
}

TEST(FailurePlace, OfAnEncoderIsWhereItIsMadeOrOpened) {
    EXPECT_EQ(Origin([] { EncodeWith("noSuchOption", "1"); }), "OptionList.cpp: ApplyTo");
    EXPECT_EQ(Origin([] { EncodeWith("preset", "slowish"); }), "X264Driver.cpp: RequireKnownNames");
    EXPECT_EQ(Origin([] { EncodeWith("profile", "slowish"); }), "EncoderLoop.cpp: EncoderLoop");
}

TEST(FailurePlace, OfAStreamIsTheOperationThatItDoesNotHave) {
    const Raw sound = AudioEncoder(MakeAudio({}), Description("aac"));
    const Raw segment = Proc::CreateAudioSegmenter(sound, 0, TICKS_PER_MILLISECOND * 100);
    EXPECT_EQ(Origin([&] { segment->Seek(0, Proc::SeekMode::Exact); }), "PacketStream.h: Seek");
    EXPECT_EQ(Origin([] { Proc::CreateAudioSegmenter(nullptr, 0, 1); }), "AudioSegmenter.cpp: CreateAudioSegmenter");
}

TEST(FailurePlace, OfAFilterIsTheFactorysFunction) {
    auto& filters = Core::CoreManager::Instance().GetFilterFactory();
    EXPECT_EQ(Origin([&] { filters.CreateConcatenation("another"); }), "FilterFactory.cpp: CreateConcatenation");
}

TEST(FailurePlace, OfACheckOfAFileIsTheCheck) {
    const ScratchFolder folder;
    std::ofstream(folder.File("words.mp4")) << "These are words, not pictures.";
    const std::atomic<bool> never{false};
    EXPECT_EQ(Origin([&] { Proc::CheckFile(ioPath(folder.File("words.mp4")), never); }), "FileCheck.cpp: CheckFile");
}

TEST(FailurePlace, OfAPropertyIsTheQuestionThatItCannotAnswer) {
    const Core::Property text("codec", std::string("h264"));
    EXPECT_EQ(Origin([&] { text.GetInt64(); }), "Property.cpp: GetInt64");
    EXPECT_EQ(Origin([&] { text.GetBool(); }), "Property.cpp: GetBool");
}
