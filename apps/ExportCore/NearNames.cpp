// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NearNames.h"

#include "ExportCore/NameList.h"
#include "ExportCore/Refusal.h"
#include <algorithm>
#include <cctype>
#include <utility>

namespace ExportCore {
namespace {

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

} // namespace

std::size_t NearNames::distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> beforeLast, last(b.size() + 1), row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row[b.size()];
}

std::vector<std::string> NearNames::find(const std::string& wanted, const std::vector<std::string>& known,
                                         std::size_t limit) {
    const std::string low = lowered(wanted);
    const std::size_t tolerance = std::max<std::size_t>(2, low.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& name : known) {
        const std::size_t away = distance(low, lowered(name));
        const bool part = low.size() >= 3 && lowered(name).find(low) != std::string::npos;
        // With every letter replaced it is another name, however short: "b" is no slip of "web".
        if ((away <= tolerance && away < low.size()) || part)
            near.emplace_back(away, name);
    }
    std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(limit, near.size()); ++i)
        names.push_back(near[i].second);
    return names;
}

std::string NearNames::question(const std::string& wanted, const std::vector<std::string>& known) {
    const std::vector<std::string> near = find(wanted, known);
    return near.empty() ? std::string() : "; did you mean " + NameList::joined(near, " or ") + '?';
}

void NearNames::refuseUnknown(const char* what, const std::string& name, const std::vector<std::string>& known,
                              Kestra::SourcePlace place) {
    const std::string asked = question(name, known);
    Kestra::ThrowFrom(Refusal(std::string("There is no ") + what + " \"" + name + '"' +
                              (asked.empty() ? "; there are " + NameList::joined(known, " and ") : asked)),
                      place);
}

void NearNames::refuseUnknownPreset(const std::string& name, const std::vector<std::string>& known,
                                    const std::vector<std::string>& tags, Kestra::SourcePlace place) {
    const auto refused = [&name](const std::string& more) {
        return Refusal("There is no preset \"" + name + '"' + more);
    };
    const auto same =
        std::find_if(tags.begin(), tags.end(), [&](const std::string& tag) { return lowered(tag) == lowered(name); });
    if (same != tags.end())
        Kestra::ThrowFrom(refused(*same == name ? "; that is a tag: presets --tag " + name + " lists its presets"
                                                : "; did you mean the tag " + *same + '?'),
                          place);
    if (!find(name, known).empty())
        refuseUnknown("preset", name, known, place);
    const std::vector<std::string> near = find(name, tags);
    Kestra::ThrowFrom(refused(near.empty() ? "; presets lists those there are"
                                           : "; did you mean the tag " + NameList::joined(near, " or ") +
                                                 "? (presets --tag " + near.front() + " lists its presets)"),
                      place);
}

} // namespace ExportCore
