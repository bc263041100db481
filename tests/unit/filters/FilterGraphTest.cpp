// SPDX-License-Identifier: GPL-3.0-or-later
// Chains of libavfilter: frames by reference, times, what is held back, changes of what comes in.
#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace Kestra::FF {
namespace {

constexpr std::int64_t PERIOD = TIME_BASE / 25;

FrameHandle grey(int width, int value, std::int64_t time) {
    FramePool pool;
    FrameHandle picture = pool.Get(AV_PIX_FMT_GRAY8, width, 32);
    std::fill_n(picture->data[0], 32 * picture->linesize[0], static_cast<std::uint8_t>(value));
    picture->pts = time;
    picture->interlaced_frame = 1;
    return picture;
}

FrameHandle tone(int rate, int samples, std::int64_t time) {
    FrameHandle sound = MakeFrame();
    sound->format = AV_SAMPLE_FMT_FLT;
    sound->sample_rate = rate;
    sound->nb_samples = samples;
    av_channel_layout_default(&sound->ch_layout, 2);
    EXPECT_GE(av_frame_get_buffer(sound.get(), 0), 0);
    std::fill_n(reinterpret_cast<float*>(sound->data[0]), 2 * samples, 0.5F);
    sound->pts = time;
    return sound;
}

struct Seen {
    int width;
    int value;
    std::int64_t time;
};

void receive(FilterGraph& graph, std::vector<Seen>& seen) {
    while (const FrameHandle frame = graph.Receive())
        seen.push_back({frame->width, frame->data[0][10], frame->pts});
}

TEST(FilterGraph, WhatTheChainLeavesAloneKeepsItsMemory) {
    FilterGraph graph("null", "Testing failed");
    const FrameHandle picture = grey(64, 100, 7);
    const FrameHandle result = graph.Filter(*picture);
    EXPECT_EQ(result->data[0], picture->data[0]);
    EXPECT_EQ(result->pts, 7);
    EXPECT_EQ(graph.Receive(), nullptr);
}

TEST(FilterGraph, WhatAFilterHoldsBackComesAtTheEnd) {
    FilterGraph graph("bwdif=mode=send_frame", "Testing failed");
    std::vector<Seen> seen;
    for (int at = 0; at < 3; ++at) {
        graph.Send(*grey(64, 100 + at, at * PERIOD));
        receive(graph, seen);
    }
    EXPECT_EQ(seen.size(), 2U);
    graph.Finish();
    receive(graph, seen);
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_EQ(seen[2].value, 102);
    EXPECT_EQ(seen[2].time, 2 * PERIOD);
}

TEST(FilterGraph, TimesStayEngineTimesWhereAFilterChangesTheTimeBase) {
    FilterGraph graph("bwdif=mode=send_field", "Testing failed");
    std::vector<Seen> seen;
    for (int at = 0; at < 3; ++at) {
        graph.Send(*grey(64, 100, at * PERIOD));
        receive(graph, seen);
    }
    graph.Finish();
    receive(graph, seen);
    ASSERT_GE(seen.size(), 4U);
    for (std::size_t at = 0; at < 4; ++at)
        EXPECT_EQ(seen[at].time, static_cast<std::int64_t>(at) * PERIOD / 2) << at;
}

TEST(FilterGraph, FramesOfAnotherSizeComeAfterWhatTheFirstOnesLeft) {
    FilterGraph graph("bwdif=mode=send_frame", "Testing failed");
    std::vector<Seen> seen;
    for (int at = 0; at < 4; ++at) {
        graph.Send(*grey(at < 2 ? 64 : 48, 100 + at, at * PERIOD));
        receive(graph, seen);
    }
    graph.Finish();
    receive(graph, seen);
    ASSERT_EQ(seen.size(), 4U);
    for (int at = 0; at < 4; ++at) {
        EXPECT_EQ(seen[static_cast<std::size_t>(at)].width, at < 2 ? 64 : 48) << at;
        EXPECT_EQ(seen[static_cast<std::size_t>(at)].value, 100 + at) << at;
    }
}

TEST(FilterGraph, ResetForgetsWhatFiltersHold) {
    FilterGraph graph("bwdif=mode=send_frame", "Testing failed");
    graph.Send(*grey(64, 100, 0));
    graph.Send(*grey(48, 100, PERIOD));
    graph.Reset();
    EXPECT_EQ(graph.Receive(), nullptr);
    graph.Finish();
    EXPECT_EQ(graph.Receive(), nullptr);
}

TEST(FilterGraph, SoundGoesThroughAsPicturesDo) {
    FilterGraph graph("volume=0.5", "Testing failed");
    for (const int rate : {48000, 44100}) {
        const FrameHandle result = graph.Filter(*tone(rate, 960, 5 * PERIOD));
        EXPECT_EQ(result->sample_rate, rate);
        EXPECT_EQ(result->nb_samples, 960);
        EXPECT_EQ(result->pts, 5 * PERIOD);
        EXPECT_FLOAT_EQ(reinterpret_cast<const float*>(result->data[0])[100], 0.25F);
    }
}

TEST(FilterGraph, AFailureIsToldInItsOwnersWords) {
    const auto failure = [](const char* chain) -> std::string {
        try {
            FilterGraph(chain, "Testing pictures failed").Filter(*grey(64, 100, 0));
        } catch (const Proc::ProcException& exception) {
            return exception.what();
        }
        return "nothing was thrown";
    };
    EXPECT_NE(failure("nosuchfilter").find("Testing pictures failed"), std::string::npos);
    EXPECT_NE(failure("crop=w=4000").find("Testing pictures failed"), std::string::npos);
    // Holds its first frame back: not a chain that gives one for each.
    EXPECT_NE(failure("bwdif").find("Testing pictures failed"), std::string::npos);
}

TEST(FilterGraph, AChainThatFailedBeginsAnew) {
    FilterGraph graph("crop=w=50:h=10:x=0:y=0", "Testing failed");
    EXPECT_THROW(graph.Filter(*grey(32, 100, 0)), Proc::ProcException);
    EXPECT_EQ(graph.Filter(*grey(64, 100, 0))->width, 50);
}

} // namespace
} // namespace Kestra::FF
