// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IEffectVideo: something done to single pictures.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/IDataVideo.h"

namespace Kestra::Proc {

/// Bound to the thread that reads the stream of its host. One effect belongs to one host.
class KESTRA_EXPORT IEffectVideo : public virtual IRefCountable {
public:
    ~IEffectVideo() override;
    /// The picture with the effect, its times unchanged; the very object where there is nothing to do. Never null.
    virtual boost::intrusive_ptr<IDataVideo> Apply(const boost::intrusive_ptr<IDataVideo>& picture) = 0;
    /// Turns the description of what goes in into that of what comes out.
    virtual void ChangeFormat(Conf::IFormatCodecVideo& format) const = 0;
    /// Turns a wish about what comes out into one about what goes in.
    virtual void ChangePreference(Conf::IFormatCodecVideo& preferred) const = 0;
    /// Lets go of pictures that it keeps.
    virtual void Reset() = 0;
};

} // namespace Kestra::Proc
