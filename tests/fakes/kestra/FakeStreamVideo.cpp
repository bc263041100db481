// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeStreamVideo.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include <utility>

namespace Kestra::Fakes {

FakeStreamVideo::FakeStreamVideo(int frames, Rational rate, Conf::FrameInfo info, std::shared_ptr<Script> script)
    : frames(frames)
    , rate(rate)
    , info(info)
    , script(std::move(script)) {}

std::int64_t FakeStreamVideo::TimeOf(int number) const {
    return FramesToTime(number, rate);
}

boost::intrusive_ptr<Proc::IDataVideo> FakeStreamVideo::ReadVideo() {
    script->Call("ReadVideo " + std::to_string(next));
    if (interrupted) {
        throw Proc::Interrupted();
    }
    if (next >= frames) {
        return nullptr;
    }
    const int number = next++;
    const std::int64_t time = TimeOf(number);
    return new FakeFrame(number, time, TimeOf(number + 1) - time, info);
}

void FakeStreamVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(info.width, info.height, info.aspectNumerator, info.aspectDenominator);
    format->SetFrameRate(rate);
    format->SetPixelFormat(Conf::PixelFormat::YUV420P);
}

void FakeStreamVideo::Initialize(const Core::Property& newSettings) {
    script->Call("Initialize");
    settings = newSettings;
}

std::int64_t FakeStreamVideo::GetDuration() const {
    return durationKnown ? TimeOf(frames) : TIME_UNKNOWN;
}

std::int64_t FakeStreamVideo::GetPosition() const {
    return TimeOf(next);
}

void FakeStreamVideo::Seek(std::int64_t time, Proc::SeekMode) {
    script->Call("Seek " + std::to_string(time));
    if (!seekable) {
        throw Proc::FilterException("The fake video stream was made unable to seek.");
    }
    next = 0;
    while (next < frames && TimeOf(next + 1) <= time) {
        ++next;
    }
}

void FakeStreamVideo::Interrupt() {
    interrupted = true;
    script->Call("Interrupt");
    script->OpenGates();
}

void FakeStreamVideo::PreferFormat(const Conf::IFormatCodec&) {
    script->Call("PreferFormat");
}

void FakeStreamVideo::Prepare() {
    script->Call("Prepare");
}

void FakeStreamVideo::Reset() {
    script->Call("Reset");
    interrupted = false;
    next = 0;
}

} // namespace Kestra::Fakes
