// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FrameBlender: frames mixed and laid over each other.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/Proc/IFrameBlender.h"

namespace Kestra::FF {

class FrameBlender final : public Proc::IFrameBlender, public RefCountImpl {
public:
    /// As IFilterFactory::CreateFrameBlender says.
    explicit FrameBlender(const Conf::IFormatCodecVideo& format);

    Frame Mix(const Frame& from, const Frame& to, double weight) override;
    Frame Over(const Frame& bottom, const Frame& top) override;
    Frame Flatten(const Frame& frame) override;

private:
    const AVFrame* Taken(const Frame& frame) const;
    FrameHandle MakeResult(bool alpha, const AVFrame& first, const AVFrame* second);
    const AVFrame& Black();
    Frame Shown(const AVFrame& picture, const Proc::IDataVideo& times) const;
    Frame Tagged(FrameHandle picture, const Proc::IDataVideo& times) const;

    const Conf::FrameInfo frame;
    AVPixelFormat opaque;
    AVPixelFormat alpha;
    Conf::ColourInfo colour;
    /// Of frames with and without alpha.
    FramePool opaquePool;
    FramePool alphaPool;
    FrameHandle black;
};

boost::intrusive_ptr<Proc::IFrameBlender> MakeFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format);

} // namespace Kestra::FF
