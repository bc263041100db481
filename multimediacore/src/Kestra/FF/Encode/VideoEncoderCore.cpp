// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoEncoderCore.h"

#include "Kestra/Base/FolderInUse.h"
#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Data/CodecParametersFF.h"
#include "Kestra/FF/Data/DataRawFF.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Encode/EncoderCatalogue.h"
#include "Kestra/FF/Encode/EncoderLoop.h"
#include "Kestra/FF/Encode/FirstPassDraft.h"
#include "Kestra/FF/Encode/VideoConform.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include "Kestra/FF/Encode/VideoEncoderChoice.h"
#include "Kestra/FF/Encode/VideoRateControl.h"
#include "Kestra/FF/Picture/ChromaPlace.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <algorithm>
#include <climits>
#include <cmath>
#include <optional>
#include <utility>

extern "C" {
#include <libavutil/imgutils.h>
}

namespace Kestra::FF {

using Conf::IFormatCodecVideo;
using Proc::TranscodingError;

namespace {

/// Conformed frames that wait for the encoder, to even out uneven decoding. Of large ones, which fill memory and take
/// long to encode anyway, one is enough.
int FramesAhead(const EncoderInput& input) {
    constexpr int LARGE = 4 << 20;
    return av_image_get_buffer_size(input.format, input.width, input.height, 1) > LARGE ? 1 : 2;
}

boost::intrusive_ptr<IFormatCodecVideo> DescriptionOf(const Core::Property& tree) {
    auto description = IFormatCodecVideo::Create();
    description->SetProperty(tree);
    return description;
}

bool IsInterlaced(const IFormatCodecVideo& format) {
    const Core::Property& tree = format.GetProperty();
    return tree.ChildExists(IFormatCodecVideo::TAG_INTERLACED) && tree[IFormatCodecVideo::TAG_INTERLACED].GetBool();
}

bool WantsHalfFirstPass(const IFormatCodecVideo& description) {
    const Core::Property& tree = description.GetProperty();
    const char* const tag = IFormatCodecVideo::TAG_FIRST_PASS;
    return tree.ChildExists(tag) && tree[tag].GetString() == IFormatCodecVideo::FIRST_PASS_HALF;
}

void SetKeyframeDistance(AVCodecContext& context, const IFormatCodecVideo& description) {
    const char* const tag = IFormatCodecVideo::TAG_GOP_SECONDS;
    if (!description.GetProperty().ChildExists(tag))
        return;
    const double seconds = description.GetProperty()[tag].GetDouble();
    if (!(seconds > 0 && seconds < 3600))
        Fail(TranscodingError::CodecRefused,
             std::string(context.codec->name) + " refuses keyframes " + std::to_string(seconds) + " seconds apart");
    const double frames = std::round(seconds * av_q2d(context.framerate));
    context.gop_size = static_cast<int>(std::clamp(frames, 1.0, 1e6));
}

/// Those that stand alone are obeyed here; of the others each case says where.
void Obey(AVCodecContext& context, const IFormatCodecVideo& description, Conf::VideoSetting setting) {
    switch (setting) {
    case Conf::VideoSetting::GopSeconds:
        return SetKeyframeDistance(context, description);
    // Together, in SetRateControl.
    case Conf::VideoSetting::Bitrate:
    case Conf::VideoSetting::BitrateMode:
    case Conf::VideoSetting::Quality:
    // Before there is an encoder.
    case Conf::VideoSetting::PixelFormat:
    case Conf::VideoSetting::DynamicRange:
    case Conf::VideoSetting::Fields:
    case Conf::VideoSetting::FirstPass:
    // In Open: the encoder, and what it is told by name.
    case Conf::VideoSetting::Codec:
    case Conf::VideoSetting::Profile:
    case Conf::VideoSetting::Options:
        return;
    }
}

} // namespace

VideoEncoderCore::VideoEncoderCore(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                   const Core::Property& description)
    : EncoderCore(description)
    , stream(stream)
    , codec(&FindEncoder(*DescriptionOf(description), AVMEDIA_TYPE_VIDEO)) {}

boost::intrusive_ptr<IFormatCodecVideo> VideoEncoderCore::MakeDescription() const {
    return DescriptionOf(EncoderCore::GetDescription());
}

std::string VideoEncoderCore::Describe() const {
    return std::string(codec->name) + " on " + stream->Describe();
}

const VideoDriver& VideoEncoderCore::Driver() const {
    return VideoDriver::Of(*codec);
}

AVRational VideoEncoderCore::TimeBase() const {
    return av_inv_q(ToAv(rate));
}

std::int64_t VideoEncoderCore::GetDuration() const {
    return frameCount >= 0 ? FramesToTime(frameCount, rate) : stream->GetDuration();
}

std::unique_ptr<IEncoderLoop> VideoEncoderCore::Open() {
    const auto description = MakeDescription();
    const auto twoPass = GetTwoPass();
    if (twoPass || description->GetBitrateMode() == "cbr")
        codec = &EncoderForExactRates(*codec);
    BuildChain(*description);
    allowance.emplace(Driver().LargestPiece(input));
    // x264 and x265 keep the threads that they have begun when they do not find their statistics. Nobody waits for the
    // codec of a run that is stopped, and the folder would go in between.
    std::optional<FolderInUse> statistics;
    if (twoPass) {
        statistics.emplace(twoPass->GetLogFile());
        log = std::make_unique<TwoPassLog>(*twoPass, *codec);
    }
    OptionList options = EncoderOptions();
    if (const Core::Property& tree = description->GetProperty(); tree.ChildExists(Conf::IFormatCodec::TAG_PROFILE))
        Driver().TellProfile(options, tree[Conf::IFormatCodec::TAG_PROFILE]);
    const auto configure = [&](const OptionList& chosen) { return Configure(*description, chosen); };
    return Driver().Wrapped(std::make_unique<EncoderLoop>(configure, options, codec->name, Driver().Advise(input)));
}

OptionList VideoEncoderCore::EncoderOptions() const {
    return GetOptions({IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY});
}

FirstPassDraft VideoEncoderCore::ChooseDraft(const IFormatCodecVideo& description) const {
    const auto twoPass = GetTwoPass();
    if (!twoPass || !twoPass->firstPass || !WantsHalfFirstPass(description))
        return {};
    if (!Driver().ScalesStatistics(EncoderOptions()))
        return FirstPassDraft::WholeFrames(std::string(codec->name) +
                                           " with its options takes no statistics of smaller ones");
    return FirstPassDraft::HalfOf(input, frameCount, rate);
}

void VideoEncoderCore::BuildChain(const IFormatCodecVideo& description) {
    stream->Prepare();
    boost::intrusive_ptr<IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    input = ChooseInput(description, *format, *codec);
    offersFields = IsInterlaced(*format);
    tellsHdr = Conf::HdrInfo::IsTold(*format) && format->GetColour().transfer == input.colour.transfer;
    hdr = CarriesHdr(input.colour.transfer, input.format) && tellsHdr ? MetadataOf(Conf::HdrInfo::Of(*format))
                                                                      : HdrMetadata{};
    codec = &EncoderForSize(*codec, input.width, input.height);
    rate = ChooseFrameRate(description, *format);
    FF::Describe(input, *format);
    format->SetFrameRate(rate);
    Core::Property preferred = format->GetProperty();
    preferred.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT_ORDERED,
                       description.GetProperty().ChildExists(IFormatCodecVideo::TAG_PIXEL_FORMAT));
    format->SetProperty(preferred);
    const std::int64_t duration = stream->GetDuration();
    frameCount = duration == TIME_UNKNOWN ? -1 : TimeToFrames(duration, rate);
    TakeProgramme(*format, GetDuration());
    const FirstPassDraft chosen = ChooseDraft(description);
    draft = chosen.draft;
    Conf::Draft::TellIn(*format, draft);
    Conf::Draft::TellWhyWhole(*format, chosen.whyWhole);
    stream->PreferFormat(*format);
    Proc::IFilterFactory& filters = Core::CoreManager::Instance().GetFilterFactory();
    Proc::SettingsFilterFrameRate settings;
    settings.SetFrameRate(rate);
    const boost::intrusive_ptr<Proc::IStreamVideo> conform =
        new VideoConform(filters.CreateFrameRate(stream, settings), input, draft);
    chain = filters.CreateReadAhead(conform, FramesAhead(input));
    chain->Prepare();
    if (input.interlaced || CarriesHdr(input.colour.transfer, input.format))
        Peek();
}

