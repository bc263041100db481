// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::Refusal: a request that cannot be carried out.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/TranscodingError.h"
#include <string>

namespace ExportCore {

/// Thrown before anything was begun. what() is one line that names what is refused and why, in UTF-8.
class EXPORTCORE_EXPORT Refusal : public Kestra::Exception {
public:
    using Code = Kestra::Proc::TranscodingError;

    using Kestra::Exception::Exception;
    /// Of another kind than InvalidArgument: for the sake of an input, or of the output's place.
    Refusal(const std::string& message, Code code);
    ~Refusal() noexcept override;

    Code code() const noexcept;
};

} // namespace ExportCore
