// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/PacketBursts.h"

#include <utility>

namespace Kestra::FF {

namespace {

constexpr std::size_t BURST = 32;

} // namespace

IEncoderLoop::Step PacketBursts::Receive(PacketHandle& packet) {
    if (leaving == 0) {
        const Step step = Fill();
        if (held.size() < BURST && step != Step::End)
            return step;
        if (held.empty())
            return Step::End;
        leaving = held.size();
    }
    packet = std::move(held.front());
    held.pop_front();
    --leaving;
    return Step::Packet;
}

IEncoderLoop::Step PacketBursts::Fill() {
    for (;;) {
        PacketHandle packet;
        const Step step = encoder->Receive(packet);
        if (step != Step::Packet)
            return step;
        held.push_back(std::move(packet));
    }
}

} // namespace Kestra::FF
