// SPDX-License-Identifier: GPL-3.0-or-later
// The start attempt and the factories that it hands to the runner.
#include "Export/Transcoder.h"

#include "Branding/BrandingController.h"
#include "EditorPreset/Preset.h"
#include "Export/CreateStreamProcessingHelper.h"
#include "Export/PresetProvider.h"
#include "Export/TranscoderErrorText.h"
#include "Export/TranscoderLog.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/Segmenter.h"
#include "Kestra/Util/TemporaryDir.h"
#include "Types/Time.h"
#include <QPixmap>
#include <QPointer>
#include <boost/exception/diagnostic_information.hpp>

namespace Export {

namespace {

constexpr int SINGLE_PASS = 0;
constexpr int TWO_PASSES = 1;
constexpr QLatin1Char BLANK(' ');

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
    if (!takeStreams()) {
        return;
    }
    auto videoStream = videoStreamObject.impl;
    auto audioStream = audioStreamObject.impl;
    const bool audioOnly = audioNeeded() && !videoNeeded();
    tempDir = std::make_unique<Kestra::Util::TemporaryDir>();
    if (!addBranding(videoStream, audioStream)) {
        return;
    }

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

/// The streams' owner applies these requests before each statement is over. False when somebody who heard of that has
/// destroyed this object.
bool Transcoder::takeStreams() {
    const QPointer<Transcoder> self(this);
    if (videoNeeded()) {
        VideoView::streamChange(&videoStreamObject)->using_ = true;
    }
    if (self && audioNeeded()) {
        AudioView::streamChange(&audioStreamObject)->using_ = true;
    }
    return !self.isNull();
}

/// False when it failed, which has been reported then: this object may be gone. Only this step of an attempt is
/// guarded; whatever else is thrown on the way leaves through the event loop.
bool Transcoder::addBranding(boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& video,
                             boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audio) {
    try {
        BrandingController branding;
        branding.setBranding(QPixmap(QStringLiteral(":/BrandingOutro/%1/outro.png").arg(brandingName, 0, BLANK)));
        video = branding.addBranding(video);
        audio = branding.addBranding(audio);
        return true;
    } catch (const std::exception& exception) {
        reportBrandingFailure(exception);
        return false;
    }
}

void Transcoder::reportBrandingFailure(const std::exception& exception) {
    const auto error = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
    TranscoderLog::write(TranscoderLog::PREPARE_ERROR, errorText(error));
    TranscoderLog::write(TranscoderLog::PREPARE_DETAILS, boost::diagnostic_information(exception));
    const QPointer<Transcoder> self(this);
    Q_EMIT failed(error);
    if (self) {
        Q_EMIT stopped();
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
