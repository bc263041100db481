// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SamePlace.h"

#include <filesystem>
#include <system_error>

namespace Cli {
namespace {

namespace fs = std::filesystem;

/// Follows links that lead to nothing yet, too; folders need not be there, either.
fs::path truePath(const fs::path& path) {
    std::error_code error;
    constexpr int MOST_LINKS = 40; // as the system has it
    fs::path place = fs::absolute(path, error);
    while (place.has_relative_path() && (!place.has_filename() || place.filename() == "."))
        place = place.parent_path(); // "folder/" is "folder"
    for (int links = 0; links < MOST_LINKS && fs::is_symlink(place, error); ++links) {
        const fs::path target = fs::read_symlink(place, error);
        place = target.is_absolute() ? target : place.parent_path() / target;
    }
    const fs::path folder = fs::weakly_canonical(place.parent_path(), error);
    return error ? place : folder / place.filename();
}

} // namespace

bool isSamePlace(const std::string& a, const std::string& b) {
    if (a.empty() || b.empty())
        return false;
    std::error_code error;
    return a == b || fs::equivalent(a, b, error) || truePath(a) == truePath(b);
}

std::string placeOf(const std::string& path) {
    return truePath(path).string();
}

} // namespace Cli
