// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AlphaEnvelope: the effect that lets frames appear and vanish over time.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Filter/LastFrame.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/Proc/IEffectVideo.h"
#include "Kestra/Proc/TimeToProgress.h"

namespace Kestra::FF {

/// Multiplies the alpha of each frame by the progress at its time: 0 and below is invisible, 1 and above leaves it as
/// it is, on the same pixels. Frames without alpha get one.
class AlphaEnvelope final : public Proc::IEffectVideo, public RefCountImpl {
public:
    explicit AlphaEnvelope(const Proc::TimeToProgress& progress);

    boost::intrusive_ptr<Proc::IDataVideo> Apply(const boost::intrusive_ptr<Proc::IDataVideo>& data) override;
    void ChangeFormat(Conf::IFormatCodecVideo& format) const override;
    void ChangePreference(Conf::IFormatCodecVideo& preferred) const override;
    void Reset() override { last.Forget(); }

private:
    const AVFrame& WithAlpha(const AVFrame& frame);

    const Proc::TimeToProgress progress;
    FrameConverter converter;
    LastFrame last;
    FramePool pool;
};

} // namespace Kestra::FF
