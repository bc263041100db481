// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/source/NumberedMedia.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace TestMedia {

using namespace Kestra;

namespace {

constexpr int BLOCK = 16;
constexpr int BLOCKS_A_ROW = 4;

float sampleAt(const AVFrame& frame, int index) {
    const bool planar = av_sample_fmt_is_planar(static_cast<AVSampleFormat>(frame.format)) != 0;
    const int place = planar ? index : index * frame.ch_layout.nb_channels;
    const std::uint8_t* data = frame.extended_data[0];
    switch (frame.format) {
    case AV_SAMPLE_FMT_FLT:
    case AV_SAMPLE_FMT_FLTP:
        return reinterpret_cast<const float*>(data)[place];
    case AV_SAMPLE_FMT_S16:
    case AV_SAMPLE_FMT_S16P:
        return static_cast<float>(reinterpret_cast<const std::int16_t*>(data)[place]) / 32768.0F;
    case AV_SAMPLE_FMT_S32:
    case AV_SAMPLE_FMT_S32P:
        return static_cast<float>(reinterpret_cast<const std::int32_t*>(data)[place]) / 2147483648.0F;
    default:
        ADD_FAILURE() << "sample format " << frame.format;
        return 0;
    }
}

} // namespace

std::string numberedPictures(const std::string& rate, int frames) {
    // Small pictures, enlarged: computing them pixel by pixel is slow.
    return "color=black:s=4x4:r=" + rate + ",trim=end_frame=" + std::to_string(frames) +
           ",format=yuv420p,geq=lum='if(mod(floor(N/pow(2,X+4*Y)),2),235,16)':cb=128:cr=128,"
           "scale=64:64:flags=neighbor,setsar=1";
}

int numberIn(const Proc::IDataVideo& picture) {
    const AVFrame& frame = FF::FrameOf(picture);
    int number = 0;
    for (int bit = 0; bit < BLOCKS_A_ROW * BLOCKS_A_ROW; ++bit) {
        const int x = bit % BLOCKS_A_ROW * BLOCK + BLOCK / 2;
        const int y = bit / BLOCKS_A_ROW * BLOCK + BLOCK / 2;
        const std::uint8_t* row = frame.data[0] + y * frame.linesize[0];
        // Of deeper formats the ten bits of the one in use.
        const bool deep = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[0].depth == 10;
        const int luma = deep ? reinterpret_cast<const std::uint16_t*>(row)[x] >> 2 : row[x];
        if (luma > 80 && luma < 170)
            return -1;
        number |= luma >= 128 ? 1 << bit : 0;
    }
    return number;
}

std::string numberedSamples(int rate, int samples) {
    // The half keeps rounding to 16 bits away from the edge between two values.
    return "aevalsrc='(mod(n*7,30000)+0.25)/32768':s=" + std::to_string(rate) +
           ",atrim=end_sample=" + std::to_string(samples);
}

std::string noise(int rate, double seconds) {
    return "anoisesrc=r=" + std::to_string(rate) + ":d=" + std::to_string(seconds) + ":c=pink:seed=5:a=0.5";
}

std::vector<ReadPicture> readPictures(Proc::IStreamVideo& stream, int atMost) {
    std::vector<ReadPicture> result;
    while (static_cast<int>(result.size()) < atMost) {
        const auto picture = stream.ReadVideo();
        if (!picture)
            break;
        result.push_back({numberIn(*picture), picture->GetTime(), picture->GetDuration()});
    }
    return result;
}

std::vector<float> readSamples(Proc::IStreamAudio& stream, long long atMost) {
    std::vector<float> result;
    std::int64_t end = -1;
    while (static_cast<long long>(result.size()) < atMost) {
        const auto block = stream.ReadAudio();
        if (!block)
            break;
        EXPECT_TRUE(end < 0 || block->GetTime() == end) << "blocks do not touch at " << end;
        end = block->GetTime() + block->GetDuration();
        const AVFrame& frame = FF::FrameOf(*block);
        for (int index = 0; index < frame.nb_samples; ++index)
            result.push_back(sampleAt(frame, index));
    }
    return result;
}

} // namespace TestMedia