// The order of the fields, and mostly the display of grading, stand in the frames alone, and the encoder has to know
// them before the first one. So does the place of chroma, which is another one in most of a high range.
void VideoEncoderCore::Peek() {
    peeked = chain->ReadVideo();
    if (!peeked)
        return;
    const AVFrame& frame = FrameOf(*peeked);
    chroma = ChromaLocationOf(frame);
    if (CarriesHdr(input.colour.transfer, input.format) && !tellsHdr)
        hdr = HdrMetadataOf(frame);
    if (input.interlaced)
        SettleFields(frame);
}

// Material that is interlaced in parts may begin with a progressive frame.
void VideoEncoderCore::SettleFields(const AVFrame& first) {
    if (HoldsFields(first))
        input.topFieldFirst = IsTopFieldFirst(first);
    else if (Driver().FlagsFields() || !offersFields)
        input.interlaced = false;
}

CodecContextHandle VideoEncoderCore::Configure(const IFormatCodecVideo& description, const OptionList& options) const {
    CodecContextHandle context = MakeCodecContext(codec);
    ConfigureInput(*context);
    for (int setting = 0; setting < Conf::CountOf<Conf::VideoSetting>(); ++setting)
        Obey(*context, description, static_cast<Conf::VideoSetting>(setting));
    Driver().SetSpeed(*context, options);
    SetRateControl(*context, description, IsApprovedVbrOnly());
    options.ApplyTo(context.get(), codec->name, TranscodingError::CodecRefused);
    SetHdrMetadata(*context, hdr);
    Driver().Settle(*context);
    if (log && log->IsFirstPass())
        ConfigureFirstPass(*context);
    if (!log || !log->IsSupported())
        Driver().SettleOnePass(*context);
    if (log)
        log->Configure(*context);
    return context;
}

