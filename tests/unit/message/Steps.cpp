#include "unit/message/Steps.h"

#include <ostream>

const char* nameOf(Hook hook) {
    static const char* const NAMES[HOOKS] = {"added", "changed3", "changed2", "changed1", "removed"};
    return NAMES[static_cast<int>(hook)];
}

std::ostream& operator<<(std::ostream& out, const Operation& operation) {
    static const char* const NAMES[KINDS] = {"own",          "add",     "change", "change first", "remove",
                                             "remove first", "observe", "forget", "observe new",  "observe all",
                                             "process adds", "destroy", "copy"};
    return out << NAMES[static_cast<int>(operation.kind)] << " view " << operation.view << " item " << operation.item
               << " value " << operation.value;
}

std::ostream& operator<<(std::ostream& out, const Step& step) {
    out << step.operation;
    for (const Reaction& reaction : step.reactions)
        out << "; in " << nameOf(reaction.hook) << " of view " << reaction.view << ": " << reaction.operation;
    return out << '\n';
}

std::optional<Operation> Reactions::take(int view, Hook hook) {
    for (auto place = waiting.begin(); place != waiting.end(); ++place) {
        if (place->view == view && place->hook == hook) {
            const Operation operation = place->operation;
            waiting.erase(place);
            return operation;
        }
    }
    return std::nullopt;
}
