#include "Kestra/FF/Demuxer.h"

#include "Kestra/FF/Error.h"
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

int OnPoll(void* flag) {
    return static_cast<const std::atomic<bool>*>(flag)->load(std::memory_order_relaxed) ? 1 : 0;
}

void RequireRegularFile(const ioPath& path) {
    struct stat state = {};
    if (path.IsEmpty())
        Fail(TranscodingError::SourceNotFound, "No media file was named");
    if (stat(path.ToUtf8().c_str(), &state) != 0) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        Fail(missing ? TranscodingError::SourceNotFound : TranscodingError::SourceUnreadable,
             "Cannot open \"" + path.ToUtf8() + "\": " + std::strerror(errno));
    }
    const char* reason = S_ISDIR(state.st_mode)    ? "it is a folder"
                         : !S_ISREG(state.st_mode) ? "it is not a regular file"
                         : state.st_size == 0      ? "it is empty"
                                                   : nullptr;
    if (reason)
        Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\": " + reason);
}

// libav draws text files as pictures of terminals; nobody who opens one means that.
bool IsTextFormat(const char* name) {
    constexpr std::array<const char*, 5> names{"tty", "bin", "xbin", "adf", "idf"};
    return std::any_of(names.begin(), names.end(), [name](const char* text) { return std::strcmp(name, text) == 0; });
}

// Whether reading may begin at any packet: transport streams are made for it.
bool StartsAnywhere(const char* name) {
    return std::strcmp(name, "mpegts") == 0;
}

} // namespace

Demuxer::Demuxer(const ioPath& path, const std::atomic<bool>& interrupted, std::shared_ptr<const KnownStreams> known)
    : path(path)
    , interrupted(interrupted)
    , known(std::move(known)) {
    RequireRegularFile(path);
    Open();
}

void Demuxer::Open() {
    AVFormatContext* raw = Allocated(avformat_alloc_context());
    raw->interrupt_callback = {OnPoll, const_cast<std::atomic<bool>*>(&interrupted)};
    Dictionary options;
    options.Set("protocol_whitelist", "file");
    // A "%d" in the name of a picture is part of the name.
    options.Set("pattern_type", "none");
    // The prefix keeps a colon in the name from being taken for a protocol. On failure libav frees the context.
    const int opened = avformat_open_input(&raw, ("file:" + path.ToUtf8()).c_str(), nullptr, options.Address());
    if (opened == AVERROR_INVALIDDATA)
        Fail(TranscodingError::SourceUnreadable,
             "Cannot read \"" + path.ToUtf8() + "\": it is not a media file, or its beginning is damaged");
    if (opened < 0)
        ThrowError(opened, TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\"");
    context.reset(raw);
    if (IsTextFormat(GetFormatName()))
        Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\": it is not a media file");
    FindStreams();
    untouched = true;
    trouble.clear();
    readFrom = 0;
    lastPosition.clear();
    ApplySelection();
}

// Decodes as much as it takes, some pictures of many codecs.
void Demuxer::FindStreams() {
    if (known && known->DescribeAgain(*context))
        return;
    const int found = avformat_find_stream_info(context.get(), nullptr);
    if (found < 0)
        ThrowError(found, TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\"");
    known = KnownStreams::Of(*context);
}

void Demuxer::Select(const std::vector<int>& streams) {
    selection = streams;
    selected = true;
    ApplySelection();
}

void Demuxer::ApplySelection() {
    for (unsigned index = 0; selected && index < context->nb_streams; ++index) {
        const bool wanted = std::find(selection.begin(), selection.end(), static_cast<int>(index)) != selection.end();
        context->streams[index]->discard = wanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

bool Demuxer::Read(AVPacket& packet) {
    untouched = false;
    while (!interrupted.load(std::memory_order_relaxed)) {
        av_packet_unref(&packet);
        const int result = av_read_frame(context.get(), &packet);
        if (result == AVERROR(EAGAIN))
            continue;
        if (result == AVERROR_EXIT)
            return false;
        if (result < 0) {
            const int cause = context->pb ? context->pb->error : 0;
            if (cause < 0 && cause != AVERROR_EOF && cause != AVERROR_INVALIDDATA && cause != AVERROR_EXIT)
                ThrowError(cause, TranscodingError::SourceUnreadable, "Reading \"" + path.ToUtf8() + "\" failed");
            if (result != AVERROR_EOF)
                trouble = ErrorText(result);
            return false;
        }
        // Streams that come up while reading are unknown to the selection.
        if (!selected || std::find(selection.begin(), selection.end(), packet.stream_index) != selection.end()) {
            ShiftTimes(packet);
            return true;
        }
    }
    return false;
}

void Demuxer::ShiftTimes(AVPacket& packet) {
    if (!clock)
        return;
    std::int64_t& position = lastPosition.try_emplace(packet.stream_index, readFrom).first->second;
    if (packet.pos >= 0)
        position = packet.pos;
    const std::int64_t shift = clock->ShiftAt(packet.stream_index, position);
    for (std::int64_t* time : {&packet.pts, &packet.dts})
        if (*time != AV_NOPTS_VALUE)
            *time += shift;
}

bool Demuxer::Seek(int stream, std::int64_t timestamp) {
    untouched = false;
    trouble.clear();
    if (clock)
        return SeekToEntry(stream, timestamp);
    return av_seek_frame(context.get(), stream, timestamp, AVSEEK_FLAG_BACKWARD) >= 0;
}

// Searching by time leads nowhere where time restarts.
bool Demuxer::SeekToEntry(int stream, std::int64_t timestamp) {
    const auto position = clock->FindEntry(stream, timestamp);
    if (!position || !StartsAnywhere(GetFormatName()))
        return false;
    readFrom = *position;
    lastPosition.clear();
    return av_seek_frame(context.get(), -1, readFrom, AVSEEK_FLAG_BYTE) >= 0;
}

void Demuxer::Rewind() {
    if (!untouched)
        Open();
}

} // namespace Kestra::FF
