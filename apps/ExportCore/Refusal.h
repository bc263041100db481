// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::Refusal: a request that cannot be carried out.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Base/Exception.h"

namespace ExportCore {

/// Thrown before anything was begun. what() is one line that names what is refused and why, in UTF-8.
class EXPORTCORE_EXPORT Refusal : public Kestra::Exception {
public:
    using Kestra::Exception::Exception;
    ~Refusal() noexcept override;
};

} // namespace ExportCore
