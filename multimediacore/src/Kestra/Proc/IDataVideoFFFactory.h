// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IDataVideoFFFactory: pictures from pixels that lie elsewhere.
#pragma once

#include "Kestra/Proc/IDataVideo.h"
#include <cstddef>
#include <functional>

namespace Kestra::Proc {

class KESTRA_EXPORT IDataVideoFFFactory {
public:
    /// Writes rows from the top on; `stride` bytes lie between the beginnings of two.
    using Writer = std::function<void(std::uint8_t* pixels, std::ptrdiff_t stride)>;

    virtual ~IDataVideoFFFactory();
    /// A picture at time 0 that lasts for no time yet, its pixels written by `write` within the call. Throws
    /// std::invalid_argument for a format of more than one plane or without pixels, or a frame without them.
    virtual boost::intrusive_ptr<IDataVideo> CreateDataVideo(const Conf::FrameInfo& frame, Conf::PixelFormat format,
                                                             const Writer& write) = 0;
};

} // namespace Kestra::Proc
