// SPDX-License-Identifier: GPL-3.0-or-later
// The small bodies that the interfaces have themselves.
#include "fakes/kestra/FakeEncoder.h"
#include "fakes/kestra/FakeStreamAudio.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <gtest/gtest.h>

namespace Kestra::Proc {
namespace {

using Fakes::FakeEncoder;
using Fakes::PacketPlan;

boost::intrusive_ptr<FakeEncoder> MakeEncoder(int packets) {
    PacketPlan plan;
    plan.count = packets;
    return boost::intrusive_ptr<FakeEncoder>(new FakeEncoder(plan));
}

int CountPackets(IStreamRaw& stream) {
    int count = 0;
    while (stream.ReadRaw() != nullptr) {
        ++count;
    }
    return count;
}

TEST(StreamRaw, ReadsTheOthersPacketsAfterAnAssignment) {
    const auto left = MakeEncoder(3);
    const auto right = MakeEncoder(5);
    static_cast<IStreamRaw&>(*left) = *right;
    EXPECT_EQ(CountPackets(*left), 5);
}

TEST(StreamRaw, SharesTheSourceWithTheOtherAfterAnAssignment) {
    const auto left = MakeEncoder(3);
    auto right = MakeEncoder(5);
    static_cast<IStreamRaw&>(*left) = *right;
    EXPECT_EQ(left->GetPacketSource(), right->GetPacketSource());
    right.reset();
    EXPECT_EQ(CountPackets(*left), 5) << "the source outlives the stream that it came from";
}

TEST(StreamRaw, AssignsNeitherCountNorSettings) {
    const auto left = MakeEncoder(3);
    const auto right = MakeEncoder(5);
    right->Initialize(Core::Property("settings"));
    const auto second = right;
    static_cast<IStreamRaw&>(*left) = *right;
    EXPECT_EQ(left->GetRefCount(), 1);
    EXPECT_TRUE(left->GetGivenSettings().empty());
}

TEST(StreamRaw, SurvivesAnAssignmentOntoItself) {
    const auto stream = MakeEncoder(3);
    IStreamRaw& same = *stream;
    same = static_cast<const IStreamRaw&>(*stream);
    EXPECT_EQ(CountPackets(*stream), 3);
}

TEST(StreamVideo, AnswersTheGeneralFormatFromItsOwn) {
    const boost::intrusive_ptr<IStreamVideo> stream(new Fakes::FakeStreamVideo(1, 50));
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    stream->GetFormatCodec(format);
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(format.get());
    ASSERT_NE(video, nullptr);
    EXPECT_EQ(video->GetFrameRate(), 50);
}

TEST(StreamAudio, AnswersTheGeneralFormatFromItsOwn) {
    const boost::intrusive_ptr<IStreamAudio> stream(new Fakes::FakeStreamAudio(100, 44100));
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    stream->GetFormatCodec(format);
    const auto* audio = dynamic_cast<const Conf::IFormatCodecAudio*>(format.get());
    ASSERT_NE(audio, nullptr);
    EXPECT_EQ(audio->GetSampleRate(), 44100);
}

} // namespace
} // namespace Kestra::Proc
