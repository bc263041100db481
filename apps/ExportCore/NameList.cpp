// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NameList.h"

namespace ExportCore {

std::string NameList::joined(const std::vector<std::string>& names, const std::string& last,
                             const std::string& between) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? std::string() : i + 1 < names.size() ? between : last) + names[i];
    return text;
}

} // namespace ExportCore
