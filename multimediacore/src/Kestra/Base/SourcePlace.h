// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::SourcePlace: where in the engine's source something happened.
#pragma once

#include "Kestra/Base/Exception.h"

namespace Kestra {

/// A value. The default argument of functions that throw for their callers, so that an exception names who failed and
/// not who helped to say so: `void Refuse(const char* what, SourcePlace place = SourcePlace::Here());`
struct SourcePlace {
    const char* file;
    int line;
    const char* function;

    /// The place of the call; as a default argument, that of the call which leaves it out.
    static constexpr SourcePlace Here(const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                                      const char* function = __builtin_FUNCTION()) noexcept {
        return {file, line, function};
    }
};

/// Throws `exception` with that place of origin.
template <class E>
[[noreturn]] void ThrowFrom(const E& exception, const SourcePlace& place) {
    ThrowFrom(exception, place.function, place.file, place.line);
}

} // namespace Kestra
