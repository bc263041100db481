// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/ChangeLoop.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Picture/ChangedPart.h"
#include "Kestra/FF/WebP/WebPLayout.h"
#include "Kestra/FF/WebP/WebPPart.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr const char* FAILED = "Encoding a picture failed";

void Demand(int result) {
    Check(result, TranscodingError::EncodeFailed, FAILED);
}

/// With the same settings as that of whole pictures.
CodecContextHandle OpenFor(const AVFrame& part, const AVCodecContext& whole) {
    CodecContextHandle context = MakeCodecContext(whole.codec);
    Demand(av_opt_copy(context.get(), &whole));
    Demand(av_opt_copy(context->priv_data, whole.priv_data));
    context->width = part.width;
    context->height = part.height;
    context->pix_fmt = whole.pix_fmt;
    context->time_base = whole.time_base;
    Demand(avcodec_open2(context.get(), whole.codec, nullptr));
    return context;
}

/// Where pictures are transparent libwebp writes what it likes best into them. Others read them meanwhile: whoever
/// looks for what has changed, and those that encode other parts of the same picture.
FrameHandle OwnSamplesOf(const AVFrame& part) {
    FrameHandle own = MakeFrameReference(part);
    if (HasAlpha(static_cast<AVPixelFormat>(part.format)))
        Demand(av_frame_make_writable(own.get()));
    return own;
}

PacketHandle Encoded(const AVFrame& part, const AVCodecContext& whole) {
    const CodecContextHandle context = OpenFor(part, whole);
    PacketHandle packet = MakePacket();
    Demand(avcodec_send_frame(context.get(), OwnSamplesOf(part).get()));
    Demand(avcodec_receive_packet(context.get(), packet.get()));
    return packet;
}

/// The packet of a file of one picture as one of a part.
PacketHandle Wrapped(const AVPacket& file, const FrameRect& place) {
    const WebPPicture picture = WebPPicture::InFile(file.data, static_cast<std::size_t>(file.size));
    if (!picture.fault.empty())
        Fail(TranscodingError::EncodeFailed, std::string(FAILED) + ": " + picture.fault);
    const WebPPart part{place.x, place.y, picture, 0};
    PacketHandle packet = MakePacket();
    if (av_new_packet(packet.get(), static_cast<int>(part.GetSize())) < 0)
        throw std::bad_alloc();
    Demand(av_packet_copy_props(packet.get(), &file));
    part.PutHeadInto(packet->data);
    std::memcpy(packet->data + WebPLayout::ANMF_HEAD, picture.bytes, picture.size);
    return packet;
}

bool IsAll(const FrameRect& part, const AVCodecContext& whole) {
    return part.width == whole.width && part.height == whole.height;
}

EncoderChunk ChunkOf(FrameHandle picture) {
    EncoderChunk chunk;
    chunk.frames.emplace_back(std::move(picture));
    return chunk;
}

} // namespace

ChangeLoop::ChangeLoop(std::unique_ptr<IEncoderLoop> opened, int threads)
    : model(std::move(opened))
    , ahead(static_cast<std::size_t>(threads) + 1) {
    const auto encode = [model = model](const EncoderChunk& chunk, const std::atomic<bool>&) {
        EncoderChunk::Packets packets;
        packets.push_back(Encoded(*chunk.frames.front(), model->GetContext()));
        return packets;
    };
    workers.Start(encode, threads);
}

FrameRect ChangeLoop::PartOf(const AVFrame& frame) const {
    if (!before)
        return {0, 0, frame.width, frame.height};
    const FrameRect changed = ChangedPart(*before, frame);
    // There is no picture without pixels.
    return changed.width > 0 ? changed : FrameRect{0, 0, std::min(2, frame.width), std::min(2, frame.height)};
}

void ChangeLoop::Send(const AVFrame* frame) {
    ended = !frame;
    if (ended)
        return;
    const FrameRect part = PartOf(*frame);
    before = MakeFrameReference(*frame);
    parts.push_back(part);
    workers.Submit(ChunkOf(MakeView(*frame, part)));
}

IEncoderLoop::Step ChangeLoop::Receive(PacketHandle& packet) {
    if (!ended && parts.size() < ahead && !workers.IsNextDone())
        return Step::NeedsFrame;
    if (parts.empty())
        return Step::End;
    const FrameRect part = parts.front();
    packet = Wrapped(*workers.Take().front(), part);
    if (!IsAll(part, GetContext()))
        packet->flags &= ~AV_PKT_FLAG_KEY;
    parts.pop_front();
    return Step::Packet;
}

} // namespace Kestra::FF
