// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/SequenceFiles.h"

#include "Kestra/Proc/Failure.h"
#include <algorithm>
#include <charconv>
#include <filesystem>

namespace Kestra::FF {

using Proc::Fail;
using Proc::TranscodingError;

namespace {

namespace fs = std::filesystem;

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

void RequireNo(const std::error_code& error, const ioPath& folder) {
    if (!error)
        return;
    const bool missing = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    Fail(missing ? TranscodingError::SourceNotFound : TranscodingError::SourceUnreadable,
         "Cannot look for pictures in \"" + folder.ToUtf8() + "\": " + error.message());
}

} // namespace

SequenceFiles::SequenceFiles(const Proc::SettingsImageSequence& settings, const std::atomic<bool>& interrupted)
    : settings(settings) {
    std::error_code error;
    fs::directory_iterator entry(fs::path(settings.folder.ToUtf8()), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (interrupted)
            Fail(TranscodingError::SourceUnreadable,
                 "Looking for pictures in \"" + settings.folder.ToUtf8() + "\" was interrupted");
        if (const auto index = IndexOf(entry->path().filename().string()))
            present.push_back(*index);
    }
    RequireNo(error, settings.folder);
    std::sort(present.begin(), present.end());
}

std::string SequenceFiles::NameOf(std::int64_t index) const {
    const std::int64_t number = settings.firstNumber + index * settings.step;
    std::string text = std::to_string(number < 0 ? -number : number);
    const auto digits = static_cast<std::size_t>(std::max(settings.digits, 0));
    text.insert(0, std::max(text.size(), digits) - text.size(), '0');
    return settings.prefix + (number < 0 ? "-" : "") + text + settings.suffix;
}

ioPath SequenceFiles::PathOf(std::int64_t index) const {
    return ioPath((fs::path(settings.folder.ToUtf8()) / NameOf(index)).string());
}

std::optional<std::int64_t> SequenceFiles::IndexOf(const std::string& name) const {
    const std::size_t around = settings.prefix.size() + settings.suffix.size();
    if (name.size() <= around || !StartsWith(name, settings.prefix) || !EndsWith(name, settings.suffix))
        return std::nullopt;
    const char* const begin = name.data() + settings.prefix.size();
    const char* const end = name.data() + name.size() - settings.suffix.size();
    std::int64_t number = 0;
    const auto [rest, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || rest != end)
        return std::nullopt;
    std::int64_t distance = 0;
    if (__builtin_sub_overflow(number, settings.firstNumber, &distance) || distance < 0 ||
        distance % settings.step != 0 || (settings.count && distance / settings.step >= *settings.count))
        return std::nullopt;
    // "7" and "007" are two names, of which the sequence has one.
    const std::int64_t index = distance / settings.step;
    return NameOf(index) == name ? std::optional(index) : std::nullopt;
}

std::optional<std::int64_t> SequenceFiles::PresentBefore(std::int64_t index) const {
    const auto notBefore = std::lower_bound(present.begin(), present.end(), index);
    return notBefore == present.begin() ? std::nullopt : std::optional(*(notBefore - 1));
}

std::optional<std::int64_t> SequenceFiles::PresentBehind(std::int64_t index) const {
    const auto behind = std::upper_bound(present.begin(), present.end(), index);
    return behind == present.end() ? std::nullopt : std::optional(*behind);
}

} // namespace Kestra::FF
