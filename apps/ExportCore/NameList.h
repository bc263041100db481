// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::NameList: names in a sentence.
#pragma once

#include "ExportCoreExport.h"
#include <string>
#include <vector>

namespace ExportCore {

struct EXPORTCORE_EXPORT NameList {
    /// "a, b, c"; "a, b and c" with " and " before the last. Empty for no names.
    static std::string joined(const std::vector<std::string>& names, const std::string& last = ", ",
                              const std::string& between = ", ");

    NameList() = delete;
};

} // namespace ExportCore
