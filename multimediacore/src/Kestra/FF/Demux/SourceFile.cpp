// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/SourceFile.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/LogWatch.h"
#include "Kestra/FF/Demux/InputFormats.h"
#include "Kestra/FF/WebP/WebPReader.h"
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// Where tables of contents stand in front, they take a hundredth of it.
constexpr std::int64_t LARGEST_HEADER = std::int64_t{1} << 30;
// These readers search for their parts byte by byte, also behind a header that is whole. An index of MXF, which has its
// places in the header's reach, takes 11 bytes a picture.
constexpr std::int64_t LARGEST_SOUGHT_HEADER = std::int64_t{64} << 20;
// What other tracks have between two packets of one.
constexpr std::int64_t LONGEST_PASSING = std::int64_t{16} << 20;

// Null for what can be read.
const char* WhyNotRegular(const struct stat& state) {
    return S_ISDIR(state.st_mode)    ? "it is a folder"
           : !S_ISREG(state.st_mode) ? "it is not a regular file"
           : state.st_size == 0      ? "it is empty"
                                     : nullptr;
}

// Only the extension says anything of the content; a "%d" or a bracket in a name would be taken for a pattern.
std::string NameForProbing(const std::string& path) {
    const std::size_t dot = path.find_last_of("./");
    std::string extension = dot != std::string::npos && path[dot] == '.' ? path.substr(dot + 1) : std::string();
    const bool plain = std::all_of(extension.begin(), extension.end(),
                                   [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0; });
    return plain ? "media." + extension : "media";
}

} // namespace

bool SourceFile::IsSearchedByteByByte(const char* format) {
    return std::strcmp(format, "mxf") == 0 || std::strcmp(format, "nut") == 0;
}

SourceFile::SourceFile(ioPath given, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits,
                       std::function<void()> onPassedOver)
    : path(std::move(given))
    // The prefix keeps a colon in the name from being taken for a protocol.
    , url("file:" + path.ToUtf8())
    , interrupted(interrupted)
    , limits(limits)
    , onPassedOver(std::move(onPassedOver)) {
    struct stat state = {};
    if (path.IsEmpty())
        Fail(TranscodingError::SourceNotFound, "No media file was named");
    if (stat(path.ToUtf8().c_str(), &state) != 0) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        Fail(missing ? TranscodingError::SourceNotFound : TranscodingError::SourceUnreadable,
             "Cannot open \"" + path.ToUtf8() + "\": " + std::strerror(errno));
    }
    if (const char* reason = WhyNotRegular(state))
        Refuse(reason);
}

void SourceFile::Refuse(const std::string& reason, SourcePlace place) const {
    Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\": " + reason, place);
}

InputContextHandle SourceFile::Open() {
    OpenIo();
    Allow(LARGEST_HEADER);
    const AVInputFormat& format = FindFormat();
    if (IsSearchedByteByByte(format.name))
        Allow(LARGEST_SOUGHT_HEADER);
    return ReadHeader(format);
}

void SourceFile::OpenIo() {
    AVIOContext* raw = nullptr;
    Dictionary options;
    options.Set("protocol_whitelist", end > 0 ? "file,subfile" : "file");
    const AVIOInterruptCB poll{OnPoll, this};
    const std::string part = end > 0 ? "subfile,,start,0,end," + std::to_string(end) + ",,:" : std::string();
    const int opened = avio_open2(&raw, (part + url).c_str(), AVIO_FLAG_READ, &poll, options.Address());
    if (opened < 0)
        ThrowError(opened, TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\"");
    io.reset(raw);
}

const AVInputFormat& SourceFile::FindFormat() {
    const AVInputFormat* format = nullptr;
    const LogWatch log;
    const int found = av_probe_input_buffer2(io.get(), &format, NameForProbing(path.ToUtf8()).c_str(), nullptr, 0, 0);
    if (found < 0)
        FailOpening(found, log);
    if (!IsMediaFormat(*format))
        Refuse(WhyNotOpened(*format));
    if (std::strcmp(format->name, "webp_pipe") == 0 && WebPReader::IsAnimated(path))
        Refuse("it is an animated WebP file, a kind that is written and not read");
    return *format;
}

InputContextHandle SourceFile::ReadHeader(const AVInputFormat& format) {
    AVFormatContext* raw = Allocated(avformat_alloc_context());
    raw->interrupt_callback = {OnPoll, this};
    raw->opaque = this;
    raw->io_open = OnOpen;
    raw->max_streams = limits.tracks;
    // Readers of lone pictures open the file themselves.
    if (!(format.flags & AVFMT_NOFILE))
        raw->pb = io.get();
    Dictionary options;
    options.Set("protocol_whitelist", "file");
    // A "%d" in the name of a picture is part of the name.
    if (std::strcmp(format.name, "image2") == 0)
        options.Set("pattern_type", "none");
    if (!edited)
        options.Set("ignore_editlist", "1");
    namesOthers = false;
    const LogWatch log;
    // On failure libav frees the context.
    const int opened = avformat_open_input(&raw, url.c_str(), &format, options.Address());
    InputContextHandle context(raw);
    // MOV files may keep their samples elsewhere; what is read here in their place would be noise.
    if (namesOthers || !log.Find({"Skipped opening external track"}).empty())
        Refuse("its pictures or sound stand in another file, which it names");
    if (opened < 0)
        FailOpening(opened, log);
    return context;
}

void SourceFile::FailOpening(int error, const LogWatch& log, SourcePlace place) const {
    if (!log.Find({"moov atom not found"}).empty())
        Refuse("its index is missing: the recording was never finished, or copied in part", place);
    if (error == AVERROR_INVALIDDATA || IsUsedUp())
        Refuse("it is not a media file, or its beginning is damaged", place);
    if (!log.Find({"Number of streams exceeds"}).empty())
        Refuse("it claims more than " + std::to_string(limits.tracks) + (limits.tracks == 1 ? " track" : " tracks") +
                   ", the limit",
               place);
    if (error == AVERROR(ENOMEM))
        Fail(TranscodingError::OutOfMemory, "Cannot read \"" + path.ToUtf8() + "\": it takes more memory than there is",
             place);
    ThrowError(error, TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\"", place);
}

void SourceFile::Allow(std::int64_t bytes) {
    allowedUntil = io ? io->bytes_read + bytes : INT64_MAX;
    passingUntil = INT64_MAX;
}

void SourceFile::AllowPassing(std::int64_t bytes) {
    Allow(LONGEST_PASSING + bytes);
    passingUntil = allowedUntil - bytes;
}

bool SourceFile::Poll() {
    if (io && io->bytes_read >= passingUntil) {
        passingUntil = INT64_MAX;
        onPassedOver();
    }
    return interrupted.load(std::memory_order_relaxed) || IsUsedUp();
}

int SourceFile::OnPoll(void* self) {
    return static_cast<SourceFile*>(self)->Poll() ? 1 : 0;
}

int SourceFile::OnOpen(AVFormatContext* context, AVIOContext** io, const char* url, int flags, AVDictionary**) {
    auto& self = *static_cast<SourceFile*>(context->opaque);
    if (self.url != url || (flags & AVIO_FLAG_WRITE)) {
        self.namesOthers = true;
        return AVERROR(EACCES);
    }
    const AVIOInterruptCB poll{OnPoll, &self};
    return avio_open2(io, url, AVIO_FLAG_READ, &poll, nullptr);
}

} // namespace Kestra::FF
