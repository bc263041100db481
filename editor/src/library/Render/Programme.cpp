// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/Programme.h"

#include "Kestra/Conf/StandardRates.h"
#include "Timeline/MarkerList.h"
#include <algorithm>
#include <vector>

namespace Render {

using Kestra::Ticks;
using Kestra::Conf::ProgrammeInfo;
using Timeline::Marker;

namespace {

std::vector<Marker> sortedMarkersOf(const Timeline::Stack& stack) {
    std::vector<Marker> all = Timeline::markersOf(stack);
    std::stable_sort(all.begin(), all.end(),
                     [](const Marker& a, const Marker& b) { return a.range.start < b.range.start; });
    return all;
}

std::string titleOf(const Marker& marker, std::size_t number) {
    if (!marker.name.empty())
        return marker.name;
    return marker.comment.empty() ? "Marker " + std::to_string(number) : marker.comment;
}

std::vector<ProgrammeInfo::Chapter> chaptersOf(const Timeline::Document& document, const Window& window) {
    std::vector<ProgrammeInfo::Chapter> chapters;
    for (const Marker& marker : sortedMarkersOf(*document.tracks)) {
        const Ticks start = marker.range.start - window.start();
        if (start < Ticks(0) || marker.range.start >= window.end())
            continue;
        if (!chapters.empty() && chapters.back().start == start.Value())
            continue;
        if (!chapters.empty())
            chapters.back().end = start.Value();
        chapters.push_back(
            {start.Value(), (window.end() - window.start()).Value(), titleOf(marker, chapters.size() + 1)});
    }
    return chapters;
}

} // namespace

ProgrammeInfo programmeOf(const Timeline::Document& document, const Window& window) {
    ProgrammeInfo info;
    info.title = document.name;
    info.chapters = chaptersOf(document, window);
    if (document.globalStart) {
        info.timecode = (*document.globalStart + window.start()).Value();
        // Writers of such time codes drop numbers without saying so.
        info.dropFrame = window.grid() && Kestra::Conf::IsDropFrameRate(window.grid()->GetRate());
    }
    return info;
}

ProgrammeInfo programmeOf(const Sequence& sequence, const Window& window) {
    ProgrammeInfo info = programmeOf(*sequence.document, window);
    if (!sequence.programme)
        return info;
    ProgrammeInfo told = sequence.programme->Part(window.start().Value(), window.end().Value());
    if (info.timecode) {
        told.timecode = info.timecode;
        told.dropFrame = info.dropFrame;
    }
    return told;
}

} // namespace Render
