// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/WebP/WebPCheck.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/WebP/WebPReader.h"
#include "Kestra/Proc/Interrupted.h"

namespace Kestra::FF {

Proc::CheckedFile CheckWebP(const ioPath& path, const std::atomic<bool>& interrupted) {
    WebPReader reader(path);
    Proc::CheckedFile file;
    file.container = "webp";
    file.size = reader.GetSize();
    Proc::CheckedStream& stream = file.streams.emplace_back();
    stream.kind = Proc::CheckedStream::Kind::Video;
    stream.codec = "webp";
    stream.plays = reader.GetPlays();
    stream.frame = MakeFrameInfo(reader.GetWidth(), reader.GetHeight(), {1, 1});
    while (true) {
        if (interrupted)
            KESTRA_THROW(Proc::Interrupted());
        if (!reader.Next())
            break;
        ++stream.packets;
        stream.end += reader.GetPart().milliseconds * TICKS_PER_MILLISECOND;
    }
    file.duration = stream.end;
    return file;
}

} // namespace Kestra::FF
