// Random operations over several views on one bus, against a plain model of what views promise.
#include "unit/message/RecordingView.h"
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck.h>
#include <set>

namespace {

constexpr int VIEWS = 4;
constexpr int ITEMS = 3;

enum class Kind {
    Own,
    Add,
    Change,
    Remove,
    Observe,
    Forget,
    ObserveNew,
    ObserveAll,
    ProcessAdds,
    Destroy,
};

struct Operation {
    Kind kind;
    int view;
    int item;
    int value;
};

void showValue(const Operation& op, std::ostream& out) {
    static const char* const NAMES[] = {"own",    "add",         "change",      "remove",       "observe",
                                        "forget", "observe new", "observe all", "process adds", "destroy"};
    out << NAMES[static_cast<int>(op.kind)] << " view " << op.view << " item " << op.item << " value " << op.value;
}

/// A view as its contract has it: a table, three kinds of subscription, and hooks that write lines. Messages are
/// function calls; who hears one is worked out from scratch each time.
class Model {
public:
    struct ViewState {
        std::map<int, bool> table; ///< item, and whether it is owned
        bool hearsNew = false;
        bool adopts = false;
        std::uint64_t sinceNew = 0;
        std::uint64_t sinceAdopt = 0;
        // Subscriptions, by the time at which they began.
        std::map<int, std::uint64_t> sinceHeard;
        std::map<int, std::uint64_t> sinceObeyed;
    };

    Log log;
    std::array<int, ITEMS> numbers{};
    std::array<ViewState, VIEWS> views;

    void run(const Operation& op) {
        ViewState& view = views[op.view];
        switch (op.kind) {
        case Kind::Own:
            numbers[op.item] = op.value;
            return adopt(op.view, op.item);
        case Kind::Add:
            numbers[op.item] = op.value;
            hear(op.view, op.item);
            for (int adopter : inOrder([](const ViewState& v) { return v.adopts ? v.sinceAdopt : 0; }))
                adopt(adopter, op.item);
            return;
        case Kind::Change:
            return change(op.view, op.item, op.value);
        case Kind::Remove:
            return remove(op.view, op.item);
        case Kind::Observe:
            return observe(op.view, op.item);
        case Kind::Forget:
            view.table.erase(op.item);
            unhear(op.view, op.item);
            return disappear(op.view, op.item);
        case Kind::ObserveNew:
            return hearNew(op.view, op.value % 2 == 1);
        case Kind::ObserveAll:
            hearNew(op.view, true);
            for (int item : owned())
                observe(op.view, item);
            return;
        case Kind::ProcessAdds:
            if (const bool on = op.value % 2 == 1; on != view.adopts) {
                view.adopts = on;
                view.sinceAdopt = ++clock;
            }
            return;
        case Kind::Destroy:
            view = ViewState();
            return;
        }
    }

    std::set<int> owned() const {
        std::set<int> all;
        for (const ViewState& view : views)
            for (const auto& [item, mine] : view.table)
                if (mine)
                    all.insert(item);
        return all;
    }

private:
    std::uint64_t clock = 0;

    std::string text(int item) const { return "#" + std::to_string(item) + "=" + std::to_string(numbers[item]); }
    void write(int view, const std::string& line) { log.push_back(std::to_string(view) + " " + line); }

    void hear(int view, int item) {
        if (views[view].sinceHeard.emplace(item, clock + 1).second)
            ++clock;
    }
    void unhear(int view, int item) { views[view].sinceHeard.erase(item); }
    void hearNew(int view, bool on) {
        if (on != views[view].hearsNew) {
            views[view].hearsNew = on;
            views[view].sinceNew = ++clock;
        }
    }

    /// The views for which `since` is not zero, the longest subscribed first.
    template <class Since>
    std::vector<int> inOrder(Since since) const {
        std::map<std::uint64_t, int> found;
        for (int index = 0; index < VIEWS; ++index)
            if (const std::uint64_t time = since(views[index]))
                found[time] = index;
        std::vector<int> order;
        for (const auto& entry : found)
            order.push_back(entry.second);
        return order;
    }
    std::vector<int> hearers(int item) const {
        return inOrder([item](const ViewState& v) {
            const auto found = v.sinceHeard.find(item);
            return found == v.sinceHeard.end() ? 0 : found->second;
        });
    }
    std::vector<int> obeyers(int item) const {
        return inOrder([item](const ViewState& v) {
            const auto found = v.sinceObeyed.find(item);
            return found == v.sinceObeyed.end() ? 0 : found->second;
        });
    }

    void appear(int view, int item) {
        write(view, "added " + text(item));
        write(view, "changed3 " + text(item) + " 0 " + text(item));
        write(view, "changed1 " + text(item));
    }
    void alter(int view, int item, int before) {
        write(view, "changed3 " + text(item) + " " + std::to_string(before) + " " + text(item));
        write(view, "changed2 " + text(item) + " " + std::to_string(before));
        write(view, "changed1 " + text(item));
    }
    void disappear(int view, int item) {
        write(view, "changed3 " + text(item) + " " + text(item) + " 0");
        write(view, "changed1 " + text(item));
        write(view, "removed " + text(item));
    }

