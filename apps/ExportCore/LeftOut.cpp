// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LeftOut.h"

#include "ExportCore/NameList.h"
#include <utility>
#include <vector>

namespace ExportCore {
namespace {

using Kestra::Proc::ListedTrack;
using Kestra::Proc::MediaContents;

/// Beyond that the numbers of tracks are of no use to anybody.
constexpr std::size_t MOST_NAMED = 8;

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string nameOf(const ListedTrack& track) {
    const std::string name = std::to_string(track.index);
    return track.language.empty() ? name : name + ", " + track.language;
}

/// Empty where there are none.
std::string textOf(const MediaContents& contents, const LeftOut& left, ListedTrack::Kind kind, const char* what) {
    std::vector<std::string> names;
    for (const ListedTrack& track : contents.tracks)
        if (track.kind == kind && left.keptTracks.count(track.index) == 0)
            names.push_back(nameOf(track));
    if (names.empty())
        return {};
    const std::string text = counted(names.size(), what);
    return names.size() > MOST_NAMED ? text : text + " (" + NameList::joined(names, "; ", "; ") + ')';
}

std::string tagsOf(const MediaContents& contents, const LeftOut& left) {
    if (!left.tags)
        return contents.programme.tags.empty() ? "" : "tags";
    std::vector<std::string> lost;
    for (const auto& [key, value] : contents.programme.tags)
        if (left.lostTags.count(key) > 0)
            lost.push_back(key);
    if (lost.empty())
        return {};
    return lost.size() > MOST_NAMED
               ? counted(lost.size(), "tag")
               : std::string(lost.size() == 1 ? "tag" : "tags") + " (" + NameList::joined(lost, ", ", ", ") + ')';
}

} // namespace

std::string LeftOut::of(const MediaContents& contents) const {
    using Kind = ListedTrack::Kind;
    const std::pair<Kind, const char*> kinds[] = {
        {Kind::Picture, "picture track"}, {Kind::Sound, "sound track"},      {Kind::Subtitles, "subtitle track"},
        {Kind::Data, "data track"},       {Kind::Cover, "attached picture"}, {Kind::Attachment, "attachment"}};
    std::vector<std::string> parts;
    const auto add = [&parts](const std::string& part) {
        if (!part.empty())
            parts.push_back(part);
    };
    for (const auto& [kind, what] : kinds)
        add(textOf(contents, *this, kind, what));
    if (const std::size_t count = contents.programme.chapters.size(); count > 0 && !chapters)
        add(counted(count, "chapter"));
    if (!contents.programme.title.empty() && !title)
        add("title");
    add(tagsOf(contents, *this));
    add(lostTimecode ? "time code" : "");
    return parts.empty() ? std::string() : "left out: " + NameList::joined(parts, ", ", ", ");
}

} // namespace ExportCore
