// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExpectedFile.h"

#include "ExportCore/TimeText.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>
#include <array>
#include <string>
#include <variant>
#include <vector>

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

using Streams = std::vector<const CheckedStream*>;

Streams find(const CheckedFile& file, CheckedStream::Kind kind) {
    Streams found;
    for (const CheckedStream& stream : file.streams)
        if (stream.kind == kind)
            found.push_back(&stream);
    return found;
}

void requireCount(const Streams& found, const std::string& what, std::size_t expected) {
    if (found.empty() && expected > 0)
        fail("it has no " + what);
    if (expected == 0 && !found.empty())
        fail("it has " + std::string(what == "picture" ? "a " : "") + what + " that was not asked for");
    if (found.size() != expected)
        fail("it has " + std::to_string(found.size()) + ' ' + what + " tracks instead of " + std::to_string(expected));
}

std::string text(std::int64_t time) {
    return TimeText::format(Types::fromAvTime(time));
}

void requireLength(const std::string& what, const CheckedStream& stream, std::int64_t expected, std::int64_t shorter,
                   std::int64_t longer) {
    const std::int64_t length = stream.end - stream.start;
    if (length < expected - shorter || length > expected + longer)
        fail("its " + what + " lasts " + text(length) + " instead of " + text(expected));
}

/// `first` is a picture, or the first sound.
void requireStep(const CheckedStream& first, const char* what, const CheckedStream& sound, const std::string& name) {
    const std::int64_t late = sound.start - first.start;
    // What an encoder puts in front to settle is not always marked as such.
    if (late > ROUNDING || late < -Kestra::SamplesToTime(LONGEST_PACKET, sound.sampleRate) - ROUNDING)
        fail(std::string("its ") + what + " begins at " + text(first.start) + " and its " + name + " at " +
             text(sound.start));
}

bool carriesColour(const std::string& codec) {
    constexpr std::array<const char*, 4> without{"mpeg4", "mjpeg", "gif", "webp"};
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

void requireSize(const CheckedStream& stream, std::uint32_t width, std::uint32_t height) {
    if (stream.frame.width != width || stream.frame.height != height)
        fail("its pictures are " + sizeText(stream.frame.width, stream.frame.height) + " instead of " +
             sizeText(width, height));
}

void requirePictures(const CheckedStream& stream, const ExpectedFile::Pictures& pictures) {
    requireSize(stream, pictures.width, pictures.height);
    if (!pictures.pixelFormat.empty() && stream.pixelFormat != pictures.pixelFormat)
        fail("its pictures are " + stream.pixelFormat + " instead of " + pictures.pixelFormat);
}

/// As a number or as its digits, which the catalogue has checked.
int wholeNumberOf(const Kestra::Core::Property& node) {
    const auto* const digits = std::get_if<std::string>(&node.GetValue());
    return digits ? std::stoi(*digits) : static_cast<int>(node.GetInt64());
}

std::string playsText(int plays) {
    return plays < 0 ? "as if it did not move" : plays == 0 ? "for ever" : std::to_string(plays) + " times";
}

void requireAnimation(const CheckedStream& stream, const ExpectedFile::Animation& animation) {
    requireSize(stream, animation.width, animation.height);
    if (stream.plays != animation.plays)
        fail("it is shown " + playsText(stream.plays) + " instead of " + playsText(animation.plays));
}

std::string nameOfSound(std::size_t track) {
    return track == 0 ? "sound" : "sound track " + std::to_string(track + 1);
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

void ExpectedFile::expectAnimation(const Preset& preset, std::uint32_t width, std::uint32_t height) {
    constexpr const char* LOOP = "loop";
    if (preset.containerId() != "webp")
        return;
    const Kestra::Core::Property data = preset.muxerData();
    const char* const options = Kestra::Conf::IFormatFile::TAG_MUXER_OPTIONS;
    const bool told = data.ChildExists(options) && data[options].ChildExists(LOOP);
    animation = Animation{width, height, told ? wholeNumberOf(data[options][LOOP]) : 0};
}

void ExpectedFile::requireStreams(const CheckedFile& file) const {
    const Streams videos = find(file, CheckedStream::Kind::Video);
    const Streams sounds = find(file, CheckedStream::Kind::Audio);
    requireCount(videos, "picture", hasVideo ? 1 : 0);
    requireCount(sounds, "sound", hasAudio ? 1 + static_cast<std::size_t>(furtherSounds) : 0);
    for (const CheckedStream* video : videos) {
        if (video->packets != frames)
            fail("it holds " + std::to_string(video->packets) + " pictures instead of " + std::to_string(frames));
        // The last picture of most containers may be told to last as long as it likes.
        const std::int64_t frame = frames > 0 && !animation ? videoDuration / frames : 0;
        if (pictures)
            requirePictures(*video, *pictures);
        else
            requireLength("picture", *video, videoDuration, frame + ROUNDING, frame + ROUNDING);
        if (animation)
            requireAnimation(*video, *animation);
        requireColour(*video);
    }
    for (std::size_t track = 0; track < sounds.size(); ++track) {
        const CheckedStream& audio = *sounds[track];
        const std::string name = nameOfSound(track);
        if (audio.sampleRate <= 0)
            fail("its " + name + " has no sample rate");
        requireLength(name, audio, audioDuration, ROUNDING,
                      Kestra::SamplesToTime(LONGEST_PACKET, audio.sampleRate) + ROUNDING);
        if (hasVideo)
            requireStep(*videos.front(), "picture", audio, name);
        else if (track > 0)
            requireStep(*sounds.front(), "sound", audio, name);
    }
}

void ExpectedFile::require(const CheckedFile& file) const {
    requireStreams(file);
    if (const std::string fault = programme.faultOf(file); !fault.empty())
        fail(fault);
}

} // namespace ExportCore
