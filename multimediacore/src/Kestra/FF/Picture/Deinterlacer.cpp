// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/Deinterlacer.h"

#include "Kestra/FF/Av/OlderCalls.h"
#include <string>

namespace Kestra::FF {

namespace {

// Whether a frame is interlaced has been decided before.
std::string Chain(Deinterlacer::Output output) {
    const bool fields = output == Deinterlacer::Output::Fields;
    return std::string("bwdif=parity=auto:deint=all:mode=") + (fields ? "send_field" : "send_frame");
}

} // namespace

Deinterlacer::Deinterlacer(Output output, int threads)
    : graph(Chain(output), "Deinterlacing failed", threads) {}

void Deinterlacer::Reset() {
    graph.Reset();
    last.reset();
}

bool Deinterlacer::IsLast(const AVFrame& picture) const {
    return last && last->data[0] == picture.data[0];
}

void Deinterlacer::Send(const AVFrame& picture) {
    graph.Send(picture);
    last = MakeFrameReference(picture);
}

std::vector<FrameHandle> Deinterlacer::Receive() {
    std::vector<FrameHandle> frames;
    while (FrameHandle frame = graph.Receive())
        frames.push_back(std::move(frame));
    return frames;
}

// The filter holds the frame and the one before, whichever way reading came here.
void Deinterlacer::Lead(const AVFrame* previous, const AVFrame& picture) {
    if (IsLast(picture))
        return;
    if (!previous || !IsLast(*previous))
        Reset();
    if (previous && !IsLast(*previous))
        Send(*previous);
    Send(picture);
    Receive();
}

std::vector<FrameHandle> Deinterlacer::Deinterlace(const AVFrame* previous, const AVFrame& picture,
                                                   const AVFrame* next) {
    Lead(previous, picture);
    if (next) {
        Send(*next);
    } else {
        graph.Finish();
        last.reset();
    }
    std::vector<FrameHandle> frames = Receive();
    for (const FrameHandle& frame : frames) {
        SetHoldsFields(*frame, false);
        frame->pts = picture.pts;
    }
    return frames;
}

} // namespace Kestra::FF
