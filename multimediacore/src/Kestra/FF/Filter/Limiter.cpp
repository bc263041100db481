// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/Limiter.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/ChannelPair.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Filter/ResamplerFF.h"
#include <algorithm>
#include <climits>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace Kestra::FF {

namespace {

// alimiter's
constexpr double LOWEST_CEILING = 0.0625;
constexpr double MOST_GAIN = 64;

/// Without its automatic gain nothing but peaks changes. Look-ahead and release are in milliseconds.
std::string Chain(double ceiling, double gain) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << "alimiter=limit=" << ceiling << ":level_in=" << gain
         << ":level=0:latency=1:attack=5:release=50,aformat=sample_fmts=fltp";
    return text.str();
}

/// How long before the target of a seek it begins to listen: a peak there is forgotten by then.
constexpr std::int64_t SETTLING = TIME_BASE / 4;

} // namespace

Limiter::Limiter(const boost::intrusive_ptr<Proc::IStreamAudio>& source, double ceiling, double gain)
    : AudioFilterBase(source, "limiter")
    , graph(Chain(ceiling, gain), "Limiting the peaks of sound failed") {}

void Limiter::Begin() {
    graph.Reset();
    queue.Clear();
    sourceEnded = false;
    position = 0;
}

void Limiter::Reset() {
    source->Reset();
    Begin();
}

std::int64_t Limiter::GetPosition() const {
    return shape ? SamplesToTime(position, shape->sample_rate) : source->GetPosition();
}

boost::intrusive_ptr<Proc::IDataAudio> Limiter::ReadAudio() {
    while (queue.GetCount() == 0 && !sourceEnded)
        ReadOn();
    FrameHandle block = queue.TakeFront(INT_MAX);
    if (!block)
        return nullptr;
    const std::int64_t time = SamplesToTime(position, block->sample_rate);
    position += block->nb_samples;
    return new DataAudioFF(std::move(block), time);
}

void Limiter::ReadOn() {
    const auto data = source->ReadAudio();
    if (data) {
        shape = MakeFrameReference(FrameOf(*data));
        graph.Send(*WithSpeakers(*shape));
    } else {
        graph.Finish();
        sourceEnded = true;
    }
    Collect();
}

void Limiter::Collect() {
    while (FrameHandle block = graph.Receive()) {
        Check(av_channel_layout_copy(&block->ch_layout, &shape->ch_layout), Proc::TranscodingError::OutOfMemory,
              "channel layout");
        queue.Push(std::move(block));
    }
}

void Limiter::Seek(std::int64_t time, Proc::SeekMode) {
    Begin();
    source->Seek(std::max<std::int64_t>(time - SETTLING, 0), Proc::SeekMode::Exact);
    const std::int64_t from = source->GetPosition();
    ReadOn();
    if (!shape)
        return;
    position = TimeToSamples(from, shape->sample_rate);
    const std::int64_t wanted = TimeToSamples(time, shape->sample_rate);
    while (position < wanted && (queue.GetCount() > 0 || !sourceEnded)) {
        const std::int64_t skipped = std::min(wanted - position, queue.GetCount());
        queue.Skip(skipped);
        position += skipped;
        if (queue.GetCount() == 0 && !sourceEnded)
            ReadOn();
    }
}

boost::intrusive_ptr<Proc::IStreamAudio> MakeLimiter(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                     double ceiling, double gain) {
    if (!source)
        KESTRA_THROW(std::invalid_argument("a limiter needs a stream; it was given none"));
    if (!(ceiling >= LOWEST_CEILING && ceiling <= 1))
        KESTRA_THROW(std::invalid_argument("sound cannot be limited to " + std::to_string(ceiling) +
                                           " of full scale; from 1/16 to 1 it can"));
    if (!(gain >= 1 / MOST_GAIN && gain <= MOST_GAIN))
        KESTRA_THROW(std::invalid_argument("sound cannot be made " + std::to_string(gain) +
                                           " times as loud; 1/64 to 64 it can"));
    Conf::SampleInfo planar;
    planar.Init(Conf::SAMPLE_FORMAT_FLTP, -1, Conf::CHANNEL_LAYOUT_UNKNOWN);
    return new Limiter(MakeResampler(source, planar), ceiling, gain);
}

} // namespace Kestra::FF
