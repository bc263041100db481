// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PresetSettings: single settings that are to take the place of a preset's own.
#pragma once

#include "ExportCoreExport.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class Preset;

namespace ExportCore {

/// A value. What is not set is left to the preset.
struct EXPORTCORE_EXPORT PresetSettings {
    struct Key {
        const char* name;
        const char* value; ///< how a value is written
        const char* meaning;
        bool ofPicture; ///< else of sound
    };
    /// In the order in which they are shown.
    static const std::vector<Key>& keys();

    /// Reads texts of the form KEY=VALUE. Throws Refusal that names key, value and reason for a key that is none or is
    /// given twice, for a value that does not parse or that no encoder takes, and for two keys that exclude each other.
    static PresetSettings parse(const std::vector<std::string>& texts);
    /// Throws Refusal for a setting that does not apply to the preset or lies outside the limits of preset and codec,
    /// as far as these are known without the inputs.
    void requireFit(const Preset& preset) const;
    bool empty() const { return given.empty(); }

    std::vector<std::string> given; ///< the keys, in the order of the texts
    std::optional<int> width;       ///< pixels, even
    std::optional<int> height;
    std::optional<boost::rational<long long>> frameRate; ///< MARK_USE_ORIGINAL_FRAMERATE for the source's
    std::optional<std::int64_t> bitrateBps;
    std::optional<double> quality; ///< on the codec's scale
    std::optional<bool> halfFirstPass;
    std::optional<int> sampleRate;
    std::optional<std::uint32_t> channelLayout;
    std::optional<std::int64_t> audioBitrateBps;
};

} // namespace ExportCore
