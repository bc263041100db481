// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Refusal.h"

#include <boost/exception/get_error_info.hpp>

namespace ExportCore {

Refusal::Refusal(const std::string& message, Code code)
    : Kestra::Exception(message) {
    *this << Kestra::TagErrorCode(static_cast<int>(code));
}

Refusal::~Refusal() noexcept = default;

Refusal::Code Refusal::code() const noexcept {
    const int* const code = boost::get_error_info<Kestra::TagErrorCode>(*this);
    return code ? static_cast<Code>(*code) : Code::InvalidArgument;
}

} // namespace ExportCore
