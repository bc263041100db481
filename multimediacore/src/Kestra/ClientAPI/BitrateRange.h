// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace Kestra::ClientAPI {

/// Bitrates in bit/s; {0, 0} means no range.
struct BitrateRange {
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;

    friend bool operator==(const BitrateRange& a, const BitrateRange& b) {
        return a.minimum == b.minimum && a.maximum == b.maximum;
    }
    friend bool operator!=(const BitrateRange& a, const BitrateRange& b) { return !(a == b); }
};

} // namespace Kestra::ClientAPI
