// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PacketBursts: an encoder's packets, many at a time.
#pragma once

#include "Kestra/FF/Encode/IEncoderLoop.h"
#include <deque>
#include <memory>
#include <utility>

namespace Kestra::FF {

/// For a thread that hands packets to another one: who waits for each is woken for each, at a price that shows beside
/// an encoder of sound.
class PacketBursts final : public IEncoderLoop {
public:
    explicit PacketBursts(std::unique_ptr<IEncoderLoop> encoder)
        : encoder(std::move(encoder)) {}

    AVCodecContext& GetContext() const override { return encoder->GetContext(); }
    Step Receive(PacketHandle& packet) override;
    void Send(const AVFrame* frame) override { encoder->Send(frame); }
    void Close() override { encoder->Close(); }

private:
    Step Fill();

    const std::unique_ptr<IEncoderLoop> encoder;
    std::deque<PacketHandle> held;
    std::size_t leaving = 0; ///< of these
};

} // namespace Kestra::FF
