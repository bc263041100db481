// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of frames.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

struct FrameRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const FrameRect& a, const FrameRect& b) {
        return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
    }
    friend bool operator!=(const FrameRect& a, const FrameRect& b) { return !(a == b); }
};

/// The rectangle as another frame on the same memory. Its corner has to lie on whole chroma samples.
FrameHandle MakeView(const AVFrame& frame, const FrameRect& part);
/// Every other row of the frame, from row 0 (`bottom` false) or 1, on the same memory.
FrameHandle MakeFieldView(const AVFrame& frame, bool bottom);
/// `rect` moved and shrunk to whole chroma samples of the format, and into a frame of that size.
FrameRect AlignToChroma(const FrameRect& rect, AVPixelFormat format, int width, int height);

/// Blackens a part of the frame, by its format and range; alpha becomes opaque.
void FillBlack(AVFrame& frame, const FrameRect& part);
/// All of the frame black, and transparent where its format has alpha.
void FillClear(AVFrame& frame);
/// Blackens what lies around the part, or clears it.
void FillAround(AVFrame& frame, const FrameRect& part, bool transparent = false);

} // namespace Kestra::FF
