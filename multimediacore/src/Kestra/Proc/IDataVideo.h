// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/Proc/IData.h"

namespace Kestra::Proc {

/// One picture.
class KESTRA_EXPORT IDataVideo : public IData {
public:
    ~IDataVideo() override;
    virtual Conf::FrameInfo GetFrameInfo() const = 0;
    virtual Conf::PixelFormat GetPixelFormat() const = 0;
    /// A new object on the same pixels, with times of its own.
    virtual boost::intrusive_ptr<IDataVideo> Share() const = 0;
};

} // namespace Kestra::Proc
