// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::WebPMuxer: pictures that move, in one file.
#pragma once

#include "Kestra/Core/IDataOutput.h"
#include "Kestra/FF/Mux/OneTrackMuxer.h"
#include "Kestra/FF/WebP/WebPPart.h"
#include <cstdint>

namespace Kestra::FF {

/// Takes one track of WebP pictures, each packet a WebPPart, the first of them all of the picture, and writes each as
/// it comes: it holds none. Each lasts whole milliseconds such that the next one begins where it belongs, rounded to
/// the nearest: nothing adds up. The file is shown for ever, unless the option "loop" says how often.
///
/// FFmpeg's own muxer is not asked: it lets transparent parts show what the pictures before have left there, and makes
/// a single picture one that has no length.
class WebPMuxer final : public OneTrackMuxer {
public:
    /// `container` outlives the muxer. Throws ProcException (MuxerRefused) for other options.
    WebPMuxer(const Conf::Container& container, const Conf::IFormatFile& format,
              const boost::intrusive_ptr<Core::IDataOutput>& output);

    void Abort() noexcept override;

private:
    void Take(const CodecParametersFF& parameters) override;
    void Begin() override;
    void Put(const Proc::IDataRaw& packet) override;
    void Complete() override;

    /// How long the packet lasts.
    std::int64_t Milliseconds(const Proc::IDataRaw& packet) const;
    WebPPart PartOf(const Proc::IDataRaw& packet) const;
    void RequireRoom(const WebPPart& part) const;

    const boost::intrusive_ptr<Core::IDataOutput> output;
    const int plays;
    int width = 0;
    int height = 0;
    std::int64_t written = 0; ///< milliseconds
    bool transparent = false; ///< a picture was, in parts
};

} // namespace Kestra::FF
