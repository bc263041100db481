// Parts of pictures.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

struct PictureRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PictureRect& a, const PictureRect& b) {
        return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
    }
    friend bool operator!=(const PictureRect& a, const PictureRect& b) { return !(a == b); }
};

/// The rectangle as another frame on the same memory. Its corner has to lie on whole chroma samples.
FrameHandle MakeView(const AVFrame& picture, const PictureRect& part);
/// Every other row of the picture, from row 0 (`bottom` false) or 1, on the same memory.
FrameHandle MakeFieldView(const AVFrame& picture, bool bottom);
/// `rect` moved and shrunk to whole chroma samples of the format, and into a picture of that size.
PictureRect AlignToChroma(const PictureRect& rect, AVPixelFormat format, int width, int height);

/// Blackens a part of the picture, by its format and range; alpha becomes opaque.
void FillBlack(AVFrame& picture, const PictureRect& part);
/// Blackens what lies around the part.
void FillAround(AVFrame& picture, const PictureRect& part);

} // namespace Kestra::FF
