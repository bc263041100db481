// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FileCheck.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Demux/FileContents.h"
#include "Kestra/FF/WebP/WebPCheck.h"
#include "Kestra/FF/WebP/WebPReader.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <boost/exception/get_error_info.hpp>
#include <cstring>
#include <iterator>
#include <optional>
#include <sys/stat.h>
#include <utility>

namespace Kestra::FF {
namespace {

using Proc::CheckedFile;
using Proc::CheckedStream;
using Proc::TranscodingError;

/// A file that was written here may claim what it holds: nothing is decoded, and its pictures were in memory already.
Proc::MediaLimits OwnFile() {
    Proc::MediaLimits limits;
    limits.pictureBytes = std::int64_t{1} << 40;
    return limits;
}

CheckedStream Describe(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    CheckedStream result;
    result.codec = avcodec_get_name(parameters.codec_id);
    if (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) {
        result.kind = CheckedStream::Kind::Cover;
    } else if (parameters.codec_type == AVMEDIA_TYPE_SUBTITLE) {
        result.kind = CheckedStream::Kind::Subtitles;
    } else if (parameters.codec_type == AVMEDIA_TYPE_VIDEO) {
        result.kind = CheckedStream::Kind::Video;
        result.frame = MakeFrameInfo(parameters.width, parameters.height, parameters.sample_aspect_ratio);
        result.colour = {parameters.color_primaries, parameters.color_trc, parameters.color_space,
                         parameters.color_range};
    } else if (parameters.codec_type == AVMEDIA_TYPE_AUDIO) {
        result.kind = CheckedStream::Kind::Audio;
        result.sampleRate = parameters.sample_rate;
        result.channels = parameters.ch_layout.nb_channels;
    }
    return result;
}

/// Samples to leave out at the packet's start and end.
std::pair<std::int64_t, std::int64_t> TrimOf(const AVPacket& packet) {
    std::size_t size = 0;
    const std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    if (!data || size < 8)
        return {0, 0};
    const auto read = [data](int at) {
        return std::int64_t(data[at]) | std::int64_t(data[at + 1]) << 8 | std::int64_t(data[at + 2]) << 16 |
               std::int64_t(data[at + 3]) << 24;
    };
    return {read(0), read(4)};
}

/// Between two texts QuickTime has one without any.
constexpr int EMPTY_TEXT = 2;

bool HasText(const AVPacket& packet, const AVStream& stream) {
    return packet.size > (stream.codecpar->codec_id == AV_CODEC_ID_MOV_TEXT ? EMPTY_TEXT : 0);
}

/// Counts the packets of one stream.
class Tally {
public:
    /// In some files a packet lasts without what is left out at its end, in others with it.
    Tally(const AVStream& stream, bool lastsTrimmed)
        : stream(stream)
        , result(Describe(stream))
        , lastsTrimmed(lastsTrimmed) {}

    void Take(const AVPacket& packet) {
        const std::int64_t duration = ToEngineTime(packet.duration, stream.time_base);
        const bool isAudio = result.kind == CheckedStream::Kind::Audio;
        const auto [head, tail] = isAudio ? TrimOf(packet) : std::pair<std::int64_t, std::int64_t>{0, 0};
        if (packet.flags & AV_PKT_FLAG_DISCARD)
            return;
        if (result.kind == CheckedStream::Kind::Subtitles && !HasText(packet, stream))
            return;
        ++result.packets;
        const std::int64_t timestamp = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
        if (timestamp == AV_NOPTS_VALUE)
            return;
        const std::int64_t time = ToEngineTime(timestamp, stream.time_base);
        const int rate = std::max(result.sampleRate, 1);
        start = std::min(start.value_or(INT64_MAX), time + (isAudio ? SamplesToTime(head, rate) : 0));
        const std::int64_t over = isAudio && !lastsTrimmed ? SamplesToTime(tail, rate) : 0;
        result.end = std::max(result.end, time + duration - over);
        untold = isAudio && duration == 0;
        longest = std::max(longest, time - last);
        last = time;
    }

