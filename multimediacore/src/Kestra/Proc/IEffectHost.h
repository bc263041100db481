// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IEffectHost: a stream of pictures with effects on them, one thread at a time like every stream.
#pragma once

#include "Kestra/Proc/IEffectVideo.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

class KESTRA_EXPORT IEffectHost : public IStreamVideo {
public:
    ~IEffectHost() override;
    /// Effects are applied in the order in which they were added. Possible until the first read, FilterException after
    /// it; throws std::invalid_argument for null.
    virtual void AddEffect(const boost::intrusive_ptr<IEffectVideo>& effect) = 0;
};

} // namespace Kestra::Proc