void VideoEncoderCore::ConfigureFirstPass(AVCodecContext& context) const {
    Driver().SetFastFirstPass(context);
    if (!draft)
        return;
    context.width = static_cast<int>(draft->width);
    context.height = static_cast<int>(draft->height);
    const double whole = static_cast<double>(input.width) * input.height;
    Driver().SetDraftRate(context, static_cast<double>(context.width) * context.height / whole);
}

void VideoEncoderCore::ConfigureInput(AVCodecContext& context) const {
    context.width = input.width;
    context.height = input.height;
    context.pix_fmt = Driver().CodedFormat(input.format);
    context.sample_aspect_ratio = input.sampleAspect;
    context.time_base = TimeBase();
    context.framerate = ToAv(rate);
    context.color_primaries = static_cast<AVColorPrimaries>(input.colour.primaries);
    context.color_trc = static_cast<AVColorTransferCharacteristic>(input.colour.transfer);
    context.colorspace = static_cast<AVColorSpace>(input.colour.matrix);
    context.color_range = static_cast<AVColorRange>(input.colour.range);
    context.chroma_sample_location = chroma;
    context.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    context.field_order = AV_FIELD_PROGRESSIVE;
    if (offersFields)
        Driver().AllowFields(context);
    if (input.interlaced) {
        context.flags |= AV_CODEC_FLAG_INTERLACED_DCT | AV_CODEC_FLAG_INTERLACED_ME;
        context.field_order = input.topFieldFirst ? AV_FIELD_TT : AV_FIELD_BB;
    }
}

