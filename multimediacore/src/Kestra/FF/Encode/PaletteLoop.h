// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PaletteLoop: an encoder of palettes that is given pictures of all colours.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include <cstdint>
#include <deque>
#include <memory>

namespace Kestra::FF {

/// Each picture gets the 256 colours that suit it best (libavfilter's palettegen and paletteuse), one of them for what
/// is transparent. Pictures are BGRA.
class PaletteLoop final : public IEncoderLoop {
public:
    explicit PaletteLoop(std::unique_ptr<IEncoderLoop> encoder);

    AVCodecContext& GetContext() const override { return encoder->GetContext(); }
    Step Receive(PacketHandle& packet) override;
    void Send(const AVFrame* frame) override;
    void Close() override { encoder->Close(); }

private:
    const std::unique_ptr<IEncoderLoop> encoder;
    FilterGraph graph;
    std::int64_t sent = 0;            ///< frames
    std::deque<std::int64_t> times;   ///< of those that are with the filters
    std::deque<FrameHandle> pictures; ///< that the encoder has not been given
    bool ended = false;
    bool endTold = false;
};

} // namespace Kestra::FF
