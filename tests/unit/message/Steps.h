// SPDX-License-Identifier: GPL-3.0-or-later
// What happens to a few views and items: operations from outside, and operations from within hooks.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

constexpr int VIEWS = 4;
constexpr int ITEMS = 3;

enum class Kind {
    Own,
    Add,
    Change,
    ChangeFirst,
    Remove,
    RemoveFirst,
    Observe,
    Forget,
    ObserveNew,
    ObserveAll,
    ProcessAdds,
    Destroy, ///< a fresh view takes the place
    Copy,    ///< a copy of view `value` takes the place
};
constexpr int KINDS = 13;

enum class Hook { Added, Changed3, Changed2, Changed1, Removed };
constexpr int HOOKS = 5;
const char* nameOf(Hook hook);

struct Operation {
    Kind kind;
    int view;
    int item;
    int value;

    bool isOn() const { return value % 2 == 1; }
};

/// The next time that a view at this place runs this hook, the operation is run inside it.
struct Reaction {
    int view;
    Hook hook;
    Operation operation;
};

/// One operation with the reactions that wait meanwhile.
struct Step {
    Operation operation;
    std::vector<Reaction> reactions;
};

std::ostream& operator<<(std::ostream& out, const Operation& operation);
/// One line.
std::ostream& operator<<(std::ostream& out, const Step& step);
/// Of such a line, with or without its end; throws std::invalid_argument, which names what is no step.
Step readStep(const std::string& line);

/// Each reaction is given out once, those of one hook in their order.
class Reactions {
public:
    void arm(std::vector<Reaction> reactions) { waiting = std::move(reactions); }
    std::optional<Operation> take(int view, Hook hook);

private:
    std::vector<Reaction> waiting;
};
