// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TrackOptions.h"

#include "Kestra/Conf/Language.h"
#include <charconv>
#include <optional>

namespace ExportCore {
namespace {

std::optional<int> numberOf(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end && number >= 0 ? std::optional(number) : std::nullopt;
}

} // namespace

bool TrackOptions::chooseSound(const std::string& text) {
    Kestra::Proc::TrackChoice chosen;
    if (text == "all" || text == "none") {
        sound = text == "all" ? Sound::All : Sound::None;
        choice = {};
        return true;
    }
    chosen.sound = numberOf(text);
    if (!chosen.sound)
        chosen.soundLanguage = Kestra::Conf::Language::CodeOf(text);
    if (!chosen.IsMade())
        return false;
    sound = Sound::Chosen;
    choice = chosen;
    return true;
}

} // namespace ExportCore
