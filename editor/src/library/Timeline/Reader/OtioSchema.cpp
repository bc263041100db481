// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioSchema.h"

#include <algorithm>
#include <array>

namespace Timeline {
namespace {

struct Known {
    const char* name;
    OtioKind kind;
    int newest;
};

constexpr std::array<Known, 19> KNOWN{{{"Timeline", OtioKind::Timeline, 1},
                                       {"SerializableCollection", OtioKind::Collection, 1},
                                       {"SerializeableCollection", OtioKind::Collection, 1},
                                       {"Stack", OtioKind::Stack, 1},
                                       {"Track", OtioKind::Track, 1},
                                       {"Sequence", OtioKind::Track, 1},
                                       {"Clip", OtioKind::Clip, 2},
                                       {"Gap", OtioKind::Gap, 1},
                                       {"Filler", OtioKind::Gap, 1},
                                       {"Transition", OtioKind::Transition, 1},
                                       {"ExternalReference", OtioKind::ExternalReference, 1},
                                       {"ImageSequenceReference", OtioKind::ImageSequence, 1},
                                       {"GeneratorReference", OtioKind::Generator, 1},
                                       {"MissingReference", OtioKind::MissingReference, 1},
                                       {"LinearTimeWarp", OtioKind::TimeWarp, 1},
                                       {"FreezeFrame", OtioKind::FreezeFrame, 1},
                                       {"TimeEffect", OtioKind::Effect, 1},
                                       {"Effect", OtioKind::Effect, 1},
                                       {"Marker", OtioKind::Marker, 3}}};

const Known* find(const OtioNode& node) {
    const OtioNode::Schema schema = node.schema();
    const auto found = std::find_if(KNOWN.begin(), KNOWN.end(), [&schema](const Known& one) {
        return schema.version > 0 && schema.name == one.name;
    });
    return found == KNOWN.end() ? nullptr : &*found;
}

} // namespace

OtioKind kindOf(const OtioNode& node) {
    const Known* const known = find(node);
    return known ? known->kind : OtioKind::Unknown;
}

void checkVersion(OtioContext& context, const OtioNode& node) {
    const Known* const known = find(node);
    const OtioNode::Schema schema = node.schema();
    if (!known || schema.version <= known->newest)
        return;
    context.tell(context.options.lenient ? Finding::Kind::Warning : Finding::Kind::Error, node,
                 node.text("OTIO_SCHEMA") + " is newer than what can be read, " + schema.name + '.' +
                     std::to_string(known->newest));
}

} // namespace Timeline
