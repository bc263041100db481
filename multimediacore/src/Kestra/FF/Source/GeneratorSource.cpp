// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/GeneratorSource.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Filter/ResamplerFF.h"
#include "Kestra/FF/Source/GeneratedPicture.h"
#include "Kestra/FF/Source/ToneFF.h"
#include <algorithm>
#include <cmath>
#include <stdexcept>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Kind = Proc::SettingsGenerator::Kind;
using Proc::TranscodingError;

namespace {

void Require(bool condition, const char* sentence) {
    if (!condition)
        KESTRA_THROW(std::invalid_argument(sentence));
}

bool IsSound(Kind kind) {
    return kind == Kind::Tone || kind == Kind::Silence;
}

const Proc::SettingsGenerator& Checked(const Proc::SettingsGenerator& settings) {
    Require(settings.duration >= 0, "Nothing can be made that lasts for less than nothing");
    if (IsSound(settings.kind)) {
        Require(settings.sampleRate > 0 && Conf::CountChannels(settings.channelLayout) > 0,
                "Sound that is to be made needs a sample rate and channels");
        Require(settings.kind == Kind::Silence ||
                    (settings.frequency > 0 && settings.frequency < settings.sampleRate / 2.0),
                "A tone needs a frequency above 0 and below half its sample rate");
        return settings;
    }
    Require(settings.frameRate > 0 && av_image_check_size(settings.frame.width, settings.frame.height, 0, nullptr) >= 0,
            "Pictures that are to be made need a frame rate and a size that there is");
    Require(std::isfinite(settings.red) && std::isfinite(settings.green) && std::isfinite(settings.blue),
            "A colour needs numbers for red, green and blue");
    return settings;
}

const char* NameOf(Kind kind) {
    switch (kind) {
    case Kind::Bars:
        return "bars";
    case Kind::Colour:
        return "colour";
    case Kind::Tone:
        return "tone";
    case Kind::Silence:
        break;
    }
    return "silence";
}

} // namespace

GeneratorSource::GeneratorSource(const Proc::SettingsGenerator& settings)
    : settings(Checked(settings)) {
    info.container = "generator";
    info.duration = settings.duration;
    if (IsSound(settings.kind))
        DescribeSound();
    else
        DescribePicture();
}

void GeneratorSource::DescribePicture() {
    Proc::VideoTrackInfo track;
    track.index = 0;
    track.codec = NameOf(settings.kind);
    track.frame = settings.frame;
    track.pixelFormat = av_get_pix_fmt_name(GeneratedPicture::PIXEL_FORMAT);
    track.colour = GeneratedPicture::ColourFor(settings.frame);
    track.frameRate = settings.frameRate;
    track.duration = settings.duration;
    info.video = track;
    info.videoTracks = 1;
}

void GeneratorSource::DescribeSound() {
    Proc::AudioTrackInfo track;
    track.index = 0;
    track.codec = NameOf(settings.kind);
    track.sampleRate = settings.sampleRate;
    track.channels = Conf::CountChannels(settings.channelLayout);
    track.channelLayout = settings.channelLayout;
    track.sampleFormat = Conf::SAMPLE_FORMAT_FLTP;
    track.duration = settings.duration;
    info.audio = track;
    info.audioTracks = 1;
}

boost::intrusive_ptr<Proc::IStreamVideo> GeneratorSource::CreateVideoStream() {
    if (!info.video)
        Fail(TranscodingError::SourceUnreadable,
             std::string("A generator of ") + NameOf(settings.kind) + " has no pictures");
    return new GeneratedPicture(settings);
}

boost::intrusive_ptr<Proc::IStreamAudio> GeneratorSource::CreateAudioStream() {
    if (!info.audio)
        Fail(TranscodingError::SourceUnreadable,
             std::string("A generator of ") + NameOf(settings.kind) + " has no sound");
    if (settings.kind == Kind::Tone)
        return new ToneFF(settings);
    const auto format = Conf::IFormatCodecAudio::Create();
    format->SetSampleRate(settings.sampleRate);
    format->SetChannelLayout(settings.channelLayout);
    format->SetSampleFormat(Conf::SAMPLE_FORMAT_FLTP);
    return MakeSilence(format, settings.duration);
}

std::vector<Proc::SourceNote> GeneratorSource::TakeNotes() {
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<Proc::SourceNote> taken;
    for (; notesTaken < notes.size(); ++notesTaken)
        taken.push_back({path, notes[notesTaken]});
    return taken;
}

void GeneratorSource::Note(const std::string& what) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (std::find(notes.begin(), notes.end(), what) == notes.end())
        notes.push_back(what);
}

} // namespace Kestra::FF
