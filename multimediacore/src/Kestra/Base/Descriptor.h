// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Descriptor: an open file or folder of the system's.
#pragma once

#include <unistd.h>

namespace Kestra {

/// Owns a descriptor and closes it; what closing fails with is lost, so whoever writes closes by other means. Below 0:
/// none.
class Descriptor {
public:
    explicit Descriptor(int number)
        : number(number) {}
    ~Descriptor() {
        if (number >= 0)
            ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return number; }
    explicit operator bool() const { return number >= 0; }

private:
    const int number;
};

} // namespace Kestra
