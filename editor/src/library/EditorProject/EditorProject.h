// SPDX-License-Identifier: GPL-3.0-or-later
// EditorProject: a timeline, or media files, as a project of the editor, the model's owner side of an export.
#pragma once

#include "Composition/Object.h"
#include "EditorProject/HeardSound.h"
#include "EditorProject/SeenPictures.h"
#include "EditorProject/StreamLengths.h"
#include "EditorProjectExport.h"
#include "KTime/KTime.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Proc/Filters/PictureTap.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include "Render/Sequence.h"
#include "Types/Range.h"
#include <QObject>
#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <vector>

/// Owns, in the sense of Message::View, its composition and every export stream that is offered with a description of
/// that composition. For such a stream it builds the engine stream over the following event-loop turns, then publishes
/// `impl` and, last, `available`. What is to be rendered is the stream's source (the export description) over its
/// range. Others' streams are left alone, so any number of projects may live at once, and beside other models; one of
/// them owns a fast track when nobody else does.
///
/// Lives on the thread of the model; the engine streams that it makes run wherever they are read and may outlive it.
/// Destruction announces that the composition goes.
class EDITORPROJECT_EXPORT EditorProject : public QObject {
    Q_OBJECT
public:
    explicit EditorProject(QObject* parent = nullptr);
    ~EditorProject() override;

    /// Puts the files on the timeline, one after the other, each for its whole length (a still picture for 5 s);
    /// whatever was there before is replaced. Reads each file's description, which blocks; no file stays open. Throws
    /// Kestra::Proc::ProcException that names the file and the reason (also for an empty list), and then nothing has
    /// changed. Streams that are in use keep what they show, all others are built anew. `interrupted`, borrowed for the
    /// call unless null, makes it throw early when a signal handler or another thread sets it. Files that claim more
    /// than `limits` are refused.
    void open(const std::vector<Kestra::ioPath>& media, const std::atomic<bool>* interrupted = nullptr,
              const Kestra::Proc::MediaLimits& limits = {});

    /// As open(), with a timeline and what has been opened elsewhere, perhaps on another thread: also the timeline
    /// before, edited. Its markers, tracks and clips are objects of the model. An empty one is shown as well, with the
    /// descriptions of one without media; streams of it cannot be built, so who exports it hears that at the start.
    /// Throws ProcException for a medium that has not been opened and cannot be, and then nothing has changed.
    void show(Render::Sequence sequence);

    /// What has been opened is described, from now on, by what lies in the range; an empty or inverted one is all of
    /// it. Throws ProcException (InvalidArgument) for one that lies outside, and when nothing has been opened.
    void describe(const Types::Range& range);

    /// Streams of pictures that are built from now on show what they pass: see PictureTap. Null: they do not.
    void tapPictures(std::shared_ptr<Kestra::Proc::PictureBox> box);

    /// Never null; the same object all the time. It has no video and no audio description before open(), and both
    /// after.
    Composition::Object* composition();
    /// The composition's own description: of the first clip with a picture (1920x1080 at 25 without one), of the first
    /// clip with sound (48000 Hz stereo without one). Clips in the range that was to be described go first. In
    /// square pixels where the sequence that is shown says so.
    const Media::Video& video() const;
    const Media::Audio& audio() const;

    /// To the nearest millisecond, and exactly in engine time.
    KTime duration() const;
    std::int64_t exactDuration() const;
    /// Whether anything that is enabled has a picture, or sound, be it a medium or made.
    bool hasPictures() const;
    bool hasSound() const;
    /// Where in the part of the composition from `from` to `to` the file's contents from `time` (engine time) on would
    /// be seen or heard first; nothing where they would not.
    std::optional<KTime> placeOf(const Kestra::ioPath& file, std::int64_t time, KTime from, KTime to) const;
    /// Each file once.
    std::vector<Kestra::ioPath> sourcePaths() const;
    /// The media whose pictures lie in the range, each once, in the order in which they appear, of those at the same
    /// time the lowest first: the first one gives video() its frame. See expectedLengths() for ranges.
    std::vector<Project::SeenPictures> picturesIn(const Types::Range& streamRange) const;
    /// The media whose sound lies in the range, likewise; of several tracks those of the first one.
    std::vector<Project::HeardSound> soundsIn(const Types::Range& streamRange) const;

    /// How long the streams are that get built for these export descriptions, null for a medium that is not exported.
    /// An empty or inverted range is the whole composition; an end at or after duration() is its exact end.
    /// Throws ProcException (InvalidArgument) for a range that lies outside, as building does.
    Project::StreamLengths expectedLengths(const Types::Range& streamRange, const Media::Video* video,
                                           const Media::Audio* audio) const;

    /// That part of the composition's sound as the description has it, outside of any export; see expectedLengths() for
    /// ranges. It may be read on any thread. Throws ProcException as building does.
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio> soundOf(const Types::Range& streamRange,
                                                             const Media::Audio& audio) const;

    /// What the file of an export of that range is told about its whole; see expectedLengths() for ranges.
    Kestra::Conf::ProgrammeInfo programme(const Types::Range& streamRange) const;

    /// Damage that decoding concealed since the last call. May be called while streams are read.
    std::vector<Kestra::Proc::DamageReport> takeDamageReports();
    /// What was noted about the material since the last call, each thing once a file; without a path what concerns all
    /// of it. May be called while streams are read.
    std::vector<Kestra::Proc::SourceNote> takeNotes();

    /// The files that some thread is reading at this moment. When every stream has been let go, a thread that hangs.
    std::vector<Kestra::ioPath> pathsBeingRead() const;

    /// Why the last stream that failed could not be built; null when none failed.
    std::exception_ptr streamError() const;

Q_SIGNALS:
    /// An adopted stream cannot be built and will not become available. Comes from the event loop.
    void streamFailed(std::exception_ptr error);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
