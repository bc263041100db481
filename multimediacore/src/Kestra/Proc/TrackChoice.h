// Kestra::Proc::TrackChoice: which of a medium's sound tracks is its main one.
#pragma once

#include <optional>
#include <string>

namespace Kestra::Proc {

/// A value. Without a choice the medium's own default, or the best one, is. A medium without any sound track has none,
/// whatever is chosen; one whose sound tracks are others is refused.
struct TrackChoice {
    std::optional<int> sound;  ///< among the container's streams
    std::string soundLanguage; ///< the first track in it; empty for any. See Conf::Language.

    bool IsMade() const { return sound || !soundLanguage.empty(); }
};

} // namespace Kestra::Proc
