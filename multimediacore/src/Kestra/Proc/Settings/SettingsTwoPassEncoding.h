// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::SettingsTwoPassEncoding: which pass of two an encoder runs, and where the statistics lie.
#pragma once

#include "KestraExport.h"
#include <string>

namespace Kestra::Proc {

class KESTRA_EXPORT SettingsTwoPassEncoding {
public:
    SettingsTwoPassEncoding() = default;
    SettingsTwoPassEncoding(const SettingsTwoPassEncoding&) = default;
    SettingsTwoPassEncoding& operator=(const SettingsTwoPassEncoding&) = default;
    virtual ~SettingsTwoPassEncoding();

    /// UTF-8 path, written in the first pass and read in the second. Encoders may put side files next to it.
    void SetLogFile(const std::string& path) { logFile = path; }
    const std::string& GetLogFile() const { return logFile; }

    bool firstPass = false;

private:
    std::string logFile;
};

} // namespace Kestra::Proc
