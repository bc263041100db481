// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/StartTimecode.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Conf/StandardRates.h"
#include "Kestra/FF/Av/Convert.h"
#include <algorithm>
#include <array>
#include <cctype>

extern "C" {
#include <libavutil/intreadwrite.h>
#include <libavutil/timecode.h>
}

namespace Kestra::FF {

namespace {

using Rate = boost::rational<long long>;

constexpr const char* TAG = "timecode";
constexpr std::size_t LENGTH = 11; // "hh:mm:ss:ff"

// What time codes count in each second.
std::int64_t FramesASecond(const Rate& rate) {
    return (2 * rate.numerator() + rate.denominator()) / (2 * rate.denominator());
}

/// Hours, minutes, seconds and frames; unset where the text is not of that shape.
std::optional<std::array<std::int64_t, 4>> FieldsOf(const std::string& text) {
    if (text.size() != LENGTH)
        return std::nullopt;
    std::array<std::int64_t, 4> fields{};
    for (std::size_t index = 0; index < LENGTH; ++index) {
        const char letter = text[index];
        const bool between = index % 3 == 2;
        if (between ? letter != ':' && (index < 8 || (letter != ';' && letter != '.'))
                    : !std::isdigit(static_cast<unsigned char>(letter)))
            return std::nullopt;
        if (!between)
            fields[index / 3] = 10 * fields[index / 3] + (letter - '0');
    }
    return fields;
}

const char* TextIn(const AVDictionary* tags) {
    const AVDictionaryEntry* const found = av_dict_get(tags, TAG, nullptr, 0);
    return found ? found->value : nullptr;
}

const AVStream* FindTimecodeTrack(const AVFormatContext& context) {
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVStream* const stream = context.streams[index];
        if (stream->codecpar->codec_type == AVMEDIA_TYPE_DATA && TextIn(stream->metadata))
            return stream;
    }
    return nullptr;
}

Rate RateOf(const AVStream* track, const Rate& ofPictures) {
    if (!track || track->avg_frame_rate.num <= 0 || track->avg_frame_rate.den <= 0)
        return ofPictures;
    const Rate near = Conf::NearStandardRate(av_q2d(track->avg_frame_rate));
    const Rate own = near > 0 ? near : FromAv(track->avg_frame_rate);
    return FramesASecond(own) == FramesASecond(ofPictures) ? ofPictures : own;
}

/// The four bytes behind a start code of MPEG-1 and MPEG-2; unset where the packet does not begin with its header.
std::optional<std::uint32_t> BehindStartCode(const AVPacket& packet, std::uint8_t code) {
    constexpr int headers = 4096;
    const int last = std::min(packet.size, headers) - 8;
    for (int at = 0; at <= last; ++at) {
        const std::uint8_t* const bytes = packet.data + at;
        if (bytes[0] == 0 && bytes[1] == 0 && bytes[2] == 1 && bytes[3] == code)
            return AV_RB32(bytes + 4);
    }
    return std::nullopt;
}

std::optional<StartTimecode> StartOf(const std::string& text, const Rate& rate) {
    const auto time = TimeOfTimecode(text, rate);
    if (!time)
        return std::nullopt;
    return StartTimecode{*time, text[8] != ':' && Conf::IsDropFrameRate(rate)};
}

/// Of the group's first picture; where the one shown first comes later, since those before it cannot be decoded, of
/// that.
std::optional<StartTimecode> TimeOfGroup(const ProbedTrack& video, const Rate& rate) {
    constexpr std::uint8_t groupCode = 0xB8;
    constexpr std::uint8_t pictureCode = 0x00;
    const auto group = video.opening ? BehindStartCode(*video.opening, groupCode) : std::nullopt;
    if (!group)
        return std::nullopt;
    std::array<char, AV_TIMECODE_STR_SIZE> text{};
    auto start = StartOf(av_timecode_make_mpeg_tc_string(text.data(), *group >> 7), rate);
    const auto picture = BehindStartCode(*video.opening, pictureCode);
    if (start && picture && video.first->pict_type == AV_PICTURE_TYPE_I)
        start->time += FramesToTime(*picture >> 22, rate);
    return start;
}

bool HasGroups(AVCodecID codec) {
    return codec == AV_CODEC_ID_MPEG1VIDEO || codec == AV_CODEC_ID_MPEG2VIDEO;
}

} // namespace

std::optional<std::int64_t> TimeOfTimecode(const std::string& text, const Rate& rate) {
    const auto fields = FieldsOf(text);
    if (!fields || rate <= 0)
        return std::nullopt;
    const auto [hours, minutes, seconds, frames] = *fields;
    const std::int64_t second = FramesASecond(rate);
    if (minutes >= 60 || seconds >= 60 || frames >= second)
        return std::nullopt;
    const std::int64_t minute = 60 * hours + minutes;
    std::int64_t number = (60 * minute + seconds) * second + frames;
    if (text[8] != ':' && Conf::IsDropFrameRate(rate)) {
        // The first numbers of each minute but every tenth there are not.
        const std::int64_t dropped = second / 15;
        if (minutes % 10 != 0 && seconds == 0 && frames < dropped)
            return std::nullopt;
        number -= dropped * (minute - minute / 10);
    }
    return FramesToTime(number, rate);
}

std::optional<StartTimecode> FindStartTimecode(const AVFormatContext& context, const ProbedTrack& video,
                                               const Rate& rate) {
    const AVStream& pictures = *context.streams[video.index];
    const AVStream* const track = FindTimecodeTrack(context);
    for (const char* text :
         {TextIn(pictures.metadata), TextIn(context.metadata), track ? TextIn(track->metadata) : nullptr})
        if (text)
            return StartOf(text, RateOf(track, rate));
    return HasGroups(pictures.codecpar->codec_id) ? TimeOfGroup(video, rate) : std::nullopt;
}

} // namespace Kestra::FF
