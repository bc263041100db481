// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FilterGraph: a chain of libavfilter's filters with one input and one output.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/FF/Av/Handles.h"
#include <deque>
#include <string>

namespace Kestra::FF {

/// Pictures or audio, whichever the first frame is. Frames go through by reference: what the chain leaves alone keeps
/// its memory. Their pts are engine times, on both sides. Bound to one thread at a time; nothing opens before the first
/// frame. When size, shape, format, rate or layout of what comes in changes, the chain is emptied and made anew; a
/// change of colour tags is the filters' own affair.
class FilterGraph {
public:
    /// `chain` as libavfilter reads it, without names for its ends. `failure` begins the sentence of every error:
    /// "Turning a picture upright failed". `threads`: slices that one frame is worked on in at a time, 1 starts none.
    FilterGraph(std::string chain, std::string failure, int threads = 1);

    /// The caller keeps its own reference. What comes of the frame is to be received before the next one is sent.
    /// Throws ProcException (FilterFailed) where the chain cannot take such frames; the next frame then begins anew.
    void Send(const AVFrame& frame);
    /// No more frames: filters give what they held back. Send begins anew.
    void Finish();
    /// Null when the next frame, or Finish, is needed first.
    FrameHandle Receive();
    /// For chains that give one frame for each: sends and receives. Throws ProcException where nothing comes.
    FrameHandle Filter(const AVFrame& frame);
    /// Forgets what filters hold, as after a seek.
    void Reset();

private:
    /// What the chain's input was opened for.
    struct Shape {
        int format = -1;
        int width = 0, height = 0;
        AVRational sampleAspect = {0, 1};
        int sampleRate = 0;
        std::string layout;
        bool operator==(const Shape& other) const;
    };
    static Shape ShapeOf(const AVFrame& frame);
    static std::string Arguments(const Shape& shape);

    void Configure(const Shape& wanted);
    void Link();
    FrameHandle Pull();
    int Checked(int result, SourcePlace place = SourcePlace::Here());

    const std::string chain;
    const std::string failure;
    const int threads;
    Shape shape;
    FilterGraphHandle graph;
    AVFilterContext* input = nullptr;  ///< owned by the graph
    AVFilterContext* output = nullptr; ///< owned by the graph
    /// What an earlier shape's chain still held.
    std::deque<FrameHandle> drained;
};

} // namespace Kestra::FF
