// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::MemoryFaults: allocations of this process that fail on purpose.
#pragma once

#include <array>
#include <cstddef>

namespace Sweep {

/// A program that links this has its malloc and its operator new: the definitions in the program come first. Who asks
/// is told by the library whose code does: those of this project, or those of the codecs (libav*, libsw*). What all
/// others ask for, Qt, which ends the process when it gets nothing, and the system first of all, is never refused.
class MemoryFaults {
public:
    enum class Whose { Ours, Codecs };
    struct Plan {
        Whose whose = Whose::Ours;
        long at = -1; ///< the first that fails, from 0; none for -1
        bool forEver = false;
    };
    /// Places in the code, innermost first, as far as there are any.
    using Places = std::array<void*, 32>;

    /// Once, before arm(): loads the codecs and learns which libraries there are.
    static void learn();
    /// Counts from here on, and fails as planned. Nothing fails before.
    static void arm(const Plan& plan);
    static void disarm();

    static long count(Whose whose);
    static bool hasFailed();
    /// Who asked when the first one failed.
    static const Places& where();

    /// Where that is: the innermost places outside the standard library, "libKestra.so.0+0x1234 libavcodec.so.59+0x56".
    static void name(const Places& places, char* text, std::size_t size);
    /// Whether the innermost place, but for those of who looks for it and of the system, is one of the codecs' code.
    static bool isInCodecs(const Places& places);
    /// The call of ours into the codecs that led there, "avformat_open_input"; empty on a thread of their own.
    static void nameCall(const Places& places, char* text, std::size_t size);
};

} // namespace Sweep
