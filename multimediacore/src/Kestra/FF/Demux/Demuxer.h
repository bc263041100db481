// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Demuxer: the packets of a media file.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Demux/AnchorTimes.h"
#include "Kestra/FF/Demux/ChainedOgg.h"
#include "Kestra/FF/Demux/ChunkTimes.h"
#include "Kestra/FF/Demux/FieldPairs.h"
#include "Kestra/FF/Demux/OrderTimes.h"
#include "Kestra/FF/Demux/RepeatedTimes.h"
#include "Kestra/FF/Demux/SourceFile.h"
#include "Kestra/FF/Demux/StillTimes.h"
#include "Kestra/FF/Demux/StreamInfoCache.h"
#include "Kestra/FF/Demux/TimestampMap.h"
#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kestra::FF {

/// Bound to one thread at a time. Only local files are read, whatever the file refers to.
class Demuxer {
public:
    /// Opens the file and finds its streams, unless they are `known`, which may be null. `interrupted` is borrowed for
    /// life and polled while the file is read. Throws ProcException: SourceNotFound, SourceUnreadable, also for what
    /// claims more than `limits` allow.
    Demuxer(const ioPath& path, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits = {},
            std::shared_ptr<const StreamInfoCache> known = nullptr);

    const ioPath& GetPath() const { return path; }
    const Proc::MediaLimits& GetLimits() const { return limits; }
    AVFormatContext& GetContext() { return *context; }
    AVStream& GetStream(int index) { return *context->streams[index]; }
    /// For whoever opens the same file again; null where that has to find the streams itself.
    const std::shared_ptr<const StreamInfoCache>& GetStreamInfoCache() const { return known; }
    /// "mov,mp4,..." as libav names the container.
    const char* GetFormatName() const { return context->iformat->name; }
    /// MOV, MP4 and their kin.
    bool IsFilm() const;

    /// What decoding the stream has told of its audio, which is known from here on, also where the file does not say.
    void Describe(int stream, const AVCodecContext& decoder);
    /// Everything but these streams is passed over from the next read on.
    void Select(const std::vector<int>& streams);
    /// Packets and seeks are on the joined clock from the next read on; null for the file's own.
    void SetClock(std::shared_ptr<const TimestampMap> map) { clock = std::move(map); }
    /// Takes the file to end at that byte, and begins anew; 0 leaves it as it is.
    void SetEnd(std::int64_t byte);
    /// Gives a film's packets by the times of its samples, whatever its edit lists say, and begins anew.
    void IgnoreEdits();
    /// The next packet of a selected stream, flagged as corrupt behind bytes that make no sense; false at the end of
    /// the file, and once interrupted. Throws when the file cannot be read; a file that merely is malformed ends, and
    /// GetTrouble says why.
    bool Read(AVPacket& packet);
    /// Whether pictures of the stream were read that are coded field by field. What libav reckons each packet of them
    /// to last is the length of one field, be there one in it or two.
    bool HasFields(int stream) const { return fieldPairs.HasFields(stream); }
    /// Whether pictures of the stream were read whose fields are packets of their own in the file, which its index and
    /// its counts are of. Read() gives both in one.
    bool HasFieldsApart(int stream) const { return fieldPairs.HasPaired(stream); }
    /// Moves to a keyframe at or before `timestamp` of the stream, as far as the file's index can be trusted.
    bool Seek(int stream, std::int64_t timestamp);
    /// Whether only reading from the start tells when pictures of the stream are shown.
    bool CountsFromStart(int stream);
    /// Whether the audio has one time for so many packets that it tells nothing: they follow each other from the start.
    bool StandsStill(int stream) const { return stillTimes.Found(stream); }
    /// Back to the first packet, by opening the file again: the only way that is exact in every container.
    void Rewind();
    /// Why the last reading ended before the end of the file; empty when it did not.
    const std::string& GetTrouble() const { return trouble; }
    /// Of a track that was not there yet when the file was opened, and is the first of its kind; empty where none is.
    std::string GetNewcomer() const;

private:
    struct Repair {
        PacketRepair* stage;
        bool ended = false; ///< no packet follows what it holds
    };

    void Open();
    void FindStreams();
    void RequireWithinLimits() const;
    std::int64_t LongestSearch() const;
    void ApplySelection();
    bool IsSelected(int stream) const;
    void SetUpRepairs();
    /// The next packet that comes out of the first `count` repairs, one behind the other.
    bool ReadBehind(std::size_t count, AVPacket& packet);
    bool ReadFile(AVPacket& packet);
    [[noreturn]] void FailForMemory() const;
    void PassNothingOver();
    void CountTime(AVPacket& packet);
    void ShiftTimes(AVPacket& packet);
    bool SeekToEntry(int stream, std::int64_t timestamp);

    ioPath path;
    const std::atomic<bool>& interrupted;
    Proc::MediaLimits limits;
    SourceFile file;
    InputContextHandle context; ///< reads the file, so it goes before that
    std::vector<int> selection;
    bool selected = false;
    bool untouched = true;
    bool passedOver = false; ///< so much that nothing is any more, to see whether there is anything
    std::shared_ptr<const StreamInfoCache> known;
    std::shared_ptr<const TimestampMap> clock;
    bool fromStart = true; ///< nothing has been sought since the file was opened
    // Each holds what was read and not yet given.
    ChainedOgg chainedOgg;
    ChunkTimes chunkTimes;
    RepeatedTimes repeatedTimes;
    StillTimes stillTimes;
    FieldPairs fieldPairs;
    OrderTimes orderTimes;
    AnchorTimes anchorTimes;
    std::vector<Repair> repairs;              ///< of those the ones that are needed, in the order of the packets' way
    std::int64_t countedTime = 0;             ///< of the next picture where the file tells no times
    std::int64_t readFrom = 0;                ///< where reading began; in bytes
    std::map<int, std::int64_t> lastPosition; ///< of each stream's last packet that has one
    std::string trouble;
    unsigned streamsFound = 0;                      ///< when the file was opened
    std::map<int, CodecParametersHandle> described; ///< by decoding
    bool afterNonsense = false;                     ///< what comes next stands behind bytes that could not be read
};

} // namespace Kestra::FF
