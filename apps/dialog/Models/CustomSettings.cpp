// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/CustomSettings.h"

namespace Dialog {

std::vector<std::string> CustomSettings::texts() const {
    std::vector<std::string> all;
    const auto add = [&all](const char* key, const QString& value) {
        if (!value.isEmpty())
            all.push_back(key + ('=' + value.toStdString()));
    };
    add("size", size);
    add("frame-rate", frameRate);
    if (rateControl == RateControl::Quality)
        add("quality", QString::number(quality));
    if (rateControl == RateControl::Bitrate)
        add("bitrate", QString::number(kilobitsPerSecond) + QLatin1Char('k'));
    add("first-pass", firstPass);
    add("sample-rate", sampleRate);
    add("audio-bitrate", soundBitrate);
    add("channels", channels);
    return all;
}

} // namespace Dialog
