// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::ioPath: a file-system path as the engine takes it.
#pragma once

#include <string>
#include <utility>

namespace Kestra {

/// UTF-8 bytes, handed to the system as they are. A value.
class ioPath {
public:
    ioPath() = default;
    explicit ioPath(std::string utf8)
        : bytes(std::move(utf8)) {}

    const std::string& ToUtf8() const { return bytes; }
    bool IsEmpty() const { return bytes.empty(); }

    friend bool operator==(const ioPath& a, const ioPath& b) { return a.bytes == b.bytes; }
    friend bool operator!=(const ioPath& a, const ioPath& b) { return !(a == b); }

private:
    std::string bytes;
};

} // namespace Kestra
