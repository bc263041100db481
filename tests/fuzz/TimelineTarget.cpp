// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a timeline: it is refused with an error, or what it holds is in order.
#include "Timeline/Reader/OtioReader.h"
#include "fuzz/TimelineOrder.h"

namespace {

constexpr const char* CUT = "cut.otio";

struct Place {
    Place() { folder.write("a.mov", {}); }
    const Fuzz::Folder folder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Place place;
    Fuzz::Bytes bytes(data, size);
    // The first byte says how it is read.
    const unsigned how = bytes.next();
    auto options = Fuzz::readingOptions((how & 1) != 0, (how & 4) != 0);
    options.timeline = (how & 2) != 0 ? "a" : "";
    place.folder.write(CUT, bytes.rest());
    const auto reading = Timeline::OtioReader().read(Kestra::ioPath(place.folder.path(CUT)), options);
    Fuzz::requireOrder(reading);
    return 0;
}
