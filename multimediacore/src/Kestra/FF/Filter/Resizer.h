// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Resizer: brings pictures to one frame and, in the same pass, to the format that the consumer asked for.
#pragma once

#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/Settings/SettingsResizer.h"

namespace Kestra::FF {

/// The part of a picture that is shown in a frame, and where. Sides are in pixels.
struct Fitting {
    FrameRect source;
    FrameRect place;
};
Fitting FitFrame(const Conf::FrameInfo& picture, const Conf::FrameInfo& frame, const Proc::SettingsResizer& settings);

/// All its frames have the size that the settings give the source's frame, also when single pictures of the source
/// differ: those stand centred in it. A frame that comes again on the same pixels is not converted again. For a draft
/// frames come in its smaller size; the description stays that of the whole.
class Resizer final : public Proc::VideoFilterBase {
public:
    /// `threads`: slices that one frame is converted in at a time.
    Resizer(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const Proc::SettingsResizer& settings,
            int threads = 1);

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    FrameTarget TargetFor(const AVFrame& picture) const;
    Conf::FrameInfo OutputFrame() const;
    bool ShowsBars(const Fitting& fitting, const Conf::FrameInfo& frame) const;
    /// What a picture of format `own` becomes.
    AVPixelFormat FormatFor(AVPixelFormat own, bool bars) const;
    Conf::ColourInfo ColourFor(AVPixelFormat made) const;

    const Proc::SettingsResizer settings;
    const int threads;
    Conf::FrameInfo output; ///< 0 x 0 until the first read
    AVPixelFormat format = AV_PIX_FMT_NONE;
    Conf::ColourInfo colour;
    std::optional<Conf::Draft> draft;
    FrameConverter converter;
    /// The last frame and what became of it. Holding the frame keeps its memory from being given to another.
    FrameHandle lastFrame;
    FrameHandle lastResult;
};

boost::intrusive_ptr<Proc::IStreamVideo> MakeResizer(const boost::intrusive_ptr<Proc::IStreamVideo>& source,
                                                     const Proc::SettingsResizer& settings, int threads = 1);

} // namespace Kestra::FF