    /// `length` is the file's.
    CheckedStream Finish(std::int64_t length) {
        result.start = start.value_or(0);
        // Matroska does not say how long packets last, and ALAC's do not either. The file lasts as long as its longest
        // track, and the last packet no longer than others.
        if (untold)
            result.end = std::max(result.end, longest == 0 ? length : std::min(length, last + longest));
        return result;
    }

private:
    const AVStream& stream;
    CheckedStream result;
    const bool lastsTrimmed;
    std::optional<std::int64_t> start;
    bool untold = false;      ///< how long the last packet lasts
    std::int64_t last = 0;    ///< when it begins
    std::int64_t longest = 0; ///< from one packet to the next
};

void RequireWhole(const AVPacket& packet, const ioPath& path) {
    if (packet.flags & AV_PKT_FLAG_CORRUPT)
        Fail(TranscodingError::OutputFailed, "The finished file \"" + path.ToUtf8() + "\" holds a damaged packet");
}

/// In a finished file nothing comes as a surprise, so trouble of any kind is a fault of the file.
[[noreturn]] void RethrowAsOutput(const Proc::ProcException& error, SourcePlace place = SourcePlace::Here()) {
    Fail(TranscodingError::OutputFailed, std::string("The finished file cannot be read: ") + error.what(), place);
}

std::vector<CheckedStream> ReadAll(Demuxer& demuxer, std::int64_t length) {
    AVFormatContext& context = demuxer.GetContext();
    std::vector<Tally> tallies;
    const bool isOgg = std::strcmp(context.iformat->name, "ogg") == 0;
    for (unsigned index = 0; index < context.nb_streams; ++index)
        tallies.emplace_back(*context.streams[index], isOgg);
    const PacketHandle packet = MakePacket();
    while (demuxer.Read(*packet)) {
        RequireWhole(*packet, demuxer.GetPath());
        const auto index = static_cast<std::size_t>(packet->stream_index);
        if (index >= tallies.size())
            Fail(TranscodingError::OutputFailed, "The finished file has a stream that its head does not tell of");
        tallies[index].Take(*packet);
    }
    if (!demuxer.GetTrouble().empty())
        Fail(TranscodingError::OutputFailed, "The finished file cannot be read to its end: " + demuxer.GetTrouble());
    std::vector<CheckedStream> streams;
    std::transform(tallies.begin(), tallies.end(), std::back_inserter(streams),
                   [length](Tally& tally) { return tally.Finish(length); });
    return streams;
}

} // namespace

CheckedFile CheckFile(const ioPath& path, const std::atomic<bool>& interrupted) {
    // The demuxer library cannot read these.
    if (WebPReader::IsAnimated(path))
        return CheckWebP(path, interrupted);
    try {
        Demuxer demuxer(path, interrupted, OwnFile());
        CheckedFile file;
        file.container = demuxer.GetFormatName();
        const AVFormatContext& context = demuxer.GetContext();
        if (context.duration != AV_NOPTS_VALUE)
            file.duration = ToEngineTime(context.duration, AVRational{1, AV_TIME_BASE});
        file.streams = ReadAll(demuxer, file.duration);
        std::vector<std::string> notes;
        Proc::MediaContents contents = ContentsOf(context, 0, notes);
        for (std::size_t index = 0; index < file.streams.size(); ++index) {
            const Proc::ListedTrack& track = contents.tracks[index];
            CheckedStream& stream = file.streams[index];
            stream.language = track.language;
            stream.title = track.title;
            stream.isDefault = track.isDefault;
            stream.forced = track.forced;
        }
        file.programme = std::move(contents.programme);
        if (interrupted)
            KESTRA_THROW(Proc::Interrupted());
        struct stat state = {};
        if (stat(path.ToUtf8().c_str(), &state) == 0)
            file.size = state.st_size;
        return file;
    } catch (const Proc::ProcException& error) {
        if (interrupted) // what such a reading meets is no fault of the file
            KESTRA_THROW(Proc::Interrupted());
        const int* code = boost::get_error_info<TagErrorCode>(error);
        if (code && *code == static_cast<int>(TranscodingError::OutputFailed))
            throw;
        RethrowAsOutput(error);
    }
}

} // namespace Kestra::FF
