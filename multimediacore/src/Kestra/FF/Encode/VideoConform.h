// Kestra::FF::VideoConform: the last stage before a video encoder.
#pragma once

#include "Kestra/FF/Picture/EncodePicture.h"
#include "Kestra/FF/Picture/PictureConverter.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"

namespace Kestra::FF {

/// Every picture comes out as `picture` says. One that is shown several times is converted once.
class VideoConform final : public Proc::VideoFilterBase {
public:
    VideoConform(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const EncodePicture& picture);

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void Reset() override;

private:
    FrameHandle Conform(const AVFrame& frame);

    const EncodePicture picture;
    PictureTarget target;
    Conf::ColourInfo streamColour; ///< complete
    PictureConverter converter;
    /// The last picture and what became of it; holding the picture keeps its memory from being used again.
    FrameHandle lastSource;
    FrameHandle lastResult;
};

/// Writes what `picture` says into a description.
void Describe(const EncodePicture& picture, Conf::IFormatCodecVideo& format);

} // namespace Kestra::FF
