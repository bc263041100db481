// SPDX-License-Identifier: GPL-3.0-or-later
// EditorFakes::ExportUser: uses a model over the bus as an export does.
#pragma once

#include "Composition/CompositionView.h"
#include "Export/ExportStreams.h"
#include "Kestra/Conf/SampleInfo.h"
#include <functional>
#include <string>
#include <vector>

namespace EditorFakes {

/// Its own stream objects, offered with its own descriptions.
class ExportUser : private Stream::VideoView, private Stream::AudioView, private Composition::CompositionView {
public:
    explicit ExportUser(Composition::Object* composition) {
        exportedVideo.width = 128;
        exportedVideo.height = 72;
        exportedVideo.frameRateNumerator = 25;
        exportedVideo.frameRateDenominator = 1;
        exportedAudio.sampleRate = 44100;
        exportedAudio.channelLayout = Kestra::Conf::CHANNEL_LAYOUT_STEREO;
        if (composition) {
            compositionObserve(composition);
            compositionChange(composition)->add(&exportedVideo);
            compositionChange(composition)->add(&exportedAudio);
        }
    }
    ~ExportUser() override {
        if (const Composition::Object* seen = this->composition()) {
            compositionChange(seen)->remove(&exportedVideo);
            compositionChange(seen)->remove(&exportedAudio);
        }
    }

    void offer(const Types::Range& range, bool video = true, bool audio = true) {
        if (video) {
            const auto chain = Stream::VideoView::streamAdd(&videoStream);
            chain->source = &exportedVideo;
            chain->range = range;
        }
        if (audio) {
            const auto chain = Stream::AudioView::streamAdd(&audioStream);
            chain->source = &exportedAudio;
            chain->range = range;
        }
    }
    void take() { Stream::VideoView::streamChange(&videoStream)->using_ = true; }
    void changeSource(const Media::Video* source) { Stream::VideoView::streamChange(&videoStream)->source = source; }
    void changeRange(const Types::Range& range) { Stream::VideoView::streamChange(&videoStream)->range = range; }
    void withdraw() { Stream::VideoView::streamRemove(&videoStream); }
    bool isAdopted() const { return Stream::VideoView::streamIsObserved(&videoStream); }
    bool seesComposition() const { return composition() != nullptr; }
    bool ready() const { return videoStream.available && audioStream.available; }

    Media::Video exportedVideo;
    Media::Audio exportedAudio;
    Stream::VideoObject videoStream;
    Stream::AudioObject audioStream;
    std::vector<std::string> events;
    std::function<void()> onImpl;

private:
    using Stream::AudioView::implChanged;
    using Stream::AudioView::isAvailable;
    void implChanged(const Stream::VideoObject* stream) override {
        events.push_back(stream->available ? "impl while available" : "impl");
        if (onImpl)
            onImpl();
    }
    void isAvailable(const Stream::VideoObject* stream, bool available) override {
        events.push_back(available && stream->impl ? "available" : "unavailable");
    }
};

} // namespace EditorFakes
