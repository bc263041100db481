// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/Transcoder.h"

#include "Export/IStreamProcessingHelper.h"
#include "Export/PresetProvider.h"
#include "FastTrack/Suppressor.h"
#include "Kestra/Util/Scheduler.h"
#include "Kestra/Util/TemporaryDir.h"
#include <QVariant>

namespace Export {

namespace {

/// Holds the fast track back as long as its parent lives.
class FastTrackActivationGuard final : public QObject, protected FastTrack::Suppressor {
public:
    explicit FastTrackActivationGuard(QObject* parent)
        : QObject(parent) {}
};

} // namespace

Transcoder::Transcoder(QObject* parent)
    : QObject(parent) {
    new FastTrackActivationGuard(this);
}

Transcoder::~Transcoder() {
    withdrawMedia();
    // Ahead of the members' own order: nothing may be attempted any more when the scratch directory and the runner go.
    scheduler.reset();
    tempDir.reset();
    runner.reset();
}

bool Transcoder::initialize(Data data, QString& error) {
    if (!data.composition) {
        error = tr("No composition provided");
        return false;
    }
    if (!data.composition->video()) {
        error = tr("No video provided");
        return false;
    }
    if (!data.composition->audio()) {
        error = tr("No audio provided");
        return false;
    }
    if (!data.presetProvider || !data.presetProvider->isPresetExists()) {
        error = tr("No export preset provided");
        return false;
    }

    outputPath = Kestra::ioPath(data.outputPath.toUtf8().toStdString());
    brandingName = std::move(data.brandingName);
    presetProvider = data.presetProvider;
    exportRange = data.exportRange;
    scheduler = std::make_unique<Kestra::Util::Scheduler<Transcoder>>(this, &Transcoder::tryToStart,
                                                                      Kestra::Util::Scheduler<Transcoder>::ARMED, 0);
    // It is no child, but who catches what leaves an attempt through the event loop may ask whose it is.
    scheduler->setProperty("owner", QVariant::fromValue<QObject*>(this));
    compositionObserve(data.composition);
    offerStreams(data.streamRange);
    return true;
}

void Transcoder::offerStreams(const Types::Range& range) {
    if (configureVideo()) {
        const auto chain = VideoView::streamAdd(&videoStreamObject);
        chain->source = &videoMedia;
        chain->range = range;
    }
    if (configureAudio()) {
        const auto chain = AudioView::streamAdd(&audioStreamObject);
        chain->source = &audioMedia;
        chain->range = range;
    }
}

void Transcoder::stop() {
    if (runner) {
        runner->stop();
    }
}

const Media::Video& Transcoder::videoPreset() const {
    return videoMedia;
}

const Media::Audio& Transcoder::audioPreset() const {
    return audioMedia;
}

bool Transcoder::videoNeeded() const {
    return VideoView::streamIsObserved(&videoStreamObject) && videoStreamObject.source;
}

bool Transcoder::audioNeeded() const {
    return AudioView::streamIsObserved(&audioStreamObject) && audioStreamObject.source;
}

void Transcoder::streamChanged(const Stream::VideoObject* object, const Stream::VideoObject* before,
                               const Stream::VideoObject* after) {
    scheduler->schedule();
    VideoView::streamChanged(object, before, after);
}

void Transcoder::streamChanged(const Stream::AudioObject* object, const Stream::AudioObject* before,
                               const Stream::AudioObject* after) {
    scheduler->schedule();
    AudioView::streamChanged(object, before, after);
}

bool Transcoder::configureVideo() {
    const Composition::Object* current = composition();
    const Media::Video* description = current ? current->video() : nullptr;
    if (!presetProvider->videoExists(description)) {
        return false;
    }
    videoMedia = presetProvider->applyPreset(description);
    videoMedia.exported = true;
    compositionChange(current)->add(&videoMedia);
    return true;
}

// Marks nothing in the description: only those of pictures carry the mark.
bool Transcoder::configureAudio() {
    const Composition::Object* current = composition();
    const Media::Audio* description = current ? current->audio() : nullptr;
    if (!presetProvider->audioExists(description)) {
        return false;
    }
    audioMedia = presetProvider->applyPreset(description);
    compositionChange(current)->add(&audioMedia);
    return true;
}

void Transcoder::withdrawMedia() {
    const Composition::Object* current = composition();
    if (current && current->contains(&videoMedia)) {
        compositionChange(current)->remove(&videoMedia);
    }
    // Asked anew: whoever heard of the first removal may have let the composition go.
    current = composition();
    if (current && current->contains(&audioMedia)) {
        compositionChange(current)->remove(&audioMedia);
    }
}

} // namespace Export
