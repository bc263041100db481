// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/SequenceSource.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Source/SequenceVideo.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

const std::atomic<bool> NEVER{false};
/// That one whose end nobody knows is said to have.
constexpr std::int64_t MOST_PICTURES = 1'000'000'000;

const Proc::SettingsImageSequence& Checked(const Proc::SettingsImageSequence& settings) {
    std::int64_t last = 0;
    const bool positive = settings.rate > 0 && settings.step > 0 && settings.count.value_or(1) > 0;
    if (!positive || __builtin_mul_overflow(settings.count.value_or(MOST_PICTURES), settings.step, &last) ||
        __builtin_add_overflow(last, settings.firstNumber, &last) || settings.firstNumber == INT64_MIN)
        KESTRA_THROW(std::invalid_argument("A sequence of pictures needs a rate, a step and a number of pictures above "
                                           "0, and numbers within 64 bits"));
    return settings;
}

ioPath FirstPath(const SequenceFiles& files) {
    if (files.GetPresent().empty())
        Fail(TranscodingError::SourceNotFound,
             "None of the pictures is there, from \"" + files.PathOf(0).ToUtf8() + "\" on");
    return files.PathOf(files.GetPresent().front());
}

} // namespace

SequenceSource::SequenceSource(const Proc::SettingsImageSequence& settings, const std::atomic<bool>* interrupted,
                               const Proc::MediaLimits& limits)
    : settings(Checked(settings))
    , files(settings, interrupted ? *interrupted : NEVER)
    , first(new MediaSource(FirstPath(files), interrupted, limits))
    , info(first->GetInfo()) {
    if (!info.video)
        Fail(TranscodingError::SourceUnreadable, "\"" + GetPath().ToUtf8() + "\" holds no picture");
    info.audio.reset();
    info.audioTracks = 0;
    info.timecode.reset();
    info.duration = FramesToTime(GetCount(), settings.rate);
    info.video->frameRate = settings.rate;
    info.video->variableFrameRate = false;
    info.video->stillPicture = false;
    info.video->start = 0;
    info.video->duration = info.duration;
    info.video->pixelFormat = SequenceVideo::FormatFor(info.video->pixelFormat);
}

std::int64_t SequenceSource::GetCount() const {
    return settings.count.value_or(MOST_PICTURES);
}

std::string SequenceSource::MissingCount() const {
    if (!settings.count)
        return "pictures of it are missing";
    // One that went away since the folder was listed is not among those that were counted then.
    const auto present = static_cast<std::int64_t>(files.GetPresent().size());
    const std::int64_t count = std::max<std::int64_t>(*settings.count - present, 1);
    return "of its " + std::to_string(*settings.count) + " pictures " + std::to_string(count) +
           (count == 1 ? " is missing" : " are missing");
}

void SequenceSource::NoteMissing(std::int64_t index) {
    if (missingNoted.test_and_set())
        return;
    const bool held = settings.missing == Proc::SettingsImageSequence::Missing::Held;
    Note(MissingCount() + ", \"" + files.NameOf(index) +
         (held ? "\" to begin with; the one before, or else the next one, stands in each one's place"
               : "\" to begin with; black stands in each one's place"));
}

void SequenceSource::NoteConformed(std::int64_t index, const std::string& own, const std::string& wanted) {
    if (!conformedNoted.test_and_set())
        Note("not all its pictures are alike: \"" + files.NameOf(index) + "\" is " + own +
             "; all are brought to the first one's size and pixel format, " + wanted);
}

boost::intrusive_ptr<Proc::IStreamVideo> SequenceSource::CreateVideoStream() {
    return new SequenceVideo(this);
}

boost::intrusive_ptr<Proc::IStreamAudio> SequenceSource::CreateAudioStream() {
    Fail(TranscodingError::SourceUnreadable, "Pictures such as \"" + GetPath().ToUtf8() + "\" have no sound");
}

} // namespace Kestra::FF
