#include "EditorProject/Section.h"

#include "Kestra/Base/Time.h"
#include <algorithm>

namespace Project {
namespace {

/// Engine time at which each clip's sound begins.
std::vector<std::int64_t> soundStarts(const Timeline& timeline, const ExportWindow& window) {
    std::vector<std::int64_t> starts;
    std::int64_t latest = 0;
    for (const Clip& clip : timeline.clips()) {
        std::int64_t start = clip.start;
        if (window.rate() > 0 && clip.info.video)
            start = Kestra::FramesToTime(Kestra::TimeToFrames(start, window.rate()), window.rate());
        latest = std::max(latest, start);
        starts.push_back(latest);
    }
    return starts;
}

/// `starts`: where each clip begins, counted from the start of the stream; negative before it.
std::vector<Section> sectionsOf(const std::vector<std::int64_t>& starts, std::int64_t total) {
    std::vector<Section> sections;
    for (std::size_t clip = 0; clip < starts.size(); ++clip) {
        const std::int64_t first = std::max<std::int64_t>(0, starts[clip]);
        const std::int64_t end = clip + 1 < starts.size() ? std::min(starts[clip + 1], total) : total;
        if (first < end)
            sections.push_back({clip, first, end - first, first - starts[clip]});
    }
    return sections;
}

} // namespace

std::vector<Section> pictureSections(const Timeline& timeline, const ExportWindow& window) {
    std::vector<std::int64_t> starts;
    for (const Clip& clip : timeline.clips())
        starts.push_back(Kestra::TimeToFrames(clip.start, window.rate()) - window.firstFrame());
    return sectionsOf(starts, window.frames());
}

std::vector<Section> soundSections(const Timeline& timeline, const ExportWindow& window, int sampleRate) {
    std::vector<std::int64_t> starts = soundStarts(timeline, window);
    for (std::int64_t& start : starts)
        start = Kestra::TimeToSamples(start - window.start(), sampleRate);
    return sectionsOf(starts, window.samples(sampleRate));
}

const Section& sectionAt(const std::vector<Section>& sections, std::int64_t position) {
    const auto after =
        std::upper_bound(sections.begin(), sections.end(), position,
                         [](std::int64_t value, const Section& section) { return value < section.first; });
    return after == sections.begin() ? sections.front() : *(after - 1);
}

} // namespace Project
