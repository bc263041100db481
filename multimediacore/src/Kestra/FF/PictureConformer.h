// Kestra::FF::PictureConformer: pictures as an encoder takes them, in one pass over the pixels.
#pragma once

#include "Kestra/FF/EncodePicture.h"
#include "Kestra/FF/FramePool.h"

namespace Kestra::FF {

/// Used by one thread. Size, pixel format, matrix and range are converted; alpha goes over black where the target has
/// none; a picture that fits already passes by reference.
class PictureConformer {
public:
    explicit PictureConformer(const EncodePicture& target);

    /// A picture that the target describes; `picture` is not changed.
    FrameHandle Convert(const AVFrame& picture);

private:
    bool Fits(const AVFrame& picture, const Conf::ColourInfo& colour) const;
    FrameHandle Flatten(const AVFrame& picture);
    FrameHandle Scale(const AVFrame& picture, const Conf::ColourInfo& colour);
    void SetUpScaler(const AVFrame& picture, const Conf::ColourInfo& colour);
    void Tag(AVFrame& picture, const AVFrame& source) const;

    /// What the scaler is set up for.
    struct Input {
        int width = 0;
        int height = 0;
        int format = AV_PIX_FMT_NONE;
        int matrix = 0;
        int range = 0;
    };

    const EncodePicture target;
    SwsContextHandle scaler;
    Input input;
    FramePool pictures;
    FramePool flattened;
};

} // namespace Kestra::FF
