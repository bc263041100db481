// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandTable.h"

#include "ExportCore/NameList.h"

namespace Cli {

std::string OptionText::joinedNames() const {
    return ExportCore::NameList::joined(names, ", ", ", ");
}

std::string CommandText::name() const {
    std::string name = "editor-export";
    for (const std::string& word : words)
        name += ' ' + word;
    return name;
}

} // namespace Cli