    void observe(int view, int item) {
        views[view].table[item] = false;
        hear(view, item);
        appear(view, item);
    }

    void adopt(int view, int item) {
        views[view].table[item] = true;
        appear(view, item);
        if (views[view].sinceObeyed.emplace(item, clock + 1).second)
            ++clock;
        const std::vector<int> direct = hearers(item);
        const std::vector<int> curious = inOrder([](const ViewState& v) { return v.hearsNew ? v.sinceNew : 0; });
        for (const std::vector<int>& group : {direct, curious})
            for (int index : group)
                observe(index, item);
    }

    void apply(int view, int item, int value) {
        const int before = numbers[item];
        numbers[item] = value;
        alter(view, item, before);
        for (int index : hearers(item))
            alter(index, item, before);
    }

    void change(int view, int item, int value) {
        const auto owns = [&](int index) {
            const auto found = views[index].table.find(item);
            return found != views[index].table.end() && found->second;
        };
        if (owns(view))
            return apply(view, item, value);
        for (int index : obeyers(item))
            if (owns(index))
                apply(index, item, value);
    }

    void tellRemoved(int item) {
        for (int index : hearers(item)) {
            disappear(index, item);
            views[index].table.erase(item);
            unhear(index, item);
        }
    }

    void remove(int view, int item) {
        const auto owns = [&](int index) {
            const auto found = views[index].table.find(item);
            return found != views[index].table.end() && found->second;
        };
        const std::vector<int> asked = owns(view) ? std::vector<int>{view} : obeyers(item);
        for (int index : asked) {
            if (!owns(index))
                continue;
            tellRemoved(item);
            disappear(index, item);
            views[index].table.erase(item);
            views[index].sinceObeyed.erase(item);
        }
    }
};

/// The same operations on real views.
class Real {
public:
    Log log;
    std::array<Item, ITEMS> items;
    std::array<std::unique_ptr<RecordingView>, VIEWS> views;

    Real() {
        for (int index = 0; index < VIEWS; ++index)
            make(index);
    }

    void run(const Operation& op) {
        RecordingView& view = *views[op.view];
        Item* item = &items[op.item];
        switch (op.kind) {
        case Kind::Own:
            view.own(item)->number = op.value;
            return;
        case Kind::Add:
            view.add(item)->number = op.value;
            return;
        case Kind::Change:
            view.change(item)->number = op.value;
            return;
        case Kind::Remove:
            return view.remove(item);
        case Kind::Observe:
            return view.observe(item);
        case Kind::Forget:
            return view.forget(item);
        case Kind::ObserveNew:
            return view.observeNew(op.value % 2 == 1);
        case Kind::ObserveAll:
            return view.observeAll();
        case Kind::ProcessAdds:
            return view.processAddRequests(op.value % 2 == 1);
        case Kind::Destroy:
            views[op.view].reset();
            return make(op.view);
        }
    }

private:
    void make(int index) { views[index] = std::make_unique<RecordingView>(std::to_string(index), names, log); }

    Namer names{items.data(), ITEMS};
};

void compareTables(const Model& model, const Real& real) {
    for (int index = 0; index < VIEWS; ++index) {
        std::map<int, bool> table;
        for (const Item* item : real.views[index]->objects())
            table[static_cast<int>(item - real.items.data())] = real.views[index]->isOwned(item);
        RC_ASSERT(table == model.views[index].table);
        std::set<int> everywhere;
        for (const Item* item : real.views[index]->enumerateAll())
            everywhere.insert(static_cast<int>(item - real.items.data()));
        RC_ASSERT(everywhere == model.owned());
    }
}

rc::Gen<Operation> anyOperation() {
    return rc::gen::map(
        rc::gen::tuple(rc::gen::weightedElement<Kind>({{4, Kind::Own},
                                                       {4, Kind::Add},
                                                       {6, Kind::Change},
                                                       {3, Kind::Remove},
                                                       {4, Kind::Observe},
                                                       {2, Kind::Forget},
                                                       {2, Kind::ObserveNew},
                                                       {2, Kind::ObserveAll},
                                                       {3, Kind::ProcessAdds},
                                                       {1, Kind::Destroy}}),
                       rc::gen::inRange(0, VIEWS), rc::gen::inRange(0, ITEMS), rc::gen::inRange(0, 100)),
        [](const std::tuple<Kind, int, int, int>& parts) {
            return Operation{std::get<0>(parts), std::get<1>(parts), std::get<2>(parts), std::get<3>(parts)};
        });
}

TEST(Views, DoWhatAPlainModelOfThemDoes) {
    const bool held = rc::check([] {
        Model model;
        Real real;
        const auto operations = *rc::gen::scale(3.0, rc::gen::container<std::vector<Operation>>(anyOperation()));
        for (const Operation& operation : operations) {
            model.log.clear();
            real.log.clear();
            model.run(operation);
            real.run(operation);
            RC_ASSERT(real.log == model.log);
            for (int item = 0; item < ITEMS; ++item)
                RC_ASSERT(real.items[item].number == model.numbers[item]);
            compareTables(model, real);
        }
    });
    EXPECT_TRUE(held);
}

} // namespace
