// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::TrackChoice: which of a medium's sound tracks is its main one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Kestra::Proc {

/// A value. Without a choice the medium's own default, or the best one, is. A medium without any sound track has none,
/// whatever is chosen; one whose sound tracks are others is refused.
struct TrackChoice {
    std::optional<int> sound;  ///< among the container's streams
    std::string soundLanguage; ///< the first track in it; empty for any. See Conf::Language.
    /// Where the media's time 0 lies, as MediaInfo::origin tells it; unset: where its main tracks begin. No choice.
    std::optional<std::int64_t> origin{};

    bool IsMade() const { return sound || !soundLanguage.empty(); }
};

} // namespace Kestra::Proc
