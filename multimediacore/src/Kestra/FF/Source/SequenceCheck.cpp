// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/SequenceCheck.h"

#include "Kestra/Base/Descriptor.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Demux/PictureFile.h"
#include "Kestra/FF/Source/StillReader.h"
#include "Kestra/Proc/Interrupted.h"
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Kestra::FF {

namespace {

using Proc::CheckedFile;
using Proc::CheckedStream;
using Proc::TranscodingError;

std::string Named(const std::string& path) {
    return "The finished picture \"" + path + '"';
}

/// All of a file; nothing where there is none.
std::optional<std::vector<std::uint8_t>> BytesOf(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file && errno == ENOENT)
        return std::nullopt;
    struct stat state = {};
    if (!file || ::fstat(file.Get(), &state) != 0)
        Proc::FailAsSystem(errno, TranscodingError::OutputFailed, Named(path) + " cannot be read");
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(state.st_size));
    std::size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t count = ::read(file.Get(), bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            Proc::FailAsSystem(errno, TranscodingError::OutputFailed, Named(path) + " cannot be read");
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
    }
    bytes.resize(size);
    return bytes;
}

PictureFile RequireWhole(const std::vector<std::uint8_t>& bytes, const std::string& path) {
    PictureFile picture = ReadPictureFile(bytes);
    if (!picture.fault.empty())
        Fail(TranscodingError::OutputFailed, Named(path) + " is not whole: " + picture.fault);
    return picture;
}

/// Writes what the first picture is into the stream; all others have to be the same.
void RequireAlike(const PictureFile& picture, CheckedStream& stream, const std::string& path) {
    const auto width = static_cast<std::uint32_t>(picture.width), height = static_cast<std::uint32_t>(picture.height);
    if (stream.packets == 0) {
        stream.codec = picture.codec;
        stream.frame = MakeFrameInfo(picture.width, picture.height, {1, 1});
        stream.colour = picture.colour;
        stream.pixelFormat = picture.pixelFormat;
    }
    if (stream.codec != picture.codec || stream.frame.width != width || stream.frame.height != height ||
        stream.pixelFormat != picture.pixelFormat || stream.colour != picture.colour)
        Fail(TranscodingError::OutputFailed, Named(path) + " is of another kind or size than the first one");
}

/// What only decoding shows.
void RequireDecodable(const std::string& path, const std::atomic<bool>& interrupted) {
    Proc::MediaLimits limits;
    limits.pictureBytes = std::int64_t{1} << 40; // it was in memory already
    const auto refuse = [&path](const std::string& flaw) {
        Fail(TranscodingError::OutputFailed, Named(path) + " cannot be decoded: " + flaw);
    };
    try {
        StillReader(interrupted, limits).Read(ioPath(path), refuse);
    } catch (const Proc::ProcException& error) {
        if (interrupted)
            KESTRA_THROW(Proc::Interrupted());
        Fail(TranscodingError::OutputFailed, std::string("The finished file cannot be read: ") + error.what());
    }
}

} // namespace

CheckedFile CheckPictures(const ioPath& folder, const Conf::NumberedName& name, const std::atomic<bool>& interrupted) {
    CheckedFile result;
    result.container = "image2";
    CheckedStream& stream = result.streams.emplace_back();
    stream.kind = CheckedStream::Kind::Video;
    const auto pathOf = [&](std::int64_t number) { return folder.ToUtf8() + '/' + name.NameOf(number); };
    while (true) {
        if (interrupted)
            KESTRA_THROW(Proc::Interrupted());
        const std::string path = pathOf(stream.packets);
        const auto bytes = BytesOf(path);
        if (!bytes)
            break;
        RequireAlike(RequireWhole(*bytes, path), stream, path);
        result.size += static_cast<std::int64_t>(bytes->size());
        ++stream.packets;
    }
    if (stream.packets == 0)
        Fail(TranscodingError::OutputFailed, "There is no finished picture \"" + pathOf(0) + '"');
    RequireDecodable(pathOf(0), interrupted);
    if (stream.packets > 1)
        RequireDecodable(pathOf(stream.packets - 1), interrupted);
    return result;
}

} // namespace Kestra::FF
