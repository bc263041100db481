// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SequenceFiles: which files of an image sequence are there.
#pragma once

#include "Kestra/Proc/Settings/SettingsImageSequence.h"
#include <atomic>
#include <optional>
#include <vector>

namespace Kestra::FF {

/// The folder is listed once. Never changes.
class SequenceFiles {
public:
    /// Throws ProcException: SourceNotFound for a folder that is missing, SourceUnreadable for one that cannot be
    /// listed, or once interrupted.
    SequenceFiles(const Proc::SettingsImageSequence& settings, const std::atomic<bool>& interrupted);

    std::string NameOf(std::int64_t index) const;
    ioPath PathOf(std::int64_t index) const;
    /// Indices of those that are there, rising.
    const std::vector<std::int64_t>& GetPresent() const { return present; }
    /// Of those that are there the last before `index`, and the first behind it.
    std::optional<std::int64_t> PresentBefore(std::int64_t index) const;
    std::optional<std::int64_t> PresentBehind(std::int64_t index) const;

private:
    /// Unset for a name that is none of the sequence's.
    std::optional<std::int64_t> IndexOf(const std::string& name) const;

    const Proc::SettingsImageSequence settings;
    std::vector<std::int64_t> present;
};

} // namespace Kestra::FF