bool VideoEncoderCore::IsApprovedVbrOnly() const {
    const Core::Property& tree = EncoderCore::GetDescription();
    const char* const options = Conf::IFormatCodec::TAG_CODEC_OPTIONS_ENCODE;
    const char* const tag = IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY;
    return tree.ChildExists(options) && tree[options].ChildExists(tag) && tree[options][tag].GetBool();
}

FrameHandle VideoEncoderCore::NextFrame() {
    const bool emptyPass = log && log->IsFirstPass() && !log->IsSupported();
    if (emptyPass || (frameCount >= 0 && framesSent >= frameCount))
        return nullptr;
    const auto data = peeked ? std::exchange(peeked, nullptr) : chain->ReadVideo();
    if (!data)
        return nullptr;
    FrameHandle frame = MakeFrameReference(FrameOf(*data));
    frame->pts = framesSent++;
    // What the source's encoder chose for this frame is nothing to this one.
    ForgetCoding(*frame);
    // It tells of the colours that the frame had in its source.
    av_frame_remove_side_data(frame.get(), AV_FRAME_DATA_ICC_PROFILE);
    frame->quality = GetContext().global_quality;
    if (log)
        log->Guide(*frame);
    return frame;
}

boost::intrusive_ptr<Proc::IDataRaw> VideoEncoderCore::Finish(PacketHandle packet) {
    if (packet->dts == AV_NOPTS_VALUE)
        packet->dts = packet->pts;
    packet->duration = 1;
    if (log)
        log->Note(*packet);
    boost::intrusive_ptr<Proc::IDataRaw> result = new DataRawFF(std::move(packet), TimeBase());
    position = std::max(position, result->GetTime() + result->GetDuration());
    return result;
}

// Some first passes give nothing until their end. Whoever follows the run by its packets gets one without bytes a
// frame.
boost::intrusive_ptr<Proc::IDataRaw> VideoEncoderCore::AfterSend() {
    if (!log || !log->IsFirstPass() || !log->IsSilent())
        return nullptr;
    PacketHandle mark = MakePacket();
    mark->pts = mark->dts = framesSent - 1;
    mark->duration = 1;
    position = FramesToTime(framesSent, rate);
    return new DataRawFF(std::move(mark), TimeBase());
}

void VideoEncoderCore::ExplainFailure() const {
    if (log)
        log->ExplainFailure();
}

void VideoEncoderCore::ExplainShortage() const {
    constexpr std::int64_t MIB = 1 << 20;
    const std::int64_t most = (Driver().LargestPiece(input) + MIB - 1) / MIB;
    Fail(TranscodingError::OutOfMemory,
         std::string(codec->name) + " gets too little memory for pictures of " + std::to_string(input.width) + "x" +
             std::to_string(input.height) +
             (most > 0 ? ", each of which takes up to " + std::to_string(most) + " MiB in one piece" : std::string()) +
             ": smaller pictures, or fewer exports at a time, take less");
}

void VideoEncoderCore::AtEnd() {
    if (!log || !log->IsFirstPass())
        return;
    log->Collect(GetContext());
    // x264 and x265 complete their statistics when they close, and the second pass may begin right after this.
    CloseCodec();
    log->Complete();
}

void VideoEncoderCore::ResetSource() {
    peeked.reset();
    chain.reset();
    log.reset();
    allowance.reset();
    stream->Reset();
    framesSent = 0;
    position = 0;
}

void VideoEncoderCore::GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    auto description = MakeDescription();
    if (!IsPrepared()) {
        format = description;
        return;
    }
    FF::Describe(input, *description);
    description->SetFrameRate(rate);
    if (!GetProgramme().IsEmpty())
        GetProgramme().TellIn(*description);
    format = MakeVideoParameters(GetParameters(), TimeBase(), description->GetProperty(), hdr);
}

} // namespace Kestra::FF
