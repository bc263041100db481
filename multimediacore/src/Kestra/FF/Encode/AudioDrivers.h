// SPDX-License-Identifier: GPL-3.0-or-later
// The drivers that there are, one function each; the list of them is AudioDriver::All.
#pragma once

#include "Kestra/FF/Encode/AudioDriver.h"

namespace Kestra::FF {

const AudioDriver& AacDriver();
const AudioDriver& OpusDriver();
const AudioDriver& Ac3Driver();
const AudioDriver& Mp3Driver();
const AudioDriver& VorbisDriver();
const AudioDriver& FlacDriver();
const AudioDriver& AlacDriver();
const AudioDriver& PcmDriver();

} // namespace Kestra::FF
