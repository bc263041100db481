// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/StillReader.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Decode/Decoder.h"
#include "Kestra/FF/Picture/FieldOrder.h"
#include "Kestra/FF/Picture/FrameTags.h"

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// Slices of one picture; more of them would only wait for each other.
constexpr int THREADS = 2;

[[noreturn]] void Refuse(const Demuxer& demuxer, const std::string& reason) {
    Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + demuxer.GetPath().ToUtf8() + "\": " + reason);
}

} // namespace

StillReader::StillReader(const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits)
    : interrupted(interrupted)
    , limits(limits) {}

FrameHandle StillReader::Decode(Demuxer& demuxer, int stream) const {
    std::string damage;
    Decoder decoder(demuxer.GetStream(stream), THREADS, demuxer.GetPath().ToUtf8(), limits);
    decoder.SetPacketSupply([&demuxer](AVPacket& packet) { return demuxer.Read(packet); });
    decoder.SetDamageReceiver([&damage](std::int64_t, const std::string& reason) { damage = reason; });
    FrameHandle frame = decoder.Next();
    if (frame)
        return frame;
    const std::string excess = decoder.GetExcess();
    Refuse(demuxer, !excess.empty()   ? excess
                    : !damage.empty() ? "its picture could not be decoded: " + damage
                                      : "it holds no picture that can be decoded");
}

FrameHandle StillReader::Read(const ioPath& path, const std::function<void(const std::string&)>& onFlaw) {
    Demuxer demuxer(path, interrupted, limits);
    const int index = av_find_best_stream(&demuxer.GetContext(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index < 0)
        Refuse(demuxer, "it holds no picture");
    demuxer.Select({index});
    FrameHandle frame = Decode(demuxer, index);
    if ((frame->flags & AV_FRAME_FLAG_CORRUPT) != 0 || frame->decode_error_flags != 0)
        onFlaw("A damaged picture was concealed");
    AVStream& stream = demuxer.GetStream(index);
    TagFrame(*frame, stream, demuxer.GetContext());
    GuessColour(*frame, stream.codecpar->codec_id);
    TagFields(*frame, *stream.codecpar, false);
    const Orientation orientation = FindOrientation(stream, frame.get());
    if (orientation.rotation == 0 && !orientation.flipped)
        return frame;
    return FrameRotator(orientation).Rotate(*frame);
}

} // namespace Kestra::FF
