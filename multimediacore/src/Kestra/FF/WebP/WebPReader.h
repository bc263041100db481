// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::WebPReader: goes through a finished file of pictures that move.
#pragma once

#include "Kestra/Base/Descriptor.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Base/ioPath.h"
#include "Kestra/FF/WebP/WebPPart.h"
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::FF {

/// Reads such files as are written here: the first picture is whole, and each other one is a part that replaces what
/// was at its place. Holds one picture at a time. Throws ProcException (OutputFailed) that says what is wrong with the
/// file.
class WebPReader {
public:
    /// Whether the file begins as an animated one; false also where there is none.
    static bool IsAnimated(const ioPath& path);

    /// Reads the head.
    explicit WebPReader(const ioPath& path);

    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    /// How often it is shown; 0: for ever.
    int GetPlays() const { return plays; }
    std::int64_t GetSize() const { return size; } ///< bytes

    /// Reads and decodes the next picture. False at the end, which is that of the file.
    bool Next();
    /// The current one, which is there until the next call of Next.
    const WebPPart& GetPart() const { return part; }

private:
    [[noreturn]] void Refuse(const std::string& fault, SourcePlace place = SourcePlace::Here()) const;
    /// Likewise of the current picture.
    [[noreturn]] void RefusePicture(const std::string& fault, SourcePlace place = SourcePlace::Here()) const;
    void Read(std::int64_t count);
    void ReadHead();
    void TakePart();

    const std::string name;
    const Descriptor file;
    std::int64_t size = 0;
    std::int64_t position = 0;
    std::int64_t number = 0; ///< of the current picture, from 1
    int width = 0;
    int height = 0;
    int plays = 0;
    bool transparent = false;        ///< the head says that pictures may be
    std::vector<std::uint8_t> bytes; ///< read last
    WebPPart part;
};

} // namespace Kestra::FF
