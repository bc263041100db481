// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IDataVideoFFFactory.h"
#include <memory>

namespace Kestra::FF {

class DataVideoFFFactory final : public Proc::IDataVideoFFFactory {
public:
    boost::intrusive_ptr<Proc::IDataVideo> CreateDataVideo(const Conf::FrameInfo& frame, Conf::PixelFormat format,
                                                           const Writer& write) override;
};

std::shared_ptr<Proc::IDataVideoFFFactory> MakeDataVideoFFFactory();

} // namespace Kestra::FF
