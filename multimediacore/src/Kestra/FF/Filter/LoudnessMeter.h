// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::LoudnessMeter: the loudness of a programme, by libavfilter's ebur128.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/Proc/ILoudnessMeter.h"

namespace Kestra::FF {

class LoudnessMeter final : public Proc::ILoudnessMeter, public RefCountImpl {
public:
    LoudnessMeter();

    void Hear(const Proc::IDataAudio& block) override;
    Proc::Loudness Finish() override;

private:
    void Receive();

    FilterGraph graph;
    Proc::Loudness loudness;
};

} // namespace Kestra::FF
