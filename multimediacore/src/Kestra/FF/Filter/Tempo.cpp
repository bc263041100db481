// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/Tempo.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/ChannelPair.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Filter/ResamplerFF.h"
#include <algorithm>
#include <climits>
#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr int DEFAULT_RATE = 48000;
constexpr int BLOCK = 4096;
const char* const FAILURE = "Changing the speed of sound failed";

std::ostringstream Text() {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setprecision(17);
    return text;
}

/// One atempo goes from half to double speed without leaving anything out. What does not fill its last piece it loses:
/// silence, here, of more than two pieces, which are shorter than a tenth of a second.
std::string KeptPitch(double speed, int rate) {
    const int stages = std::max(1, static_cast<int>(std::ceil(std::abs(std::log2(speed)) - 1e-9)));
    std::ostringstream text = Text();
    for (int stage = 0; stage < stages; ++stage)
        text << "apad=pad_len=" << rate / 4 << ",atempo=tempo=" << std::pow(speed, 1.0 / stages) << ",";
    text << "aformat=sample_fmts=fltp";
    return text.str();
}

/// What counts of the two rates is their ratio.
std::string MovedPitch(const Tempo::Speed& speed) {
    AVRational ratio = {1, 1};
    av_reduce(&ratio.num, &ratio.den, speed.numerator(), speed.denominator(), INT_MAX / 2);
    const int times = std::max(1, DEFAULT_RATE / std::max(ratio.num, ratio.den));
    std::ostringstream text = Text();
    text << "asetrate=" << ratio.num * times << ",aresample=" << ratio.den * times << ",aformat=sample_fmts=fltp";
    return text.str();
}

} // namespace

Tempo::Tempo(const boost::intrusive_ptr<Proc::IStreamAudio>& source, const Speed& speed, Proc::Pitch pitch)
    : AudioFilterBase(source, "tempo")
    , speed(speed)
    , pitch(pitch) {}

std::int64_t Tempo::ToSource(std::int64_t sample) const {
    return MulDivRound(sample, speed.numerator(), speed.denominator());
}

std::int64_t Tempo::FromSource(std::int64_t sample) const {
    return MulDivRound(sample, speed.denominator(), speed.numerator());
}

std::int64_t Tempo::GetDuration() const {
    const std::int64_t duration = source->GetDuration();
    if (duration == TIME_UNKNOWN)
        return TIME_UNKNOWN;
    boost::intrusive_ptr<Conf::IFormatCodecAudio> format;
    GetAudioFormat(format);
    const int known = format->GetSampleRate() > 0 ? format->GetSampleRate() : DEFAULT_RATE;
    return SamplesToTime(FromSource(TimeToSamples(duration, known)), known);
}

std::int64_t Tempo::GetPosition() const {
    return rate > 0 ? SamplesToTime(position, rate) : 0;
}

void Tempo::Prepare() {
    source->Prepare();
    Settle();
}

void Tempo::Settle() {
    if (rate > 0)
        return;
    boost::intrusive_ptr<Conf::IFormatCodecAudio> format;
    GetAudioFormat(format);
    rate = format->GetSampleRate() > 0 ? format->GetSampleRate() : DEFAULT_RATE;
    const std::int64_t duration = GetDuration();
    total = duration == TIME_UNKNOWN ? -1 : TimeToSamples(duration, rate);
    Begin(0, 0);
}

void Tempo::Reset() {
    source->Reset();
    rate = 0;
    position = 0;
    onsets.reset();
    sourceEnded = false;
    queue.Clear();
}

std::string Tempo::Chain() const {
    return pitch == Proc::Pitch::Kept ? KeptPitch(boost::rational_cast<double>(speed), rate) : MovedPitch(speed);
}

void Tempo::Begin(std::int64_t sourceSample, std::int64_t sample) {
    graph.emplace(Chain(), FAILURE);
    read = sourceSample;
    begin = sample;
    made = 0;
    if (!onsets)
        onsets.emplace(rate);
}

boost::intrusive_ptr<Proc::IDataAudio> Tempo::ReadAudio() {
    Settle();
    const std::int64_t left = total >= 0 ? total - position : INT_MAX;
    if (left <= 0)
        return nullptr;
    while (queue.GetCount() == 0 && !sourceEnded)
        ReadOn();
    FrameHandle block = queue.TakeFront(left);
    if (!block)
        return nullptr;
    const std::int64_t time = SamplesToTime(position, rate);
    position += block->nb_samples;
    return new DataAudioFF(std::move(block), time);
}

