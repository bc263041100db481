// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/editor/FakeModel.h"

#include "Kestra/Conf/SampleInfo.h"

namespace EditorFakes {

namespace {

template <class Owner>
void removeWithdrawn(Owner& owner, const Composition::Object& composition) {
    // A copy, as removing changes the list.
    const auto streams = owner.allStreams();
    for (const auto* stream : streams)
        if (!composition.contains(stream->source))
            owner.remove(stream);
}

} // namespace

FakeModel::FakeModel(BusTrace* trace) {
    if (trace)
        trace->attend(composition, fastTrack);
    video.width = 1280;
    video.height = 720;
    video.frameRateNumerator = 25;
    video.frameRateDenominator = 1;
    video.aspectNumerator = 16;
    video.aspectDenominator = 9;
    audio.channelLayout = Kestra::Conf::CHANNEL_LAYOUT_STEREO;
    audio.sampleRate = 44'100;
    audio.sampleFormat = Kestra::Conf::SAMPLE_FORMAT_FLTP;
    composition.setVideo(&video).setAudio(&audio).setDuration(KTime(10'000));
    compositionOwn(&composition);
    fastTrack.setActive(true);
    fastTrackOwn(&fastTrack);
}

FakeModel::~FakeModel() = default;

void FakeModel::buildStreams(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& videoStream,
                             const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audioStream) {
    if (videoStreams.stream()) {
        videoStreams.setImpl(videoStream);
        videoStreams.setAvailable(true);
    }
    if (audioStreams.stream()) {
        audioStreams.setImpl(audioStream);
        audioStreams.setAvailable(true);
    }
}

void FakeModel::setCompositionVideo(const Media::Video* description) {
    compositionChange(&composition)->setVideo(description);
}

void FakeModel::setCompositionAudio(const Media::Audio* description) {
    compositionChange(&composition)->setAudio(description);
}

void FakeModel::withdrawExport(const Media::Video* description) {
    compositionChange(&composition)->remove(description);
}

void FakeModel::removeComposition() {
    compositionRemove(&composition);
}

void FakeModel::exportsChanged(const Composition::Object* changed) {
    removeWithdrawn(videoStreams, *changed);
    removeWithdrawn(audioStreams, *changed);
}

} // namespace EditorFakes
