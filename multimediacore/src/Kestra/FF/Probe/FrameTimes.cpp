// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/FrameTimes.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Convert.h"
#include <algorithm>

namespace Kestra::FF {

namespace {

// Pictures that others are predicted from, and nothing else.
bool IsHidden(const AVPacket& packet, AVCodecID codec) {
    if (packet.size < 1)
        return false;
    const unsigned first = packet.data[0];
    if (codec == AV_CODEC_ID_VP8)
        return (first & 0x10) == 0;
    if (codec != AV_CODEC_ID_VP9)
        return false;
    // Marker, profile (one bit more for the highest), whether a picture is only shown again, key frame, shown.
    const unsigned profile = (first >> 5 & 1) | (first >> 3 & 2);
    const int shift = profile == 3 ? 1 : 0;
    const bool shownAgain = first >> (3 - shift) & 1;
    return !shownAgain && (first >> (1 - shift) & 1) == 0;
}

// Packets of several pictures end with a list of them, the last of which is shown.
bool IsSuperframe(const AVPacket& packet) {
    return packet.size > 1 && (packet.data[packet.size - 1] & 0xe0) == 0xc0;
}

} // namespace

void FrameTimes::BeginRun() {
    if (!whole)
        runs.emplace_back();
}

void FrameTimes::Take(std::int64_t time) {
    if (whole)
        return;
    if (runs.empty())
        runs.emplace_back();
    runs.back().push_back(time);
}

void FrameTimes::CutRun(std::int64_t time) {
    if (!runs.empty())
        runs.back().erase(
            std::remove_if(runs.back().begin(), runs.back().end(), [time](std::int64_t other) { return other > time; }),
            runs.back().end());
}

void FrameTimes::MoveFirst(std::int64_t later) {
    if (!runs.empty() && !runs.front().empty())
        *std::min_element(runs.front().begin(), runs.front().end()) += later;
}

void FrameTimes::Take(const AVPacket& packet, const AVStream& stream) {
    const AVCodecID codec = stream.codecpar->codec_id;
    if ((packet.flags & AV_PKT_FLAG_DISCARD) || (IsHidden(packet, codec) && !IsSuperframe(packet)))
        return;
    if (packet.pts == AV_NOPTS_VALUE)
        untimed = true;
    else
        Take(ToEngineTime(packet.pts, stream.time_base));
}

// Indices hold decoding times. Those follow the presentation times at a constant distance of pictures.
bool FrameTimes::TakeIndex(AVStream& stream) {
    const int count = avformat_index_get_entries_count(&stream);
    if (stream.nb_frames <= 1 || count < stream.nb_frames)
        return false;
    std::vector<std::int64_t> times;
    times.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        const AVIndexEntry& entry = *avformat_index_get_entry(&stream, index);
        if (!(entry.flags & AVINDEX_DISCARD_FRAME))
            times.push_back(ToEngineTime(entry.timestamp, stream.time_base));
    }
    runs.clear();
    runs.push_back(std::move(times));
    whole = true;
    return true;
}

std::vector<std::vector<std::int64_t>> FrameTimes::Runs() const {
    std::vector<std::vector<std::int64_t>> result;
    for (std::vector<std::int64_t> run : runs) {
        std::sort(run.begin(), run.end());
        run.erase(std::unique(run.begin(), run.end()), run.end());
        if (run.size() > 1)
            result.push_back(std::move(run));
    }
    return result;
}

} // namespace Kestra::FF
