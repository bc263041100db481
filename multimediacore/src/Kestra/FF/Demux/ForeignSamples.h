// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::HasForeignSamples: whether a film names another file as the place of its pictures or audio.
#pragma once

#include "Kestra/Base/ioPath.h"
#include <atomic>

namespace Kestra::FF {

/// Of files of the MOV family. libavformat does not look at such a name (a URL), and reads what stands at the samples'
/// places in this file. Whoever does not say that the samples are here, but names no other place either, has them here.
bool HasForeignSamples(const ioPath& path, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
