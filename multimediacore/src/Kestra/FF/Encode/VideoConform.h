// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::VideoConform: the last stage before a video encoder.
#pragma once

#include "Kestra/FF/Picture/EncoderInput.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"

namespace Kestra::FF {

/// Every frame comes out as `input` says, or in the smaller size of a `draft`. One that is shown several times is
/// converted once.
class VideoConform final : public Proc::VideoFilterBase {
public:
    VideoConform(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const EncoderInput& input,
                 const std::optional<Conf::Draft>& draft = std::nullopt);

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void Reset() override;

private:
    FrameHandle Conform(const AVFrame& frame);
    bool KeepsFields(const AVFrame& frame) const;

    const EncoderInput input;
    FrameTarget target;
    Conf::ColourInfo streamColour; ///< complete
    FrameConverter converter;
    /// The last frame and what became of it; holding the frame keeps its memory from being used again.
    FrameHandle lastSource;
    FrameHandle lastResult;
};

/// Writes what `input` says into a description.
void Describe(const EncoderInput& input, Conf::IFormatCodecVideo& format);

} // namespace Kestra::FF
