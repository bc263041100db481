// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/WebPMuxer.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/WebP/WebPLayout.h"
#include "Kestra/FF/WebP/WebPPlays.h"
#include <array>
#include <cstring>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

/// A chunk's head; where its content goes.
std::uint8_t* PutHead(std::uint8_t* place, const char* name, std::int64_t size) {
    std::memcpy(place, name, WebPLayout::NAME);
    AV_WL32(place + WebPLayout::NAME, static_cast<std::uint32_t>(size));
    return place + WebPLayout::CHUNK_HEAD;
}

} // namespace

WebPMuxer::WebPMuxer(const Conf::Container& container, const Conf::IFormatFile& format,
                     const boost::intrusive_ptr<Core::IDataOutput>& output)
    : OneTrackMuxer(container)
    , output(output)
    , plays(PlaysOf(OptionsOf(format))) {}

void WebPMuxer::Take(const CodecParametersFF& parameters) {
    width = parameters.GetParameters().width;
    height = parameters.GetParameters().height;
}

void WebPMuxer::Begin() {
    std::array<std::uint8_t, WebPLayout::HEAD> head{};
    std::memcpy(PutHead(head.data(), "RIFF", 0), "WEBP", WebPLayout::NAME);
    std::uint8_t* const canvas = PutHead(head.data() + WebPLayout::RIFF_HEAD, "VP8X", WebPLayout::VP8X_SIZE);
    canvas[0] = WebPLayout::ANIMATED;
    AV_WL24(canvas + 4, width - 1);
    AV_WL24(canvas + 7, height - 1);
    std::uint8_t* const animation = PutHead(canvas + WebPLayout::VP8X_SIZE, "ANIM", WebPLayout::ANIM_SIZE);
    AV_WL16(animation + 4, plays); // behind the colour of the background, which no picture leaves free
    output->Open();
    output->Write(head.data(), head.size());
}

std::int64_t WebPMuxer::Milliseconds(const Proc::IDataRaw& packet) const {
    const std::int64_t end = MulDivRound(packet.GetTime() + packet.GetDuration(), 1, TICKS_PER_MILLISECOND);
    const std::int64_t milliseconds = end - written;
    if (milliseconds < 1 || milliseconds > WebPLayout::LONGEST_MILLISECONDS)
        Fail(TranscodingError::MuxerRefused, "The container " + Name() + " cannot show a picture for " +
                                                 std::to_string(milliseconds) + " milliseconds: it takes 1 to " +
                                                 std::to_string(WebPLayout::LONGEST_MILLISECONDS));
    return milliseconds;
}

WebPPart WebPMuxer::PartOf(const Proc::IDataRaw& packet) const {
    WebPPart part = WebPPart::Read(packet.GetBytes(), packet.GetSize(), width, height);
    std::string& fault = part.picture.fault;
    if (fault.empty() && written == 0 && (part.picture.width != width || part.picture.height != height))
        fault = "the first one is not whole";
    if (!fault.empty())
        Fail(TranscodingError::MuxerRefused, "The container " + Name() + " was given no picture: " + fault);
    part.milliseconds = static_cast<int>(Milliseconds(packet));
    return part;
}

void WebPMuxer::RequireRoom(const WebPPart& part) const {
    const std::int64_t taken = WebPLayout::CHUNK_HEAD + static_cast<std::int64_t>(part.GetSize());
    if (output->GetSize() + taken > WebPLayout::LARGEST_FILE)
        Fail(TranscodingError::MuxerRefused, "\"" + output->GetPath().ToUtf8() +
                                                 "\" would become larger than 4 GiB, which a WebP file cannot be: "
                                                 "a shorter range, a lower quality or smaller pictures fit into one");
}

void WebPMuxer::Put(const Proc::IDataRaw& packet) {
    const WebPPart part = PartOf(packet);
    RequireRoom(part);
    std::array<std::uint8_t, WebPLayout::CHUNK_HEAD + WebPLayout::ANMF_HEAD> head{};
    part.PutHeadInto(PutHead(head.data(), "ANMF", static_cast<std::int64_t>(part.GetSize())));
    output->Write(head.data(), head.size());
    output->Write(part.picture.bytes, part.picture.size);
    written += part.milliseconds;
    transparent = transparent || part.picture.transparent;
}

void WebPMuxer::Complete() {
    if (written == 0)
        Fail(TranscodingError::MuxerRefused, "There is nothing to be written into " + Name() + ": no picture");
    std::array<std::uint8_t, WebPLayout::NAME> size{};
    AV_WL32(size.data(), static_cast<std::uint32_t>(output->GetSize() - WebPLayout::CHUNK_HEAD));
    const std::uint8_t flags = WebPLayout::ANIMATED | (transparent ? WebPLayout::TRANSPARENT : 0);
    output->Seek(WebPLayout::NAME);
    output->Write(size.data(), size.size());
    output->Seek(WebPLayout::VP8X_PLACE);
    output->Write(&flags, sizeof flags);
    output->Close();
}

void WebPMuxer::Abort() noexcept {
    OneTrackMuxer::Abort();
    output->Abort();
}

} // namespace Kestra::FF
