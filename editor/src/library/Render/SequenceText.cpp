// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SequenceText.h"

#include "Timeline/ClipVisit.h"

namespace Render {

std::string describe(const Sequence& sequence) {
    std::size_t clips = 0;
    const std::string* first = nullptr;
    Timeline::visitClips(*sequence.document->tracks, [&](const auto&, const Timeline::Item& item, const auto&) {
        first = first ? first : &item.name;
        ++clips;
    });
    return std::to_string(clips) + " clips" + (first ? " from \"" + *first + "\" on" : "");
}

} // namespace Render
