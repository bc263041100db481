// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/PaletteLoop.h"

#include "Kestra/Base/Time.h"
#include <utility>

namespace Kestra::FF {

namespace {

// Ordered dither: what does not move has the same pattern from picture to picture, which keeps it still, and small.
const char* const CHAIN = "split[all][seen];[seen]palettegen=stats_mode=single[colours];"
                          "[all][colours]paletteuse=new=1:dither=bayer:bayer_scale=3:diff_mode=rectangle";

} // namespace

PaletteLoop::PaletteLoop(std::unique_ptr<IEncoderLoop> encoder)
    : encoder(std::move(encoder))
    , graph(CHAIN, "Choosing the colours of a picture failed") {}

void PaletteLoop::Send(const AVFrame* frame) {
    if (frame) {
        // In the filters' own, coarser time neighbours would fall together.
        const FrameHandle apart = MakeFrameReference(*frame);
        apart->pts = sent++ * TIME_BASE;
        times.push_back(frame->pts);
        graph.Send(*apart);
    } else {
        graph.Finish();
        ended = true;
    }
    while (FrameHandle picture = graph.Receive()) {
        picture->pts = times.front();
        times.pop_front();
        pictures.push_back(std::move(picture));
    }
}

IEncoderLoop::Step PaletteLoop::Receive(PacketHandle& packet) {
    for (;;) {
        const Step step = encoder->Receive(packet);
        if (step != Step::NeedsFrame)
            return step;
        if (!pictures.empty()) {
            encoder->Send(pictures.front().get());
            pictures.pop_front();
        } else if (ended && !std::exchange(endTold, true)) {
            encoder->Send(nullptr);
        } else {
            return step;
        }
    }
}

} // namespace Kestra::FF
