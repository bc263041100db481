// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/AudioEncoderCore.h"

#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/DecoderPreroll.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/CodecParametersFF.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/DataRawFF.h"
#include "Kestra/FF/Encode/ChunkEncoder.h"
#include "Kestra/FF/Encode/ChunkedLoop.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/EncoderCatalogue.h"
#include "Kestra/FF/Encode/PacketBursts.h"
#include "Kestra/FF/Encode/SampleBatches.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <algorithm>
#include <climits>
#include <utility>

namespace Kestra::FF {

using Conf::IFormatCodecAudio;
using Proc::TranscodingError;

namespace {

/// Batches.
constexpr int READ_AHEAD = 3;
/// Samples a packet for codecs that take any number.
constexpr int FREE_FRAME_SIZE = 2048;
/// So that a thread that has done its chunk finds another one.
constexpr int WAITING_CHUNKS = 1;

boost::intrusive_ptr<IFormatCodecAudio> DescriptionOf(const Core::Property& tree) {
    auto description = IFormatCodecAudio::Create();
    description->SetProperty(tree);
    return description;
}

/// Those that stand alone are obeyed here; of the others each case says where.
void Obey(AVCodecContext& context, const IFormatCodecAudio& description, Conf::AudioSetting setting) {
    switch (setting) {
    case Conf::AudioSetting::Bitrate:
        return SetAudioRateControl(context, description);
    // In ChooseSamples, before there is an encoder.
    case Conf::AudioSetting::SampleRate:
    case Conf::AudioSetting::ChannelLayout:
    // The encoder itself, and what it is told by name.
    case Conf::AudioSetting::Codec:
    case Conf::AudioSetting::Options:
        return;
    }
}

/// What a thread needs to open an encoder, beside the options.
struct Settings {
    const AVCodec* codec;
    EncodeSamples samples;
    boost::intrusive_ptr<const IFormatCodecAudio> description;
};

CodecContextHandle Configure(const Settings& settings, const OptionList& options) {
    const EncodeSamples& samples = settings.samples;
    CodecContextHandle context = MakeCodecContext(settings.codec);
    context->sample_fmt = samples.format;
    context->sample_rate = samples.rate;
    const AVChannelLayout layout = ToAvLayout(samples.layout);
    Check(av_channel_layout_copy(&context->ch_layout, &layout), TranscodingError::CodecRefused, "channel layout");
    context->time_base = {1, samples.rate};
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    AudioDriver::Of(*settings.codec).Settle(*context);
    for (int setting = 0; setting < Conf::CountOf<Conf::AudioSetting>(); ++setting)
        Obey(*context, *settings.description, static_cast<Conf::AudioSetting>(setting));
    options.ApplyTo(context.get(), settings.codec->name, TranscodingError::CodecRefused);
    return context;
}

std::unique_ptr<IEncoderLoop> OpenWith(const Settings& settings, const OptionList& options) {
    const auto configure = [&](const OptionList& chosen) { return Configure(settings, chosen); };
    return std::make_unique<EncoderLoop>(configure, options, settings.codec->name);
}

/// For what begins within the sound.
std::unique_ptr<IEncoderLoop> OpenInside(const Settings& settings, const OptionList& options) {
    const AudioDriver& driver = AudioDriver::Of(*settings.codec);
    int before = 0;
    const auto configure = [&](const OptionList& chosen) {
        CodecContextHandle context = Configure(settings, chosen);
        before = std::exchange(context->global_quality, driver.QualityToBeginWith(*context));
        return context;
    };
    auto opened = std::make_unique<EncoderLoop>(configure, options, settings.codec->name);
    opened->GetContext().global_quality = before;
    return opened;
}

} // namespace

AudioEncoderCore::AudioEncoderCore(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                   const Core::Property& description)
    : EncoderCore(description)
    , stream(stream)
    , codec(&FindEncoder(*DescriptionOf(description), AVMEDIA_TYPE_AUDIO)) {
    for (const auto& track : stream->GetFurtherTracks())
        further.emplace_back(new AudioEncoderCore(track, description));
}

void AudioEncoderCore::Initialize(const Core::Property& settings) {
    EncoderCore::Initialize(settings);
    for (const auto& track : further)
        track->Initialize(settings);
}

std::vector<boost::intrusive_ptr<Proc::IPacketSource>> AudioEncoderCore::GetFurtherTracks() const {
    return {further.begin(), further.end()};
}

boost::intrusive_ptr<IFormatCodecAudio> AudioEncoderCore::MakeDescription() const {
    return DescriptionOf(EncoderCore::GetDescription());
}

std::string AudioEncoderCore::Describe() const {
    return std::string(codec->name) + " on " + stream->Describe();
}

void AudioEncoderCore::AlignTo(std::int64_t start, std::int64_t end) {
    if (IsPrepared())
        Fail(TranscodingError::NotSupported, Describe() + " runs already and cannot be aligned any more");
    alignStart = start;
    alignEnd = end;
}

std::int64_t AudioEncoderCore::GetDuration() const {
    const std::int64_t duration = stream->GetDuration();
    if (!IsPrepared() || duration == TIME_UNKNOWN)
        return duration;
    return SamplesToTime(TimeToSamples(duration, samples.rate), samples.rate);
}

std::unique_ptr<IEncoderLoop> AudioEncoderCore::Open() {
    const auto description = MakeDescription();
    BuildChain(*description);
    const auto open = [settings = Settings{codec, samples, description}, options = GetOptions({})](bool inside) {
        return inside ? OpenInside(settings, options) : OpenWith(settings, options);
    };
    std::unique_ptr<IEncoderLoop> opened = open(false);
    const AVCodecContext& context = opened->GetContext();
    lengthOf = Driver().LengthsOf(context);
    ChooseWindow(context);
    SkipToFirst();
    chain = new SampleBatches(chain, total < 0 ? INT64_MAX : total - queue.GetCount());
    chain = Core::CoreManager::Instance().GetFilterFactory().CreateReadAhead(chain, READ_AHEAD);
    const auto rule = ChooseChunks(context);
    return rule ? InChunks(std::move(opened), *rule, open) : std::make_unique<PacketBursts>(std::move(opened));
}

std::unique_ptr<IEncoderLoop> AudioEncoderCore::InChunks(std::unique_ptr<IEncoderLoop> model, const ChunkRule& rule,
                                                         ChunkEncoder::OpenOne open) {
    const std::shared_ptr<PacketJoiner> joiner = Driver().MakeJoiner(model->GetContext());
    const auto encoder = std::make_shared<ChunkEncoder>(std::move(open), rule.reusable, model->GetContext(), joiner);
    const int threads = CountWorkers();
    workers->Start(
        [encoder](const EncoderChunk& chunk, const auto& cancelled) { return encoder->Encode(chunk, cancelled); },
        threads);
    return std::make_unique<ChunkedLoop>(std::move(model), rule, joiner, workers, threads + WAITING_CHUNKS);
}

std::optional<ChunkRule> AudioEncoderCore::ChooseChunks(const AVCodecContext& context) const {
    if (besideOthers || CountWorkers() == 0)
        return std::nullopt;
    auto rule = Driver().ChunksOf(context);
    const Core::Property& tree = EncoderCore::GetDescription();
    if (rule && tree.ChildExists(TAG_CHUNK_SAMPLES))
        rule->samples = static_cast<int>(tree[TAG_CHUNK_SAMPLES].GetInt64());
    return rule;
}

int AudioEncoderCore::CountWorkers() const {
    const Core::Property& tree = EncoderCore::GetDescription();
    return tree.ChildExists(TAG_WORKERS) ? static_cast<int>(tree[TAG_WORKERS].GetInt64())
                                         : ChunkWorkers::UsualThreads();
}

void AudioEncoderCore::BuildChain(const IFormatCodecAudio& description) {
    stream->Prepare();
    boost::intrusive_ptr<IFormatCodecAudio> format;
    stream->GetAudioFormat(format);
    codec = &EncoderForSamples(*codec, description, *format);
    samples = ChooseSamples(description, *format, *codec);
    format->SetSampleRate(samples.rate);
    format->SetChannelLayout(samples.layout);
    format->SetSampleFormat(FromAv(samples.format));
    format->SetSampleBits(samples.bits);
    Core::Property preferred = format->GetProperty();
    preferred.SetChild(IFormatCodecAudio::TAG_CHANNEL_LAYOUT_ORDERED, description.GetChannelLayout() != 0);
    format->SetProperty(preferred);
    TakeProgramme(*format, stream->GetDuration());
    stream->PreferFormat(*format);
    Conf::SampleInfo target;
    target.Init(FromAv(samples.format), samples.rate, samples.layout);
    chain = Core::CoreManager::Instance().GetFilterFactory().CreateResampler(stream, target);
    chain->Prepare();
}

// Around a cut the encoder hears what is there, so that nothing clicks; the packets of it are whole, so that one begins
// at the cut itself. Where packets have no fixed length, the first one gives no audio.
std::int64_t AudioEncoderCore::Surroundings(const AVCodecContext& context) const {
    if (!Driver().HasFixedPackets() || context.frame_size <= 0)
        return 0;
    CodecParametersHandle parameters = MakeCodecParameters();
    Check(avcodec_parameters_from_context(parameters.get(), &context), TranscodingError::EncodeFailed,
          "The encoder's parameters");
    return (PrerollSamples(*parameters) + context.frame_size - 1) / context.frame_size * context.frame_size;
}

// Nothing is encoded that a cut would throw away: a short range of a long project costs what the range costs.
void AudioEncoderCore::ChooseWindow(const AVCodecContext& context) {
    const std::int64_t duration = stream->GetDuration();
    const std::int64_t whole = duration == TIME_UNKNOWN ? INT64_MAX : TimeToSamples(duration, samples.rate);
    const bool cut = alignEnd != INT64_MAX;
    const std::int64_t around = cut ? Surroundings(context) : 0;
    const std::int64_t start = std::min(TimeToSamples(alignStart, samples.rate), whole);
    const std::int64_t ahead =
        context.frame_size > 0 ? std::min(around, start / context.frame_size * context.frame_size) : 0;
    firstSample = start - ahead;
    if (!cut)
        total = whole == INT64_MAX ? -1 : whole;
    else
        total = std::min(ahead + TimeToSamples(alignEnd - alignStart, samples.rate) + around, whole - firstSample);
}

void AudioEncoderCore::SkipToFirst() {
    if (firstSample == 0)
        return;
    if (chain->IsSeekable())
        return chain->Seek(SamplesToTime(firstSample, samples.rate), Proc::SeekMode::Exact);
    std::int64_t ahead = firstSample;
    while (ahead > 0) {
        const auto block = chain->ReadAudio();
        if (!block)
            return;
        const std::int64_t count = block->GetSampleCount();
        if (count > ahead)
            queue.Push(MakeFrameReference(FrameOf(*block->Slice(ahead, count - ahead))));
        ahead -= std::min(ahead, count);
    }
}

int AudioEncoderCore::FrameSize() const {
    return GetContext().frame_size > 0 ? GetContext().frame_size : FREE_FRAME_SIZE;
}

bool AudioEncoderCore::ReadOn() {
    const auto block = sourceEnded ? nullptr : chain->ReadAudio();
    sourceEnded = !block;
    if (block)
        queue.Push(MakeFrameReference(FrameOf(*block)));
    return !sourceEnded;
}

// The last samples come out of a decoder as much later as the codec puts in front. Encoders that are not drained give
// them no packet of their own: silence behind them does.
int AudioEncoderCore::TailSize() const {
    return (codec->capabilities & AV_CODEC_CAP_DELAY) != 0 ? 0 : GetContext().initial_padding;
}

FrameHandle AudioEncoderCore::NextFrame() {
    // Not beyond the end: what lies behind a cut may be damaged, and is nobody's business.
    const std::int64_t heard = total >= 0 ? total - sent : INT64_MAX;
    while (queue.GetCount() < std::min<std::int64_t>(heard, FrameSize()) && ReadOn())
        ;
    if (total < 0 && sourceEnded)
        total = sent + queue.GetCount();
    const std::int64_t left = total >= 0 ? total + TailSize() - fed : INT64_MAX;
    const auto count = static_cast<int>(std::min<std::int64_t>(left, FrameSize()));
    if (count == 0 || total == 0)
        return nullptr;
    FrameHandle frame = queue.GetCount() > 0
                            ? queue.Take(count)
                            : MakeSamples(samples.format, samples.rate, ToAvLayout(samples.layout), count);
    frame->pts = fed;
    fed += count;
    sent = total >= 0 ? std::min(fed, total) : fed;
    return frame;
}

boost::intrusive_ptr<Proc::IDataRaw> AudioEncoderCore::Finish(PacketHandle packet) {
    if (packet->pts == AV_NOPTS_VALUE)
        packet->pts = sent;
    const std::int64_t length = packet->size > 0 ? lengthOf(*packet) : 0;
    const std::int64_t end = packet->pts + length;
    const bool complete = sourceEnded || sent == total;
    const bool wanted = packets < Driver().LeastPackets();
    if (complete && packet->size > 0 && packet->pts >= sent && !wanted)
        return nullptr;
    ++packets;
    const std::int64_t over = complete && packet->size > 0 ? std::max<std::int64_t>(end - sent, 0) : 0;
    packet->duration = length;
    packet->pts += firstSample;
    packet->dts = packet->pts;
    auto result = boost::intrusive_ptr<Proc::IDataRaw>(new DataRawFF(std::move(packet), {1, samples.rate}));
    result->SetTrim(0, SamplesToTime(over, samples.rate));
    position = std::max(position, result->GetTime() + result->GetDuration() - result->GetTrimEnd());
    return result;
}

void AudioEncoderCore::InterruptSource() {
    stream->Interrupt();
    workers->Interrupt();
}

void AudioEncoderCore::ResetSource() {
    workers->Reset();
    chain.reset();
    queue.Clear();
    stream->Reset();
    sent = 0;
    fed = 0;
    packets = 0;
    position = 0;
    sourceEnded = false;
}

void AudioEncoderCore::GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    auto description = MakeDescription();
    if (!IsPrepared()) {
        format = description;
        return;
    }
    description->SetSampleRate(samples.rate);
    description->SetChannelLayout(samples.layout);
    description->SetSampleFormat(FromAv(samples.format));
    if (!GetProgramme().IsEmpty())
        GetProgramme().TellIn(*description);
    format = MakeAudioParameters(GetParameters(), {1, samples.rate}, description->GetProperty());
}

} // namespace Kestra::FF
