// Kestra::FF::LastPicture: what became of a picture, for when it comes again.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <utility>

namespace Kestra::FF {

/// Bound to one thread at a time. Holding the picture keeps its memory from being given to another one, so the same
/// memory means the same pixels.
class LastPicture {
public:
    /// The frame that `make` gave for these pixels when they came last; calls it when other pixels came since.
    template <class Make>
    const AVFrame& Get(const AVFrame& picture, const Make& make) {
        if (!source || source->data[0] != picture.data[0] || source->format != picture.format ||
            source->width != picture.width || source->height != picture.height) {
            result = make(picture);
            source = MakeFrameReference(picture);
        }
        return *result;
    }
    void Forget() {
        source.reset();
        result.reset();
    }

private:
    FrameHandle source;
    FrameHandle result;
};

} // namespace Kestra::FF
