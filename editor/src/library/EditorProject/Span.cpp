#include "EditorProject/Span.h"

#include <algorithm>

namespace Project {
namespace {

using Kestra::FrameGrid;
using Kestra::FrameIndex;
using Kestra::SampleGrid;
using Kestra::SampleIndex;
using Kestra::Ticks;

/// When each clip's sound begins in the composition.
std::vector<Ticks> soundStarts(const Timeline& timeline, const ExportWindow& window) {
    std::vector<Ticks> starts;
    Ticks latest;
    for (const Clip& clip : timeline.clips()) {
        Ticks start(clip.start);
        if (window.grid() && clip.info.video)
            start = window.grid()->Begin(window.grid()->Nearest(start));
        latest = std::max(latest, start);
        starts.push_back(latest);
    }
    return starts;
}

/// `starts`: where each clip begins, counted from the start of the stream; negative before it.
template <class Index>
std::vector<Span<Index>> spansOf(const std::vector<Index>& starts, Index total) {
    std::vector<Span<Index>> spans;
    for (std::size_t clip = 0; clip < starts.size(); ++clip) {
        const Index first = std::max(Index(0), starts[clip]);
        const Index end = clip + 1 < starts.size() ? std::min(starts[clip + 1], total) : total;
        if (first < end)
            spans.push_back({clip, first, end - first, first - starts[clip]});
    }
    return spans;
}

template <class Index>
const Span<Index>& findSpan(const std::vector<Span<Index>>& spans, Index place) {
    const auto after = std::upper_bound(spans.begin(), spans.end(), place,
                                        [](Index value, const Span<Index>& span) { return value < span.first; });
    return after == spans.begin() ? spans.front() : *(after - 1);
}

} // namespace

PictureSpans pictureSpans(const Timeline& timeline, const ExportWindow& window) {
    std::vector<FrameIndex> starts;
    for (const Clip& clip : timeline.clips())
        starts.push_back(window.grid()->Nearest(Ticks(clip.start)) - window.firstFrame());
    return spansOf(starts, window.frames());
}

SoundSpans soundSpans(const Timeline& timeline, const ExportWindow& window, const SampleGrid& grid) {
    std::vector<SampleIndex> starts;
    for (const Ticks start : soundStarts(timeline, window))
        starts.push_back(grid.Nearest(start - window.start()));
    return spansOf(starts, window.samples(grid));
}

const PictureSpan& spanAt(const PictureSpans& spans, FrameIndex place) {
    return findSpan(spans, place);
}

const SoundSpan& spanAt(const SoundSpans& spans, SampleIndex place) {
    return findSpan(spans, place);
}

} // namespace Project
