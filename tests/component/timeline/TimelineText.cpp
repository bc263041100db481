// SPDX-License-Identifier: GPL-3.0-or-later
#include "TimelineText.h"

#include "Kestra/Base/Time.h"
#include <sstream>

namespace TimelineTests {

using Kestra::Ticks;
using namespace Timeline;

namespace {

std::string exactly(double number) {
    std::ostringstream text;
    text.precision(17);
    text << number;
    return text.str();
}

std::string objectOf(const std::string& schema, const std::string& members) {
    return R"({"OTIO_SCHEMA":")" + schema + '"' + (members.empty() ? "" : ",") + members + '}';
}

/// In milliseconds, which need not be whole.
std::string timeOf(Ticks time) {
    return objectOf("RationalTime.1", R"("rate":1000,"value":)" +
                                          exactly(static_cast<double>(time.Value()) / Kestra::TICKS_PER_MILLISECOND));
}

std::string rangeOf(Ticks start, Ticks duration) {
    return objectOf("TimeRange.1", R"("start_time":)" + timeOf(start) + R"(,"duration":)" + timeOf(duration));
}

std::string mediumOf(const Clip& clip) {
    const auto* const file = std::get_if<MediaFile>(&clip.media.target);
    if (!file)
        return objectOf("MissingReference.1", {});
    const std::string path = file->path.ToUtf8();
    constexpr Ticks LONG(1000 * Kestra::TIME_BASE);
    return objectOf("ExternalReference.1",
                    R"("target_url":")" + path.substr(path.rfind('/') + 1) + '"' +
                        (clip.origin ? R"(,"available_range":)" + rangeOf(*clip.origin, LONG) : std::string()));
}

/// Members of what has an excerpt.
std::string excerptOf(const Excerpt& excerpt, const Item& item) {
    const auto speed = boost::rational_cast<double>(excerpt.speed);
    const std::string warp = objectOf("LinearTimeWarp.1", R"("time_scalar":)" + exactly(speed));
    return R"("enabled":)" + std::string(item.enabled ? "true" : "false") + R"(,"source_range":)" +
           rangeOf(excerpt.start, item.duration) + R"(,"effects":[)" + (excerpt.speed == 1 ? "" : warp) + ']';
}

std::string stackOf(const Stack& stack, const std::string& more);

std::string textOf(const Item& item) {
    if (const auto* clip = std::get_if<Clip>(&item.content))
        return objectOf("Clip.1", excerptOf(clip->excerpt, item) + R"(,"media_reference":)" + mediumOf(*clip));
    if (const auto* nested = std::get_if<Nested>(&item.content))
        return stackOf(*nested->stack, excerptOf(nested->excerpt, item) + ',');
    return objectOf("Gap.1", R"("source_range":)" + rangeOf(Ticks(0), item.duration));
}

std::string textOf(const Transition& transition) {
    return objectOf("Transition.1", R"("transition_type":"SMPTE_Dissolve","in_offset":)" + timeOf(transition.before) +
                                        R"(,"out_offset":)" + timeOf(transition.behind));
}

std::string trackOf(const Track& track) {
    std::string children;
    const auto add = [&children](const std::string& one) { children += (children.empty() ? "" : ",\n") + one; };
    auto transition = track.transitions().begin();
    for (std::size_t index = 0; index <= track.items().size(); ++index) {
        for (; transition != track.transitions().end() && transition->at == index; ++transition)
            add(textOf(*transition));
        if (index < track.items().size())
            add(textOf(track.items()[index]));
    }
    return objectOf(
        "Track.1", std::string(R"("kind":)") + (track.kind() == Track::Kind::Video ? R"("Video")" : R"("Audio")") +
                       R"(,"enabled":)" + (track.isEnabled() ? "true" : "false") + R"(,"children":[)" + children + ']');
}

std::string stackOf(const Stack& stack, const std::string& more) {
    std::string children;
    for (const Track& track : stack.tracks())
        children += (children.empty() ? "" : ",\n") + trackOf(track);
    return objectOf("Stack.1", more + R"("children":[)" + children + ']');
}

} // namespace

std::string textOf(const Document& document) {
    return objectOf("Timeline.1", R"("name":")" + document.name + R"(","tracks":)" + stackOf(*document.tracks, {})) +
           '\n';
}

} // namespace TimelineTests
