// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SubtitleJoin: the subtitles of several media, one after the other.
#pragma once

#include "Kestra/Conf/Subtitles.h"
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace ExportCore {

/// Tracks of different media are one where they have the same language and are both forced or not: the first such of
/// one medium goes with the first of the next, the second with the second.
class SubtitleJoin {
public:
    void beginMedium() { counts.clear(); }
    /// Of the medium that has begun, shifted by `at` (engine time). False for one that shows nothing, which is left
    /// out.
    bool add(const Kestra::Conf::Subtitles& track, std::int64_t at);

    /// As files of the container tell them, without names unless `named`. Adds to `notes` what is lost.
    std::vector<Kestra::Conf::Subtitles> take(const std::string& container, bool named,
                                              std::vector<std::string>& notes);

private:
    /// Language, whether it is forced, and the how manieth of that kind it is.
    using Key = std::tuple<std::string, bool, int>;
    struct Joined {
        Kestra::Conf::Subtitles track;
        bool stylesDiffer = false;
        bool titlesDiffer = false;
    };

    Joined& joinedFor(const Key& key, const Kestra::Conf::Subtitles& track);

    std::map<std::pair<std::string, bool>, int> counts; ///< of the medium's tracks so far
    std::map<Key, std::size_t> places;
    std::vector<Joined> tracks;
};

} // namespace ExportCore
