// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/WebP/WebPReader.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/WebP/WebPLayout.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

bool IsCalled(const std::uint8_t* chunk, const char* name) {
    return std::memcmp(chunk, name, WebPLayout::NAME) == 0;
}

/// As many bytes as there are, up to `count`; below 0 where reading fails, which errno explains.
ssize_t ReadAt(int file, std::uint8_t* bytes, std::size_t count, std::int64_t place) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = ::pread(file, bytes + done, count - done, place + static_cast<std::int64_t>(done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return got;
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(done);
}

Descriptor Opened(const ioPath& path) {
    return Descriptor(::open(path.ToUtf8().c_str(), O_RDONLY | O_CLOEXEC));
}

std::string SizeText(int width, int height) {
    return std::to_string(width) + 'x' + std::to_string(height);
}

} // namespace

bool WebPReader::IsAnimated(const ioPath& path) {
    const Descriptor file = Opened(path);
    std::array<std::uint8_t, WebPLayout::VP8X_PLACE + 1> head{};
    return file && ReadAt(file.Get(), head.data(), head.size(), 0) == static_cast<ssize_t>(head.size()) &&
           IsCalled(head.data(), "RIFF") && IsCalled(head.data() + WebPLayout::CHUNK_HEAD, "WEBP") &&
           IsCalled(head.data() + WebPLayout::RIFF_HEAD, "VP8X") &&
           (head[WebPLayout::VP8X_PLACE] & WebPLayout::ANIMATED) != 0;
}

WebPReader::WebPReader(const ioPath& path)
    : name("The finished file \"" + path.ToUtf8() + '"')
    , file(Opened(path)) {
    struct stat state = {};
    if (!file || ::fstat(file.Get(), &state) != 0)
        Proc::FailAsSystem(errno, TranscodingError::OutputFailed, name + " cannot be read");
    size = state.st_size;
    ReadHead();
}

void WebPReader::Refuse(const std::string& fault, SourcePlace place) const {
    Fail(TranscodingError::OutputFailed, name + " is not whole: " + fault, place);
}

void WebPReader::RefusePicture(const std::string& fault, SourcePlace place) const {
    Refuse("its picture " + std::to_string(number) + ": " + fault, place);
}

void WebPReader::Read(std::int64_t count) {
    if (count > size - position)
        Refuse("it ends within a part");
    bytes.resize(static_cast<std::size_t>(count));
    const ssize_t got = ReadAt(file.Get(), bytes.data(), bytes.size(), position);
    if (got < 0)
        Proc::FailAsSystem(errno, TranscodingError::OutputFailed, name + " cannot be read");
    if (got < count)
        Refuse("it became shorter while it was read");
    position += count;
}

void WebPReader::ReadHead() {
    Read(WebPLayout::HEAD);
    const std::uint8_t* const head = bytes.data();
    const std::uint8_t* const canvas = head + WebPLayout::VP8X_PLACE;
    const std::uint8_t* const animation = head + WebPLayout::ANIM_PLACE;
    const bool inOrder = IsCalled(head, "RIFF") && IsCalled(head + WebPLayout::CHUNK_HEAD, "WEBP") &&
                         IsCalled(canvas - WebPLayout::CHUNK_HEAD, "VP8X") &&
                         AV_RL32(canvas - WebPLayout::NAME) == WebPLayout::VP8X_SIZE &&
                         IsCalled(animation - WebPLayout::CHUNK_HEAD, "ANIM") &&
                         AV_RL32(animation - WebPLayout::NAME) == WebPLayout::ANIM_SIZE;
    if (!inOrder || (canvas[0] & WebPLayout::ANIMATED) == 0)
        Refuse("it does not begin as an animated WebP file");
    const std::int64_t told = std::int64_t{WebPLayout::CHUNK_HEAD} + AV_RL32(head + WebPLayout::NAME);
    if (told != size)
        Refuse("it is " + std::to_string(size) + " bytes long and says that it is " + std::to_string(told));
    transparent = (canvas[0] & WebPLayout::TRANSPARENT) != 0;
    width = static_cast<int>(AV_RL24(canvas + 4)) + 1;
    height = static_cast<int>(AV_RL24(canvas + 7)) + 1;
    plays = AV_RL16(animation + 4);
}

bool WebPReader::Next() {
    if (position == size)
        return false;
    ++number;
    Read(WebPLayout::CHUNK_HEAD);
    if (!IsCalled(bytes.data(), "ANMF"))
        Refuse("a part behind its picture " + std::to_string(number - 1) + " is none of its pictures");
    Read(WebPLayout::Even(AV_RL32(bytes.data() + WebPLayout::NAME)));
    TakePart();
    return true;
}

void WebPReader::TakePart() {
    part = WebPPart::Read(bytes.data(), bytes.size(), width, height);
    if (!part.picture.fault.empty())
        RefusePicture(part.picture.fault);
    if (number == 1 && (part.picture.width != width || part.picture.height != height))
        RefusePicture("only a part is there: " + SizeText(part.picture.width, part.picture.height) + " of " +
                      SizeText(width, height));
    if (part.picture.transparent && !transparent)
        RefusePicture("parts are transparent, and the file says that none are");
    if (const std::string fault = part.picture.FaultOfPixels(); !fault.empty())
        RefusePicture("the pixels cannot be decoded: " + fault);
}

} // namespace Kestra::FF
