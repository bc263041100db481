// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of WebP that are encoded beside each other.
#include "Kestra/FF/Encode/ChangeLoop.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Encode/EncoderLoop.h"
#include "Kestra/FF/WebP/WebPPart.h"
#include "Kestra/Proc/ProcException.h"
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace Kestra;
using FF::IEncoderLoop;

namespace {

constexpr int WIDTH = 256, HEIGHT = 192;

std::unique_ptr<IEncoderLoop> MakeModel(AVPixelFormat format = AV_PIX_FMT_YUV420P) {
    const auto configure = [format](const FF::OptionList&) {
        FF::CodecContextHandle context = FF::MakeCodecContext(avcodec_find_encoder_by_name("libwebp"));
        context->width = WIDTH;
        context->height = HEIGHT;
        context->pix_fmt = format;
        context->time_base = {1, 25};
        return context;
    };
    return std::make_unique<FF::EncoderLoop>(configure, FF::OptionList(), "libwebp");
}

/// Noise that fills less of each picture than of the one before, from above.
FF::FrameHandle Picture(int number) {
    FF::FrameHandle frame = FF::MakeFrame();
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = WIDTH;
    frame->height = HEIGHT;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
    for (int plane = 0; plane < 3; ++plane) {
        std::uint32_t state = 1;
        const int rows = plane == 0 ? HEIGHT : HEIGHT / 2;
        for (int y = 0; y < rows; ++y) {
            std::uint8_t* const row = frame->data[plane] + std::ptrdiff_t{y} * frame->linesize[plane];
            for (int x = 0; x < (plane == 0 ? WIDTH : WIDTH / 2); ++x)
                row[x] = y * 10 < rows * (10 - number) ? (state = state * 1664525 + 1013904223) >> 24 : 128;
        }
    }
    frame->pts = number;
    return frame;
}

/// Noise of which a half is not to be seen.
FF::FrameHandle Transparent(AVPixelFormat format) {
    FF::FrameHandle frame = FF::MakeFrame();
    frame->format = format;
    frame->width = WIDTH;
    frame->height = HEIGHT;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
    std::uint32_t state = 1;
    for (const AVBufferRef* const plane : frame->buf)
        for (std::size_t at = 0; plane && at < plane->size; ++at)
            plane->data[at] = (state = state * 1664525 + 1013904223) >> 24;
    for (int y = 0; y < HEIGHT; ++y)
        for (int x = 0; x < WIDTH; ++x)
            if (format == AV_PIX_FMT_RGB32)
                reinterpret_cast<std::uint32_t*>(frame->data[0] + std::ptrdiff_t{y} * frame->linesize[0])[x] &=
                    x < WIDTH / 2 ? 0xFFFFFFFF : 0xFFFFFF;
            else
                frame->data[3][std::ptrdiff_t{y} * frame->linesize[3] + x] = x < WIDTH / 2 ? 255 : 0;
    return frame;
}

std::vector<std::string> BytesOf(const AVFrame& frame) {
    std::vector<std::string> planes;
    for (const AVBufferRef* const plane : frame.buf)
        if (plane)
            planes.emplace_back(reinterpret_cast<const char*>(plane->data), plane->size);
    return planes;
}

struct Made {
    std::int64_t pts;
    bool key;
    std::string bytes;

    friend bool operator==(const Made& a, const Made& b) {
        return a.pts == b.pts && a.key == b.key && a.bytes == b.bytes;
    }
};

std::vector<Made> PacketsOf(int threads, int pictures) {
    FF::ChangeLoop loop(MakeModel(), threads);
    std::vector<Made> packets;
    FF::PacketHandle packet;
    int sent = 0;
    for (;;) {
        const IEncoderLoop::Step step = loop.Receive(packet);
        if (step == IEncoderLoop::Step::End)
            return packets;
        if (step == IEncoderLoop::Step::NeedsFrame) {
            loop.Send(sent < pictures ? Picture(sent).get() : nullptr);
            ++sent;
            continue;
        }
        packets.push_back({packet->pts, (packet->flags & AV_PKT_FLAG_KEY) != 0,
                           std::string(reinterpret_cast<const char*>(packet->data), packet->size)});
    }
}

} // namespace

TEST(ChangeLoop, GivesTheSamePacketsInTheOrderOfThePicturesHoweverManyAreEncodedAtATime) {
    const std::vector<Made> alone = PacketsOf(1, 10);
    ASSERT_EQ(alone.size(), 10U);
    for (int number = 0; number < 10; ++number) {
        EXPECT_EQ(alone[number].pts, number);
        EXPECT_EQ(alone[number].key, number == 0) << "of the others a part alone has changed";
    }
    EXPECT_GT(alone.front().bytes.size(), 3 * alone.back().bytes.size());
    for (const int threads : {2, 4})
        EXPECT_EQ(PacketsOf(threads, 10), alone) << threads;
    EXPECT_TRUE(PacketsOf(3, 0).empty());
}

TEST(ChangeLoop, TakesNoMorePicturesThanItsThreadsAndOneThatWaits) {
    FF::ChangeLoop loop(MakeModel(), 2);
    FF::PacketHandle packet;
    int sent = 0;
    while (loop.Receive(packet) == IEncoderLoop::Step::NeedsFrame)
        loop.Send(Picture(sent++).get());
    EXPECT_LE(sent, 3);
    EXPECT_EQ(packet->pts, 0);
}

TEST(ChangeLoop, FailsWhereAPictureCannotBeEncoded) {
    FF::ChangeLoop loop(MakeModel(), 2);
    const FF::FrameHandle broken = Picture(0);
    broken->width = 20'000; // more than such files hold
    loop.Send(broken.get());
    loop.Send(nullptr);
    FF::PacketHandle packet;
    EXPECT_THROW(loop.Receive(packet), Proc::ProcException);
}

TEST(ChangeLoop, LeavesAsItIsWhatIsTransparent) {
    for (const AVPixelFormat format : {AV_PIX_FMT_YUVA420P, AV_PIX_FMT_RGB32}) {
        FF::ChangeLoop loop(MakeModel(format), 2);
        const FF::FrameHandle picture = Transparent(format);
        const std::vector<std::string> before = BytesOf(*picture);
        loop.Send(picture.get());
        loop.Send(nullptr);
        FF::PacketHandle packet;
        ASSERT_EQ(loop.Receive(packet), IEncoderLoop::Step::Packet);
        EXPECT_TRUE(BytesOf(*picture) == before) << format;
    }
}
