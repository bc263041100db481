// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IMediaSource: one media file, opened, with streams of its tracks.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "Kestra/Proc/MediaContents.h"
#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace Kestra::Proc {

struct VideoTrackInfo {
    int index = -1;          ///< among the container's streams
    std::string codec;       ///< as the decoder library names it
    Conf::FrameInfo frame;   ///< as shown: after rotation, with the display aspect
    std::string pixelFormat; ///< as the decoder library names it; as shown: turned sideways, 4:2:2 is 4:4:4
    Conf::ColourInfo colour;
    boost::rational<long long> frameRate; ///< chosen by the pictures' times; 0 when unknown
    bool variableFrameRate = false;       ///< pictures do not come evenly at that rate
    std::string leftOut;                  ///< for RateNote: ", which leaves out 2 of its 63 pictures"; empty for none
    int rotation = 0;                     ///< clockwise degrees: 0, 90, 180, 270
    bool interlaced = false;              ///< the first picture, or as the container says
    bool topFieldFirst = false;           ///< where it is interlaced
    bool stillPicture = false;            ///< one frame without a length of its own
    std::int64_t start = 0;               ///< engine time after the start of the media
    std::int64_t duration = 0;            ///< engine time; 0 when unknown
};

struct AudioTrackInfo {
    int index = -1;
    std::string codec;
    int sampleRate = 0;
    int channels = 0;
    std::uint32_t channelLayout = 0;
    std::int32_t sampleFormat = Conf::SAMPLE_FORMAT_UNKNOWN;
    int sampleBits = 0; ///< of each sample where the codec is lossless; 0 where it is not
    std::int64_t start = 0;
    std::int64_t duration = 0;
};

struct MediaInfo {
    std::string container;
    /// Engine time from time 0 to the latest end of the main tracks, as their last packets tell it, without what only
    /// fills up the sound's last block; where a header claims more, a damage report says so.
    std::int64_t duration = 0;
    std::optional<VideoTrackInfo> video; ///< the main one
    std::optional<AudioTrackInfo> audio; ///< the main one
    int videoTracks = 0;
    int audioTracks = 0;
    int otherTracks = 0;
    /// Engine time of the first picture's time code: the number of the frame that it names, dropped ones not counted,
    /// times the frame's period. Unset where there is none.
    std::optional<std::int64_t> timecode{};
    bool timecodeDropsNumbers = false; ///< as its file writes it
    MediaContents contents{};          ///< all that the file lists, beside what the above says of the main tracks
    /// Where time 0 lies on the file's own clock, in engine time: what has another main track may begin elsewhere.
    std::int64_t origin = 0;
};

/// Damage that decoding concealed, or that ended a track early.
struct DamageReport {
    ioPath path;
    std::int64_t time = 0; ///< engine time in the media
    std::string what;
    /// What the media claims to hold beyond this time is missing: nothing was concealed there, there is nothing.
    bool incomplete = false;
};

/// What a source's streams did to its material because it had to be done, or a peculiarity of it that is no damage.
struct SourceNote {
    ioPath path;
    /// A phrase that goes on after the file's name and a colon: "interlaced, deinterlaced to 25 frames a second".
    std::string what;
};

/// Thread-safe but for the streams, which keep IStream's rules. Streams open files of their own, are independent of
/// each other and keep the source alive.
class KESTRA_EXPORT IMediaSource : public virtual IRefCountable {
public:
    ~IMediaSource() override;
    virtual const ioPath& GetPath() const = 0;
    virtual const MediaInfo& GetInfo() const = 0;
    /// Frames of the main video track, rotated upright. Time 0 is the same instant in both streams: the first picture,
    /// or whole frames before it where sound really leads; then the first frame is shown from 0 on. Variable frame
    /// durations are kept. Throws ProcException (SourceUnreadable) when there is none.
    virtual boost::intrusive_ptr<IStreamVideo> CreateVideoStream() = 0;
    /// The same for one of so many streams that are read at a time: beyond four, they share the threads that four would
    /// have for decoding. A source without threads need not tell them apart.
    virtual boost::intrusive_ptr<IStreamVideo> CreateVideoStreamAmong(int streams);
    /// Samples of the main audio track in their own format; silence before a late start and in gaps.
    virtual boost::intrusive_ptr<IStreamAudio> CreateAudioStream() = 0;
    /// The text of those tracks, by their index, in their order; what cannot be read of it is noted. Reads the file,
    /// which takes long where it is large. Throws ProcException, and Interrupted when `interrupted` turns true.
    virtual std::vector<Conf::Subtitles> ReadSubtitles(const std::vector<int>& tracks,
                                                       const std::atomic<bool>& interrupted);
    /// What has been concealed so far by all its streams, at most a thousand entries; takes them.
    virtual std::vector<DamageReport> TakeDamageReports() = 0;
    /// What opening it and its streams have noted so far, each phrase once in the source's life; takes them.
    virtual std::vector<SourceNote> TakeNotes() = 0;
    /// Whether some thread is inside a call that reads the file. Where nobody reads any more, it is a thread that
    /// hangs.
    virtual bool IsBeingRead() const = 0;
    /// Adds a phrase, as SourceNote::what, that one of its consumers has to say; one that has been noted is dropped.
    virtual void Note(const std::string& what) = 0;
};

} // namespace Kestra::Proc
