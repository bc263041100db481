// A project over media that exist in memory only, and whoever meets it on the bus.
#pragma once

#include "Composition/CompositionView.h"
#include "Composition/MarkerView.h"
#include "Composition/RangeView.h"
#include "EditorProject/EditorProject.h"
#include "Export/ExportStreams.h"
#include "FastTrack/Suppressor.h"
#include "FastTrack/View.h"
#include "Kestra/Proc/ProcException.h"
#include "Timeline/DocumentEdit.h"
#include "fakes/project/RenderFixture.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <map>

namespace Project::Tests {

inline Contents clip(int frames, std::int64_t samples) {
    Contents contents;
    contents.frames = frames;
    contents.samples = samples;
    return contents;
}

/// Uses a project over the bus as an export does: its own stream objects, offered with an export description.
class User : private Stream::VideoView, private Stream::AudioView, private Composition::CompositionView {
public:
    explicit User(Composition::Object* composition) {
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
    ~User() override {
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

/// Owns a composition of its own, as an editor's own model does, but adopts no stream.
class OtherModel : private Composition::CompositionView, private FastTrack::View {
public:
    OtherModel() {
        compositionOwn(&composition);
        fastTrackOwn(&fastTrack);
    }
    ~OtherModel() override {
        fastTrackRemove(&fastTrack);
        compositionRemove(&composition);
    }

    Composition::Object composition;
    FastTrack::Object fastTrack;
};

inline std::set<const FastTrack::Object*> ownedFastTracks() {
    Message::View<FastTrack::Object> anybody;
    return anybody.enumerateAll();
}

class EditorProjectTest : public RenderFixture {
protected:
    /// Runs the event loop until the condition holds; false when the deadline passes first.
    static bool until(const std::function<bool()>& condition) {
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < 1'000'000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return condition();
    }
    void openTwo() { project->open(put({clip(100, 192000), clip(50, 96000)})); }

    std::unique_ptr<EditorProject> project = std::make_unique<EditorProject>();
};

} // namespace Project::Tests
