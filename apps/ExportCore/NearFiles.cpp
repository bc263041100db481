// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NearFiles.h"

#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include <algorithm>
#include <dirent.h>
#include <memory>
#include <vector>

namespace ExportCore {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::vector<std::string> namesIn(const std::string& folder) {
    constexpr std::size_t MOST = 5000;
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    std::vector<std::string> names;
    while (const dirent* entry = open && names.size() < MOST ? readdir(open.get()) : nullptr)
        if (entry->d_name[0] != '.')
            names.emplace_back(entry->d_name);
    return names;
}

/// Stricter than elsewhere: in a folder of many names one is always similar.
bool isNear(const std::string& wanted, const std::string& found) {
    const std::size_t away = NearNames::distance(wanted, found);
    const std::size_t stem = wanted.find_last_of('.');
    return found.find(wanted) != std::string::npos ||
           (away <= std::max<std::size_t>(1, wanted.size() / 4) && away < std::min(stem, wanted.size()));
}

} // namespace

std::string NearFiles::question(const QByteArray& path) {
    constexpr std::size_t MOST = 3, CANDIDATES = 30;
    const std::string whole = path.toStdString();
    const std::size_t slash = whole.find_last_of('/');
    const std::string folder = slash == std::string::npos ? std::string() : whole.substr(0, slash + 1);
    const std::string name = whole.substr(folder.size());
    std::vector<std::string> near;
    for (const std::string& found : NearNames::find(name, namesIn(folder.empty() ? "." : folder), CANDIDATES))
        if (isNear(name, found) && near.size() < MOST)
            near.push_back(std::string("\"").append(folder).append(found).append("\""));
    return near.empty() ? std::string() : "; did you mean " + NameList::joined(near, " or ") + '?';
}

} // namespace ExportCore
