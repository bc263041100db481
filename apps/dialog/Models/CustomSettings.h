// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::CustomSettings: what somebody changed in a preset.
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace Dialog {

/// A value. What is empty, or 0, stays as the preset has it. Texts are such as ExportCore::PresetSettings reads.
struct CustomSettings {
    enum class RateControl { OfPreset, Quality, Bitrate };

    QString size;      ///< "1280x720"
    QString frameRate; ///< "29.97", "source"
    RateControl rateControl = RateControl::OfPreset;
    double quality = 0; ///< on the codec's scale
    int kilobitsPerSecond = 0;
    QString firstPass; ///< "full", "half"
    QString sampleRate;
    QString soundBitrate; ///< "128k"
    QString channels;     ///< "stereo", "5.1"

    /// KEY=VALUE each, for an ExportRequest.
    std::vector<std::string> texts() const;
    bool empty() const { return texts().empty(); }
    friend bool operator==(const CustomSettings& a, const CustomSettings& b) { return a.texts() == b.texts(); }
};

} // namespace Dialog
