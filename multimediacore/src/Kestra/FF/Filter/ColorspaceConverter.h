// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ColorspaceConverter: the effect that brings frames to a pixel format.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Filter/LastFrame.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/Proc/IEffectVideo.h"
#include "Kestra/Proc/Settings/SettingsColorspaceConverter.h"

namespace Kestra::FF {

/// A frame that comes again on the same pixels is not converted again.
class ColorspaceConverter final : public Proc::IEffectVideo, public RefCountImpl {
public:
    explicit ColorspaceConverter(const Proc::SettingsColorspaceConverter& settings);

    boost::intrusive_ptr<Proc::IDataVideo> Apply(const boost::intrusive_ptr<Proc::IDataVideo>& data) override;
    void ChangeFormat(Conf::IFormatCodecVideo& format) const override;
    void ChangePreference(Conf::IFormatCodecVideo& preferred) const override;
    void Reset() override { last.Forget(); }

private:
    FrameHandle Convert(const AVFrame& frame);

    const Proc::SettingsColorspaceConverter settings;
    const AVPixelFormat format;
    FrameConverter flattener;
    FrameConverter converter;
    LastFrame last;
};

} // namespace Kestra::FF
