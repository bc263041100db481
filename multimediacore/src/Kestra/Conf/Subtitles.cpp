// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Subtitles.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <set>
#include <utility>

namespace Kestra::Conf {

namespace {

constexpr const char* TAG_LANGUAGE = "language";
constexpr const char* TAG_TITLE = "title";
constexpr const char* TAG_DEFAULT = "default";
constexpr const char* TAG_FORCED = "forced";
constexpr const char* TAG_STYLED = "styled";
constexpr const char* TAG_HEADER = "header";
constexpr const char* TAG_CUES = "cues";

constexpr int FIELDS_BEFORE_TEXT = 8;

/// Where the text of an event begins.
std::size_t TextPlace(const std::string& event) {
    std::size_t place = 0;
    for (int field = 0; field < FIELDS_BEFORE_TEXT; ++field) {
        const std::size_t comma = event.find(',', place);
        if (comma == std::string::npos)
            return event.size();
        place = comma + 1;
    }
    return place;
}

/// All cues in one value: there may be thousands, and a tree looks its nodes up by name.
std::string Packed(const std::vector<Subtitles::Cue>& cues) {
    std::string packed;
    for (const Subtitles::Cue& cue : cues)
        packed += std::to_string(cue.start) + ' ' + std::to_string(cue.end) + ' ' + std::to_string(cue.event.size()) +
                  '\n' + cue.event;
    return packed;
}

std::vector<Subtitles::Cue> Unpacked(const std::string& packed) {
    std::vector<Subtitles::Cue> cues;
    const char* at = packed.c_str();
    const char* const end = at + packed.size();
    while (at < end) {
        char* next = nullptr;
        Subtitles::Cue cue;
        cue.start = std::strtoll(at, &next, 10);
        cue.end = std::strtoll(next, &next, 10);
        const auto size = static_cast<std::size_t>(std::strtoull(next, &next, 10));
        cue.event.assign(next + 1, size);
        at = next + 1 + size;
        cues.push_back(std::move(cue));
    }
    return cues;
}

/// Those that are shown all the time from `start` to `end`, as one.
Subtitles::Cue Together(const std::vector<const Subtitles::Cue*>& shown, std::int64_t start, std::int64_t end) {
    Subtitles::Cue cue{start, end, shown.front()->event};
    for (std::size_t i = 1; i < shown.size(); ++i)
        cue.event += "\\N" + shown[i]->Text();
    return cue;
}

/// Whether some override of a text, between "{" and "}", begins with a backslash and one of the names.
bool Overrides(const std::string& text, std::initializer_list<const char*> names) {
    for (std::size_t open = text.find('{'); open != std::string::npos; open = text.find('{', open + 1)) {
        const std::size_t close = text.find('}', open);
        if (close == std::string::npos)
            return false;
        for (std::size_t tag = text.find('\\', open); tag < close; tag = text.find('\\', tag + 1))
            for (const char* const name : names)
                if (text.compare(tag + 1, std::char_traits<char>::length(name), name) == 0)
                    return true;
    }
    return false;
}

bool AnyOverrides(const std::vector<Subtitles::Cue>& cues, std::initializer_list<const char*> names) {
    return std::any_of(cues.begin(), cues.end(),
                       [&names](const Subtitles::Cue& cue) { return Overrides(cue.Text(), names); });
}

} // namespace

bool Subtitles::HasColours() const {
    return AnyOverrides(cues, {"c&", "1c&", "2c&", "3c&", "4c&"});
}

bool Subtitles::HasPlaces() const {
    return AnyOverrides(cues, {"an", "pos(", "move("});
}

std::string Subtitles::Cue::Text() const {
    return event.substr(TextPlace(event));
}

Subtitles Subtitles::Part(std::int64_t start, std::int64_t end) const {
    Subtitles part = *this;
    part.cues.clear();
    for (const Cue& cue : cues) {
        const std::int64_t from = std::max(cue.start, start);
        const std::int64_t to = std::min(cue.end, end);
        if (from < to)
            part.cues.push_back({from - start, to - start, cue.event});
    }
    return part;
}

int Subtitles::MostAtATime() const {
    std::vector<std::pair<std::int64_t, int>> changes; // ends before starts
    for (const Cue& cue : cues) {
        changes.emplace_back(cue.start, 1);
        changes.emplace_back(cue.end, -1);
    }
    std::sort(changes.begin(), changes.end());
    int shown = 0, most = 0;
    for (const auto& [time, change] : changes)
        most = std::max(most, shown += change);
    return most;
}

Subtitles Subtitles::OneAtATime() const {
    std::set<std::int64_t> changes;
    for (const Cue& cue : cues) {
        changes.insert(cue.start);
        changes.insert(cue.end);
    }
    Subtitles result = *this;
    result.cues.clear();
    std::vector<const Cue*> shown;
    auto next = cues.begin();
    for (auto change = changes.begin(); change != changes.end() && std::next(change) != changes.end(); ++change) {
        const auto isOver = [&change](const Cue* cue) { return cue->end <= *change; };
        const auto before = shown.size();
        shown.erase(std::remove_if(shown.begin(), shown.end(), isOver), shown.end());
        bool changed = shown.size() != before;
        for (; next != cues.end() && next->start <= *change; ++next, changed = true)
            if (next->end > *change && shown.size() < MOST_TOGETHER)
                shown.push_back(&*next);
        if (shown.empty())
            continue;
        if (changed || result.cues.empty())
            result.cues.push_back(Together(shown, *change, *std::next(change)));
        else
            result.cues.back().end = *std::next(change);
    }
    return result;
}

void Subtitles::TellIn(Core::Property& node) const {
    node.SetChild(TAG_LANGUAGE, language);
    node.SetChild(TAG_TITLE, title);
    node.SetChild(TAG_DEFAULT, isDefault);
    node.SetChild(TAG_FORCED, forced);
    node.SetChild(TAG_STYLED, styled);
    node.SetChild(TAG_HEADER, header);
    node.SetChild(TAG_CUES, Packed(cues));
}

Subtitles Subtitles::Of(const Core::Property& node) {
    Subtitles told;
    told.language = node[TAG_LANGUAGE].GetString();
    told.title = node[TAG_TITLE].GetString();
    told.isDefault = node[TAG_DEFAULT].GetBool();
    told.forced = node[TAG_FORCED].GetBool();
    told.styled = node[TAG_STYLED].GetBool();
    told.header = node[TAG_HEADER].GetString();
    told.cues = Unpacked(node[TAG_CUES].GetString());
    return told;
}

} // namespace Kestra::Conf
