// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::StatisticsFile: a file of the first of two passes.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include <cstddef>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

namespace Kestra::FF {

/// Every failure is a ProcException that names the file: OutputNotWritable or DiskFull for one that is written,
/// SourceUnreadable for one that is read.
class StatisticsFile {
public:
    enum class Mode { Read, Write, Append };

    /// An empty file in the mode Write.
    StatisticsFile(const std::string& path, Mode mode);

    static bool Exists(const std::string& path);

    void Write(const std::string& text);
    /// Part by part to the end.
    void ReadAll(const std::function<void(const char* bytes, std::size_t size)>& take);
    /// What was written has arrived. Without it the file is closed, complete or not.
    void Close();

private:
    struct Closer {
        void operator()(std::FILE* open) const noexcept { std::fclose(open); }
    };
    [[noreturn]] void Throw(const char* what, SourcePlace place = SourcePlace::Here()) const;

    const std::string path;
    const Mode mode;
    std::unique_ptr<std::FILE, Closer> file;
};

} // namespace Kestra::FF
