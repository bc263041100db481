// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/LoudnessMeter.h"

#include "Kestra/FF/Data/ChannelPair.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include <locale>
#include <sstream>

namespace Kestra::FF {

namespace {

/// Where the filter's own gate lies; it says so where it has measured nothing.
constexpr double NOTHING = -70;

/// In the filter's own way of writing numbers; nothing where it does not say.
std::optional<double> Told(const AVFrame& frame, const char* key) {
    const AVDictionaryEntry* const entry = av_dict_get(frame.metadata, key, nullptr, 0);
    if (!entry)
        return std::nullopt;
    std::istringstream text(entry->value);
    text.imbue(std::locale::classic());
    double value = 0;
    return text >> value ? std::optional(value) : std::nullopt;
}

} // namespace

LoudnessMeter::LoudnessMeter()
    : graph("ebur128=metadata=1:peak=true", "Measuring the loudness of sound failed") {}

void LoudnessMeter::Hear(const Proc::IDataAudio& block) {
    graph.Send(*WithSpeakers(FrameOf(block)));
    Receive();
}

/// Each tells of all so far.
void LoudnessMeter::Receive() {
    while (const FrameHandle frame = graph.Receive()) {
        if (const auto integrated = Told(*frame, "lavfi.r128.I"); integrated && *integrated > NOTHING)
            loudness.integrated = integrated;
        if (const auto peak = Told(*frame, "lavfi.r128.true_peak"))
            loudness.truePeak = *peak;
    }
}

Proc::Loudness LoudnessMeter::Finish() {
    graph.Finish();
    Receive();
    return loudness;
}

} // namespace Kestra::FF
