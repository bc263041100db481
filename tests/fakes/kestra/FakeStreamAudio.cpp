// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeStreamAudio.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <utility>

namespace Kestra::Fakes {

FakeStreamAudio::FakeStreamAudio(std::int64_t samples, int rate, std::int64_t blockSize, std::shared_ptr<Script> script)
    : samples(samples)
    , rate(rate)
    , blockSize(blockSize)
    , script(std::move(script)) {}

boost::intrusive_ptr<Proc::IDataAudio> FakeStreamAudio::ReadAudio() {
    script->Call("ReadAudio " + std::to_string(next));
    if (interrupted) {
        throw Proc::Interrupted();
    }
    if (next >= samples) {
        return nullptr;
    }
    const std::int64_t first = next;
    next = std::min(samples, first + blockSize);
    return new FakeBlock(SamplesToTime(first, rate), next - first, rate);
}

void FakeStreamAudio::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    format = Conf::IFormatCodecAudio::Create();
    format->SetSampleRate(rate);
    format->SetChannelLayout(Conf::CHANNEL_LAYOUT_STEREO);
    format->SetSampleFormat(Conf::SAMPLE_FORMAT_FLTP);
}

void FakeStreamAudio::Initialize(const Core::Property& newSettings) {
    script->Call("Initialize");
    settings = newSettings;
}

std::int64_t FakeStreamAudio::GetDuration() const {
    return SamplesToTime(samples, rate);
}

std::int64_t FakeStreamAudio::GetPosition() const {
    return SamplesToTime(next, rate);
}

void FakeStreamAudio::Seek(std::int64_t time, Proc::SeekMode) {
    script->Call("Seek " + std::to_string(time));
    next = std::clamp<std::int64_t>(TimeToSamples(time, rate), 0, samples);
}

void FakeStreamAudio::Interrupt() {
    interrupted = true;
    script->Call("Interrupt");
    script->OpenGates();
}

void FakeStreamAudio::PreferFormat(const Conf::IFormatCodec&) {
    script->Call("PreferFormat");
}

void FakeStreamAudio::Prepare() {
    script->Call("Prepare");
}

void FakeStreamAudio::Reset() {
    script->Call("Reset");
    interrupted = false;
    next = 0;
}

} // namespace Kestra::Fakes
