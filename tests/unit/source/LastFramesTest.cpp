// SPDX-License-Identifier: GPL-3.0-or-later
// What a decoder still holds when its packets have come to an end.
#include "Kestra/FF/Decode/Decoder.h"
#include "support/FlashBeep.h"
#include <climits>
#include <gtest/gtest.h>
#include <memory>
#include <new>

extern "C" {
#include <libavformat/avformat.h>
}

using Kestra::FF::Decoder;

namespace {

struct InputCloser {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};

/// Some frames of a codec whose decoder holds one back for each of its threads.
class LastFrames : public ::testing::Test {
protected:
    static constexpr int FRAMES = 12;

    LastFrames() {
        TestMedia::FlashBeep media;
        media.frames = FRAMES;
        media.videoCodec = "mpeg4";
        TestMedia::makeFlashBeep(folder / "clip.mov", media);
        AVFormatContext* opened = nullptr;
        EXPECT_EQ(avformat_open_input(&opened, (folder / "clip.mov").c_str(), nullptr, nullptr), 0);
        input.reset(opened);
        EXPECT_GE(avformat_find_stream_info(opened, nullptr), 0);
        decoder = std::make_unique<Decoder>(*input->streams[0], 3, "clip", Kestra::Proc::MediaLimits());
        decoder->SetPacketSupply([this](AVPacket& packet) {
            while (av_read_frame(input.get(), &packet) == 0) {
                if (packet.stream_index == 0)
                    return true;
                av_packet_unref(&packet);
            }
            if (shortAtTheEnd)
                av_max_alloc(8);
            return false;
        });
    }
    ~LastFrames() override { av_max_alloc(INT_MAX); }

    int decode() {
        int frames = 0;
        while (decoder->Next())
            ++frames;
        return frames;
    }

    const TestMedia::Folder folder;
    std::unique_ptr<AVFormatContext, InputCloser> input;
    std::unique_ptr<Decoder> decoder;
    bool shortAtTheEnd = false;
};

TEST_F(LastFrames, ComeOutAfterTheLastPacket) {
    EXPECT_EQ(decode(), FRAMES);
}

TEST_F(LastFrames, AreNotLeftOutWhereTheyFindNoMemory) {
    shortAtTheEnd = true;
    EXPECT_THROW(decode(), std::bad_alloc);
}

} // namespace