void Tempo::ReadOn() {
    const auto data = source->ReadAudio();
    if (!data) {
        End();
        sourceEnded = true;
        return;
    }
    const AVFrame& block = FrameOf(*data);
    int done = 0;
    while (pitch == Proc::Pitch::Kept) {
        const int onset = onsets->Find(block, done);
        if (onset == block.nb_samples)
            break;
        Send(*data->Slice(done, onset - done));
        End();
        Begin(read, FromSource(read));
        done = onset;
    }
    Send(*data->Slice(done, block.nb_samples - done));
}

void Tempo::Send(const Proc::IDataAudio& data) {
    const AVFrame& block = FrameOf(data);
    if (!shape)
        shape = MakeFrameReference(block);
    if (block.nb_samples == 0)
        return;
    read += block.nb_samples;
    graph->Send(*WithSpeakers(block));
    Collect(INT64_MAX);
}

void Tempo::Collect(std::int64_t limit) {
    while (FrameHandle block = graph->Receive()) {
        block->sample_rate = rate;
        Check(av_channel_layout_copy(&block->ch_layout, &shape->ch_layout), Proc::TranscodingError::OutOfMemory,
              "channel layout");
        block->nb_samples =
            static_cast<int>(std::min<std::int64_t>(block->nb_samples, std::max<std::int64_t>(limit - made, 0)));
        made += block->nb_samples;
        queue.Push(std::move(block));
    }
}

// What atempo holds back comes, what is over is cut, what is missing is silence.
void Tempo::End() {
    const std::int64_t wanted = FromSource(read) - begin;
    graph->Finish();
    Collect(wanted);
    while (made < wanted) {
        const int count = static_cast<int>(std::min<std::int64_t>(wanted - made, BLOCK));
        queue.Push(MakeSamples(AV_SAMPLE_FMT_FLTP, rate, shape->ch_layout, count));
        made += count;
    }
}

// Samples of both sides coincide at multiples of the denominator: from there on, what is made after a seek is what is
// made without one. Some samples before let the resampler's filter settle.
std::int64_t Tempo::SeekOrigin(std::int64_t sample) const {
    if (pitch == Proc::Pitch::Kept)
        return sample;
    const std::int64_t settled = std::max<std::int64_t>(sample - rate / 10, 0);
    return settled - settled % std::min<std::int64_t>(speed.denominator(), rate);
}

void Tempo::Seek(std::int64_t time, Proc::SeekMode) {
    Settle();
    const std::int64_t last = total >= 0 ? total : INT64_MAX;
    const std::int64_t wanted = std::clamp<std::int64_t>(TimeToSamples(time, rate), 0, last);
    const std::int64_t origin = SeekOrigin(wanted);
    queue.Clear();
    sourceEnded = false;
    onsets.reset();
    Begin(ToSource(origin), origin);
    source->Seek(SamplesToTime(read, rate), Proc::SeekMode::Exact);
    std::int64_t ahead = wanted - origin;
    while (ahead > 0 && !sourceEnded) {
        if (queue.GetCount() == 0)
            ReadOn();
        const std::int64_t skipped = std::min(ahead, queue.GetCount());
        queue.Skip(skipped);
        ahead -= skipped;
    }
    position = wanted;
}

boost::intrusive_ptr<Proc::IStreamAudio> MakeTempo(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                   const Tempo::Speed& speed, Proc::Pitch pitch) {
    if (!source)
        KESTRA_THROW(std::invalid_argument("a change of tempo needs a stream; it was given none"));
    if (speed < Tempo::Speed(1, 100) || speed > 100)
        KESTRA_THROW(std::invalid_argument("sound cannot be played at " + std::to_string(speed.numerator()) + "/" +
                                           std::to_string(speed.denominator()) + " of its speed"));
    if (speed == 1)
        return source;
    Conf::SampleInfo planar;
    planar.Init(Conf::SAMPLE_FORMAT_FLTP, -1, Conf::CHANNEL_LAYOUT_UNKNOWN);
    return new Tempo(MakeResampler(source, planar), speed, pitch);
}

} // namespace Kestra::FF
