// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/message/Steps.h"

#include <algorithm>
#include <ostream>
#include <regex>
#include <stdexcept>

namespace {

const char* const HOOK_NAMES[HOOKS] = {"added", "changed3", "changed2", "changed1", "removed"};
const char* const KIND_NAMES[KINDS] = {"own",          "add",     "change", "change first", "remove",
                                       "remove first", "observe", "forget", "observe new",  "observe all",
                                       "process adds", "destroy", "copy"};

template <class Enumeration, std::size_t n>
Enumeration named(const char* const (&names)[n], const std::string& name) {
    const auto found = std::find(std::begin(names), std::end(names), name);
    if (found == std::end(names))
        throw std::invalid_argument("there is no \"" + name + "\"");
    return Enumeration(found - std::begin(names));
}

int numberBelow(int end, const std::string& digits) {
    const int number = std::stoi(digits);
    if (number >= end)
        throw std::invalid_argument("there are but " + std::to_string(end) + ", counted from 0, not " + digits);
    return number;
}

Operation readOperation(const std::string& text) {
    static const std::regex form("([a-z ]+) view (\\d{1,3}) item (\\d{1,3}) value (\\d{1,9})");
    std::smatch parts;
    if (!std::regex_match(text, parts, form))
        throw std::invalid_argument("no operation: " + text);
    return {named<Kind>(KIND_NAMES, parts[1]), numberBelow(VIEWS, parts[2]), numberBelow(ITEMS, parts[3]),
            std::stoi(parts[4])};
}

Reaction readReaction(const std::string& text) {
    static const std::regex form("in ([a-z0-9]+) of view (\\d{1,3}): (.*)");
    std::smatch parts;
    if (!std::regex_match(text, parts, form))
        throw std::invalid_argument("no reaction: " + text);
    return {numberBelow(VIEWS, parts[2]), named<Hook>(HOOK_NAMES, parts[1]), readOperation(parts[3])};
}

} // namespace

const char* nameOf(Hook hook) {
    return HOOK_NAMES[static_cast<int>(hook)];
}

std::ostream& operator<<(std::ostream& out, const Operation& operation) {
    return out << KIND_NAMES[static_cast<int>(operation.kind)] << " view " << operation.view << " item "
               << operation.item << " value " << operation.value;
}

Step readStep(const std::string& line) {
    static const std::regex between("; ");
    const std::string text = line.substr(0, line.find('\n'));
    auto part = std::sregex_token_iterator(text.begin(), text.end(), between, -1);
    Step step{readOperation(*part), {}};
    while (++part != std::sregex_token_iterator())
        step.reactions.push_back(readReaction(*part));
    return step;
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
