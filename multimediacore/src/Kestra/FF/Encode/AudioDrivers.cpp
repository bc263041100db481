// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/AudioDrivers.h"

namespace Kestra::FF {

const std::vector<const AudioDriver*>& AudioDriver::All() {
    static const auto& drivers = *new std::vector<const AudioDriver*>{
        &AacDriver(),    &OpusDriver(), &Ac3Driver(),  &Mp3Driver(),
        &VorbisDriver(), &FlacDriver(), &AlacDriver(), &PcmDriver(),
    };
    return drivers;
}

} // namespace Kestra::FF
