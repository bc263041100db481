// The start attempt and the factories that it hands to the runner.
#include "Export/Transcoder.h"

#include "EditorPreset/Preset.h"
#include "Export/CreateStreamProcessingHelper.h"
#include "Export/PresetProvider.h"
#include "Export/TranscoderLog.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/Segmenter.h"
#include "Kestra/Util/TemporaryDir.h"
#include "Types/Time.h"

namespace Export {

namespace {

constexpr int SINGLE_PASS = 0;
constexpr int TWO_PASSES = 1;

int passMode(const Preset& preset, bool audioOnly) {
    const bool twoPasses =
        !audioOnly && preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != BitrateMode::Quality;
    return twoPasses ? TWO_PASSES : SINGLE_PASS;
}

bool cuts(const Types::Range& range) {
    return range.end > range.start;
}

} // namespace

void Transcoder::tryToStart() {
    if (!streamsAreReady()) {
        return;
    }
    TranscoderLog::write(TranscoderLog::TRYING_TO_START);
    takeStreams();
    const auto videoStream = videoStreamObject.impl;
    const auto audioStream = audioStreamObject.impl;
    const bool audioOnly = audioNeeded() && !videoNeeded();
    tempDir = std::make_unique<Kestra::Util::TemporaryDir>();

    const Preset preset = adjustedPreset();
    const MuxerFactory muxerFactory = makeMuxerFactory(preset);
    const EncoderFactory audioFactory = audioNeeded() ? makeAudioEncoderFactory(preset, audioStream) : EncoderFactory();
    const EncoderFactory videoFactory = videoNeeded() ? makeVideoEncoderFactory(preset, videoStream) : EncoderFactory();
    startProcessing(createStreamProcessingHelper(passMode(preset, audioOnly), videoFactory, audioFactory, muxerFactory,
                                                 tempDir->path()));
    TranscoderLog::write(TranscoderLog::STARTED);
}

/// Not ready too when they are taken already: that is how every attempt after the first ends.
bool Transcoder::streamsAreReady() const {
    if (videoNeeded() && !videoStreamObject.available) {
        return false;
    }
    if (audioNeeded() && !audioStreamObject.available) {
        return false;
    }
    if (videoNeeded() && videoStreamObject.using_) {
        return false;
    }
    return !(audioNeeded() && audioStreamObject.using_);
}

// The streams' owner applies these requests before each statement is over.
void Transcoder::takeStreams() {
    if (videoNeeded()) {
        VideoView::streamChange(&videoStreamObject)->using_ = true;
    }
    if (audioNeeded()) {
        AudioView::streamChange(&audioStreamObject)->using_ = true;
    }
}

/// The bitrates become those that the provider gives for what the composition holds now.
Preset Transcoder::adjustedPreset() const {
    Preset preset = presetProvider->preset();
    preset.setVideoBitrateBps(presetProvider->bitrate(Media::View<Media::Video>::media()).maximum);
    preset.setAudioBitrateBps(presetProvider->bitrate(Media::View<Media::Audio>::media()).maximum);
    if (preset.videoBitrateMode() == BitrateMode::Automatic) {
        preset.setVideoBitrateMode(BitrateMode::Variable);
    }
    return preset;
}

MuxerFactory Transcoder::makeMuxerFactory(const Preset& preset) const {
    return [this, preset] {
        const auto format = Kestra::Conf::IFormatFile::Create();
        format->SetProperty(preset.muxerData());
        const auto output = Kestra::Core::DataOutputFF::Create(outputPath);
        return Kestra::Core::CoreManager::Instance().GetMuxerFactory().CreateMuxer(format, output);
    };
}

EncoderFactory
Transcoder::makeAudioEncoderFactory(const Preset& preset,
                                    const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& stream) const {
    return [this, preset, stream] {
        auto encoder = Kestra::Core::CoreManager::Instance().GetCodecFactory().CreateAudioEncoder(
            stream, preset.audioEncoderData());
        if (cuts(exportRange)) {
            // Sound is cut after the encoder and pictures before it: its packets keep their samples' places that way.
            const boost::intrusive_ptr<Kestra::Proc::IStreamRaw> raw = encoder;
            *raw = *Kestra::Proc::CreateAudioSegmenter(raw, Types::toAvTime(exportRange.start),
                                                       Types::toAvTime(exportRange.end));
        }
        return encoder;
    };
}

EncoderFactory
Transcoder::makeVideoEncoderFactory(const Preset& preset,
                                    const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& stream) const {
    return [this, preset, stream] {
        auto source = stream;
        if (cuts(exportRange)) {
            source = Kestra::Proc::CreateVideoSegmenter(stream, Types::toAvTime(exportRange.start),
                                                        Types::toAvTime(exportRange.end));
        }
        auto properties = preset.videoEncoderData();
        if (!properties.ChildExists(Kestra::Conf::IFormatCodec::TAG_CODEC_OPTIONS_ENCODE)) {
            properties.SetChild(Kestra::Conf::IFormatCodec::TAG_CODEC_OPTIONS_ENCODE);
        }
        properties[Kestra::Conf::IFormatCodec::TAG_CODEC_OPTIONS_ENCODE].SetChild(
            Kestra::Conf::IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY, true);
        return Kestra::Core::CoreManager::Instance().GetCodecFactory().CreateVideoEncoder(source, properties);
    };
}

} // namespace Export
