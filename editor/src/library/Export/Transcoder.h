// SPDX-License-Identifier: GPL-3.0-or-later
// Export::Transcoder: one export of a composition into a file.
#pragma once

#include "Composition/View.h"
#include "EditorExportExport.h"
#include "Export/ExportStreams.h"
#include "Export/ProcessingFactories.h"
#include "KTime/KTime.h"
#include "Kestra/Base/ioPath.h"
#include "Kestra/Proc/ProcessingError.h"
#include "Types/Range.h"
#include <QObject>
#include <QString>
#include <exception>
#include <memory>

class Preset;

namespace Kestra::Util {
template <class T>
class Scheduler;
class TemporaryDir;
} // namespace Kestra::Util

namespace Export {

class IStreamProcessingHelper;
class PresetProvider;

/// Made for one run: construct, connect, initialize(), listen, destroy. Lives on the thread of the model, and every
/// signal comes from that thread's event loop. While it exists the editor's fast track is suppressed.
///
/// It offers two export streams to the model and starts by itself once the model has built and released them. What is
/// thrown on the way there leaves through the event loop, and so does what the making of encoders and muxer throws, for
/// every pass: those of a second pass are made between started() and stopped(), and after such an exception neither
/// failed() nor stopped() comes. Every other failure of a run is failed() followed at once by stopped(), and a clean
/// end or a stop is stopped() alone.
class EDITOREXPORT_EXPORT Transcoder : public QObject,
                                       protected Stream::View<Media::Video, Kestra::Proc::IStreamVideo>,
                                       protected Stream::View<Media::Audio, Kestra::Proc::IStreamAudio>,
                                       protected Composition::View {
    Q_OBJECT

public:
    struct Data {
        /// Borrowed until the transcoder is destroyed; must have a video and an audio description.
        Composition::Object* composition = nullptr;
        /// Of the composition: what the streams cover.
        Types::Range streamRange;
        /// Of the streams: what is kept of them. All of it when the end is not after the start.
        Types::Range exportRange;
        /// Written from the start of the processing on; deleted when the processing fails.
        QString outputPath;
        /// Names the outro that is appended to the export; none is where the application has no such picture.
        QString brandingName;
        /// Borrowed until the transcoder is destroyed; a preset must be selected.
        PresetProvider* presetProvider = nullptr;
    };

    explicit Transcoder(QObject* parent);
    /// Takes the export descriptions out of the composition and ends a run that is under way, its file unfinished.
    ~Transcoder() override;

    /// Once only. False for a request that lacks something, with `error` saying in the user's language what; nothing
    /// has changed then. A medium that the preset does not export is no error: see videoNeeded() and audioNeeded().
    bool initialize(Data data, QString& error);

    /// Ends a run that has been started; stopped() follows. Before that it does nothing: the run will still start.
    void stop();

    /// The descriptions of what is written.
    const Media::Video& videoPreset() const;
    const Media::Audio& audioPreset() const;

    /// Whether the export has pictures (sound): the composition has them, the preset keeps them, the model took the
    /// stream.
    bool videoNeeded() const;
    bool audioNeeded() const;

Q_SIGNALS:
    /// Once for each pass over the streams.
    void started();
    /// `remaining` is KTime(-1) when unknown.
    void progressChanged(int percent, KTime remaining);
    void stopped();
    void failed(const Kestra::Proc::ProcessingError&);

private:
    using VideoView = Stream::View<Media::Video, Kestra::Proc::IStreamVideo>;
    using AudioView = Stream::View<Media::Audio, Kestra::Proc::IStreamAudio>;
    struct FailureLines;

    using AudioView::streamChanged;
    using VideoView::streamChanged;
    void streamChanged(const Stream::VideoObject* object, const Stream::VideoObject* before,
                       const Stream::VideoObject* after) override;
    void streamChanged(const Stream::AudioObject* object, const Stream::AudioObject* before,
                       const Stream::AudioObject* after) override;

    void offerStreams(const Types::Range& range);
    bool configureVideo();
    bool configureAudio();
    void withdrawMedia();

    // The start attempt.
    void tryToStart();
    bool streamsAreReady() const;
    bool takeStreams();
    bool addBranding(boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& video,
                     boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audio);
    void reportBrandingFailure(const std::exception& exception);
    Preset adjustedPreset() const;
    MuxerFactory makeMuxerFactory(const Preset& preset) const;
    EncoderFactory makeAudioEncoderFactory(const Preset& preset,
                                           const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& stream) const;
    EncoderFactory makeVideoEncoderFactory(const Preset& preset,
                                           const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& stream) const;

    // The run.
    void startProcessing(std::unique_ptr<IStreamProcessingHelper> newRunner);
    void onStopped();
    void onStartFailed(std::exception_ptr exception);
    void onProcessingFailed(std::exception_ptr exception);
    void reportFailure(const std::exception_ptr& exception, const FailureLines& lines);
    void logFailure(const std::exception_ptr& exception, const Kestra::Proc::ProcessingError& error,
                    const FailureLines& lines) const;

    Types::Range exportRange;
    Stream::VideoObject videoStreamObject;
    Stream::AudioObject audioStreamObject;
    Media::Video videoMedia;
    Media::Audio audioMedia;
    std::unique_ptr<Kestra::Util::Scheduler<Transcoder>> scheduler;
    std::unique_ptr<IStreamProcessingHelper> runner;
    Kestra::ioPath outputPath;
    QString brandingName;
    PresetProvider* presetProvider = nullptr;
    std::unique_ptr<Kestra::Util::TemporaryDir> tempDir;
};

} // namespace Export
