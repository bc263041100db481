#include "ExportCore/ExpectedFile.h"

#include "ExportCore/TimeText.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>
#include <array>

namespace ExportCore {
namespace {

using Kestra::Proc::CheckedFile;
using Kestra::Proc::CheckedStream;

/// Containers round times to the millisecond at worst.
constexpr std::int64_t ROUNDING = 2 * Kestra::TICKS_PER_MILLISECOND;
/// Sound ends on a whole packet where the container cannot tell of a cut inside; none of the codecs has longer ones.
constexpr std::int64_t LONGEST_PACKET = 4608;
constexpr int UNSPECIFIED = 2;

[[noreturn]] void fail(const std::string& what, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::OutputFailed,
                                                  "The finished file was checked and found wrong: " + what),
                      place);
}

const CheckedStream* find(const CheckedFile& file, CheckedStream::Kind kind) {
    const CheckedStream* found = nullptr;
    for (const CheckedStream& stream : file.streams) {
        if (stream.kind != kind)
            continue;
        if (found)
            fail("it has more than one track of a kind");
        found = &stream;
    }
    return found;
}

std::string text(std::int64_t time) {
    return TimeText::format(Types::fromAvTime(time));
}

void requireLength(const char* what, const CheckedStream& stream, std::int64_t expected, std::int64_t shorter,
                   std::int64_t longer) {
    const std::int64_t length = stream.end - stream.start;
    if (length < expected - shorter || length > expected + longer)
        fail(std::string("its ") + what + " lasts " + text(length) + " instead of " + text(expected));
}

void requireStep(const CheckedStream& video, const CheckedStream& audio) {
    const std::int64_t late = audio.start - video.start;
    // What an encoder puts in front to settle is not always marked as such.
    if (late > ROUNDING || late < -Kestra::SamplesToTime(LONGEST_PACKET, audio.sampleRate) - ROUNDING)
        fail("its picture begins at " + text(video.start) + " and its sound at " + text(audio.start));
}

bool carriesColour(const std::string& codec) {
    constexpr std::array<const char*, 3> without{"mpeg4", "mjpeg", "gif"};
    for (const char* name : without) {
        if (codec == name)
            return false;
    }
    return true;
}

void requireColour(const CheckedStream& stream) {
    const Kestra::Conf::ColourInfo& colour = stream.colour;
    if (!carriesColour(stream.codec))
        return;
    if (colour.matrix == UNSPECIFIED || colour.primaries == UNSPECIFIED || colour.transfer == UNSPECIFIED)
        fail("it does not tell the colour of its pictures");
}

std::string sizeText(std::uint32_t width, std::uint32_t height) {
    return std::to_string(width) + 'x' + std::to_string(height);
}

void requirePictures(const CheckedStream& stream, const ExpectedFile::Pictures& pictures) {
    if (stream.frame.width != pictures.width || stream.frame.height != pictures.height)
        fail("its pictures are " + sizeText(stream.frame.width, stream.frame.height) + " instead of " +
             sizeText(pictures.width, pictures.height));
    if (!pictures.pixelFormat.empty() && stream.pixelFormat != pictures.pixelFormat)
        fail("its pictures are " + stream.pixelFormat + " instead of " + pictures.pixelFormat);
}

} // namespace

void ExpectedFile::Pictures::fitTo(Kestra::Conf::CodecID codec) {
    using Kestra::Conf::PixelFormat;
    using Kestra::Conf::PixelFormatRecord;
    const Kestra::Conf::VideoCodec* const known = Kestra::Conf::Codec::FindVideo(codec);
    const PixelFormat usual = known ? known->playable : PixelFormat::Unknown;
    const PixelFormatRecord* const format =
        PixelFormatRecord::Find(pixelFormat.empty() ? usual : Kestra::Conf::PixelFormatFromString(pixelFormat));
    const auto fit = [](std::uint32_t side, int shift) { return std::max<std::uint32_t>(side >> shift, 1) << shift; };
    if (!format)
        return;
    width = fit(width, format->chromaShiftX);
    height = fit(height, format->chromaShiftY);
}

void ExpectedFile::require(const CheckedFile& file) const {
    const CheckedStream* video = find(file, CheckedStream::Kind::Video);
    const CheckedStream* audio = find(file, CheckedStream::Kind::Audio);
    if (hasVideo != (video != nullptr))
        fail(hasVideo ? "it has no picture" : "it has a picture that was not asked for");
    if (hasAudio != (audio != nullptr))
        fail(hasAudio ? "it has no sound" : "it has sound that was not asked for");
    if (video) {
        if (video->packets != frames)
            fail("it holds " + std::to_string(video->packets) + " pictures instead of " + std::to_string(frames));
        const std::int64_t frame = frames > 0 ? videoDuration / frames : 0;
        if (pictures)
            requirePictures(*video, *pictures);
        else
            requireLength("picture", *video, videoDuration, frame + ROUNDING, frame + ROUNDING);
        requireColour(*video);
    }
    if (audio) {
        if (audio->sampleRate <= 0)
            fail("its sound has no sample rate");
        requireLength("sound", *audio, audioDuration, ROUNDING,
                      Kestra::SamplesToTime(LONGEST_PACKET, audio->sampleRate) + ROUNDING);
    }
    if (video && audio)
        requireStep(*video, *audio);
    if (const std::string fault = programme.faultOf(file); !fault.empty())
        fail(fault);
}

} // namespace ExportCore
