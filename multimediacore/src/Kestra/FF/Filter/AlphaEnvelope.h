// Kestra::FF::AlphaEnvelope: the effect that lets pictures appear and vanish over time.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Filter/LastPicture.h"
#include "Kestra/FF/Picture/PictureConverter.h"
#include "Kestra/Proc/IEffectVideo.h"
#include "Kestra/Proc/TimeToProgress.h"

namespace Kestra::FF {

/// Multiplies the alpha of each picture by the progress at its time: 0 and below is invisible, 1 and above leaves it as
/// it is, on the same pixels. Pictures without alpha get one.
class AlphaEnvelope final : public Proc::IEffectVideo, public RefCountImpl {
public:
    explicit AlphaEnvelope(const Proc::TimeToProgress& progress);

    boost::intrusive_ptr<Proc::IDataVideo> Apply(const boost::intrusive_ptr<Proc::IDataVideo>& picture) override;
    void ChangeFormat(Conf::IFormatCodecVideo& format) const override;
    void ChangePreference(Conf::IFormatCodecVideo& preferred) const override;
    void Reset() override { last.Forget(); }

private:
    const AVFrame& WithAlpha(const AVFrame& frame);

    const Proc::TimeToProgress progress;
    PictureConverter converter;
    LastPicture last;
    FramePool pool;
};

} // namespace Kestra::FF
