// SPDX-License-Identifier: GPL-3.0-or-later
// Export::BitrateMode: how the bits of an encoded video stream are spent.
#pragma once

namespace Export {

/// The numbers are fixed: parts of the export tell the modes apart by them.
enum class BitrateMode : int {
    Constant = 0,  ///< the automatic bitrate, held constant
    Automatic = 1, ///< the codec's default bitrate times the preset's multiplier, variable; Variable when it is encoded
    Variable = 2,  ///< the preset's own bitrate on average, with a bounded peak
    Quality = 3,   ///< the preset's quality, in one pass; the bitrate is a bound that an encoder may keep to
};

} // namespace Export
