#pragma once

#include "Kestra/Core/IDataVideoFFFactory.h"
#include <memory>

namespace Kestra::FF {

class DataVideoFFFactory final : public Core::IDataVideoFFFactory {
public:
    boost::intrusive_ptr<Proc::IDataVideo> CreateDataVideo(const Conf::FrameInfo& frame, Conf::PixelFormat format,
                                                           const Writer& write) override;
};

std::shared_ptr<Core::IDataVideoFFFactory> MakeDataVideoFFFactory();

} // namespace Kestra::FF
