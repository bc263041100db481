// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::EncoderLoop: an open encoder, fed and drained.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Av/OptionList.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include <functional>
#include <string>

namespace Kestra::FF {

/// The one place that sends frames and receives packets.
class EncoderLoop final : public IEncoderLoop {
public:
    /// Makes a context with all settings and these options, not opened yet.
    using Configure = std::function<CodecContextHandle(const OptionList&)>;

    /// Opens the codec. Throws ProcException (CodecRefused) that names the option and the value at fault when one is;
    /// where all are, `advice` stands for the codec's own reason unless it is empty.
    EncoderLoop(const Configure& configure, const OptionList& options, const std::string& encoderName,
                const std::string& advice = std::string());

    AVCodecContext& GetContext() const override { return *context; }
    Step Receive(PacketHandle& packet) override;
    void Send(const AVFrame* frame) override;
    void Close() override { context.reset(); }

private:
    CodecContextHandle context;
    std::string name;
};

} // namespace Kestra::FF
