// SPDX-License-Identifier: GPL-3.0-or-later
// The module with a model of one's own: own-model OUTPUT.mp4 exports two seconds of colour bars and a tone.
#include "Composition/CompositionView.h"
#include "Export/PresetProvider.h"
#include "Export/StreamOwner.h"
#include "Export/Transcoder.h"
#include "Export/TranscoderLogOutput.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Types/Time.h"
#include <QCoreApplication>
#include <cstdio>

using namespace Kestra;

namespace {

boost::intrusive_ptr<Proc::IMediaSource> made(Proc::SettingsGenerator settings, const Types::Range& range) {
    settings.duration = Types::toAvTime(range.end - range.start);
    return Core::CoreManager::Instance().GetSourceFactory().CreateGenerator(settings);
}

boost::intrusive_ptr<Proc::IStreamVideo> makeBars(const Stream::VideoObject& stream) {
    const Media::Video& wanted = *stream.source; // as the preset turns out the composition's pictures
    Proc::SettingsGenerator bars;
    bars.kind = Proc::SettingsGenerator::Kind::Bars;
    bars.frame = {wanted.width, wanted.height, wanted.aspectNumerator, wanted.aspectDenominator};
    bars.frameRate.assign(wanted.frameRateNumerator, wanted.frameRateDenominator);
    return made(bars, stream.range)->CreateVideoStream();
}

boost::intrusive_ptr<Proc::IStreamAudio> makeTone(const Stream::AudioObject& stream) {
    Proc::SettingsGenerator tone;
    tone.kind = Proc::SettingsGenerator::Kind::Tone;
    tone.sampleRate = stream.source->sampleRate;
    tone.channelLayout = stream.source->channelLayout;
    return made(tone, stream.range)->CreateAudioStream();
}

/// What an editor has in its place: a composition of two seconds that everybody on the bus knows.
struct Model : private Composition::CompositionView {
    Model() {
        pictures.width = 640, pictures.height = 360;
        pictures.frameRateNumerator = 25, pictures.frameRateDenominator = 1;
        sound.channelLayout = Conf::CHANNEL_LAYOUT_STEREO, sound.sampleRate = 48000;
        composition.setVideo(&pictures).setAudio(&sound).setDuration(KTime(2000));
        compositionOwn(&composition);
    }
    ~Model() override { compositionRemove(&composition); }

    Media::Video pictures;
    Media::Audio sound;
    Composition::Object composition;
};

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 2)
        return std::fputs("own-model OUTPUT.mp4\n", stderr), 2;
    Export::setTranscoderLogOutput(Export::TranscoderLogOutput::None);
    Model model;
    const Export::StreamOwner owner(model.composition, makeBars, makeTone);
    Export::PresetProvider provider(nullptr);
    provider.load();
    provider.selectTag("mp4");
    provider.selectPreset(std::string("mp4-h264-480p"));

    Export::Transcoder transcoder(nullptr);
    int code = 0;
    const auto fail = [&code](const Proc::ProcessingError& error) {
        std::fprintf(stderr, "%s\n", error.GetDescription().c_str());
        QCoreApplication::exit(code = 1);
    };
    QObject::connect(&owner, &Export::StreamOwner::streamFailed, [&fail](const std::exception_ptr& error) {
        fail(Proc::ProcessingError::MakeProcessingErrorFromException(error));
    });
    QObject::connect(&transcoder, &Export::Transcoder::failed, fail);
    QObject::connect(&transcoder, &Export::Transcoder::stopped, [&code] { QCoreApplication::exit(code); });
    Export::Transcoder::Data data;
    data.composition = &model.composition;
    data.streamRange = {KTime(0), model.composition.duration()};
    data.outputPath = QString::fromLocal8Bit(argv[1]);
    data.presetProvider = &provider;
    QString error;
    if (!transcoder.initialize(data, error))
        return std::fprintf(stderr, "%s\n", qUtf8Printable(error)), 1;
    return application.exec(); // the export starts by itself once both streams are available
}
