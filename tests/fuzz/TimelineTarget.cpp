// Any bytes as a timeline: it is refused with an error, or what it holds is in order.
#include "Kestra/Base/Quantity.h"
#include "Timeline/Reader/OtioReader.h"
#include "fuzz/Fuzz.h"

namespace {

using Kestra::Ticks;
using Timeline::Finding;

constexpr const char* CUT = "cut.otio";

struct Place {
    Place() { folder.write("a.mov", {}); }
    const Fuzz::Folder folder;
};

void use(const Timeline::Stack& stack);

void use(const Timeline::Track& track) {
    for (std::size_t index = 0; index < track.items().size(); ++index) {
        const Timeline::Item& item = track.items()[index];
        Fuzz::require(item.duration > Ticks(0), "an item lasts for a time");
        Fuzz::require(track.itemAt(track.startOf(index)) == index, "an item is found at its start");
        if (const auto* nested = std::get_if<Timeline::Nested>(&item.content))
            use(*nested->stack);
    }
    for (const Timeline::Transition& transition : track.transitions()) {
        const std::size_t at = transition.at;
        Fuzz::require(transition.before + transition.behind > Ticks(0), "a transition lasts for a time");
        Fuzz::require(transition.before <= (at > 0 ? track.items()[at - 1].duration : Ticks(0)),
                      "a transition lies on the item before it");
        Fuzz::require(transition.behind <= (at < track.items().size() ? track.items()[at].duration : Ticks(0)),
                      "a transition lies on the item behind it");
    }
}

void use(const Timeline::Stack& stack) {
    for (const Timeline::Track& track : stack.tracks()) {
        Fuzz::require(track.duration() <= stack.duration(), "a stack is as long as its longest track");
        use(track);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Place place;
    Fuzz::Bytes bytes(data, size);
    // The first byte says how it is read.
    Timeline::ReadingOptions options;
    const unsigned how = bytes.next();
    options.lenient = (how & 1) != 0;
    options.timeline = (how & 2) != 0 ? "a" : "";
    if ((how & 4) != 0)
        options.lengthOf = [](const Timeline::MediaReference&, Timeline::Track::Kind) { return Ticks(1000); };
    place.folder.write(CUT, bytes.rest());
    const auto reading = Timeline::OtioReader().read(Kestra::ioPath(place.folder.path(CUT)), options);
    Fuzz::require(reading.document || reading.has(Finding::Kind::Error), "a timeline is refused with an error");
    for (const Finding& finding : reading.findings)
        Fuzz::require(!finding.text.empty(), "a finding says what it is");
    if (!reading.document)
        return 0;
    Fuzz::require(reading.document->duration() > Ticks(0), "a timeline lasts for a time");
    use(*reading.document->tracks);
    return 0;
}
