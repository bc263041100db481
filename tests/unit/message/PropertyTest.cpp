// Random steps over several views on one bus, against a plain model of what views promise.
#include "unit/message/RecordingView.h"
#include "unit/message/ViewModel.h"
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck.h>
#include <set>

namespace {

/// The same steps on real views.
class Real {
public:
    Real() {
        for (int index = 0; index < VIEWS; ++index)
            place(index, std::make_unique<RecordingView>(std::to_string(index), names, log));
    }

    void run(const Step& step) {
        reactions.arm(step.reactions);
        run(step.operation);
    }

    Log log;
    std::array<Item, ITEMS> items;
    std::array<std::unique_ptr<RecordingView>, VIEWS> views;

private:
    void place(int index, std::unique_ptr<RecordingView> view) {
        for (int hook = 0; hook < HOOKS; ++hook)
            view->actions[nameOf(Hook(hook))] = [this, index, hook] {
                log.push_back("  table " + tableText(index));
                if (const auto operation = reactions.take(index, Hook(hook)))
                    run(*operation);
            };
        views[index] = std::move(view);
    }

    std::string tableText(int index) const {
        std::string text;
        for (const Item& item : items)
            text += !views[index]->isObserved(&item) ? '-' : views[index]->isOwned(&item) ? 'O' : 'o';
        return text;
    }

    void run(const Operation& operation) {
        const std::string name = std::to_string(operation.view);
        if (operation.kind == Kind::Destroy) {
            views[operation.view].reset(); // first, so that the next one often lies at the same address
            place(operation.view, std::make_unique<RecordingView>(name, names, log));
        } else if (operation.kind == Kind::Copy)
            place(operation.view, std::make_unique<RecordingView>(name, *views[operation.value % VIEWS]));
        else
            runOn(*views[operation.view], operation);
    }

    void runOn(RecordingView& view, const Operation& operation) {
        Item* item = &items[operation.item];
        switch (operation.kind) {
        case Kind::Own:
            view.own(item)->number = operation.value;
            return;
        case Kind::Add:
            view.add(item)->number = operation.value;
            return;
        case Kind::Change:
            view.change(item)->number = operation.value;
            return;
        case Kind::ChangeFirst:
            view.change(nullptr)->number = operation.value;
            return;
        case Kind::Remove:
            return view.remove(item);
        case Kind::RemoveFirst:
            return view.remove(nullptr);
        case Kind::Observe:
            return view.observe(item);
        case Kind::Forget:
            return view.forget(item);
        case Kind::ObserveNew:
            return view.observeNew(operation.isOn());
        case Kind::ObserveAll:
            return view.observeAll();
        case Kind::ProcessAdds:
            return view.processAddRequests(operation.isOn());
        case Kind::Destroy:
        case Kind::Copy:
            return;
        }
    }

    Namer names{items.data(), ITEMS};
    BusSpy spy{names, log};
    Reactions reactions;
};

int indexOf(const Real& real, const Item* item) {
    return static_cast<int>(item - real.items.data());
}

void compareView(const ViewModel::State& model, const Real& real, const RecordingView& view) {
    std::map<int, bool> table;
    for (const Item* item : view.objects())
        table[indexOf(real, item)] = view.isOwned(item);
    RC_ASSERT(table == model.table);
    RC_ASSERT(view.object() == (model.table.empty() ? nullptr : &real.items[model.table.begin()->first]));
    for (int index = 0; index < ITEMS; ++index) {
        const Item* item = &real.items[index];
        const bool there = model.table.count(index) != 0;
        RC_ASSERT(view.isObserved(item) == there);
        RC_ASSERT(view.ownerPointer(item) == (model.owns(index) || !there ? item : nullptr));
        RC_ASSERT(view.ownedPtr(item) == (model.owns(index) ? item : nullptr));
    }
}

void compare(const ViewModel& model, const Real& real) {
    RC_ASSERT(real.log == model.log);
    for (int item = 0; item < ITEMS; ++item)
        RC_ASSERT(real.items[item].number == model.numbers[item]);
    for (int index = 0; index < VIEWS; ++index)
        compareView(model.view(index), real, *real.views[index]);
    std::set<int> everywhere;
    for (const Item* item : real.views[0]->enumerateAll())
        everywhere.insert(indexOf(real, item));
    RC_ASSERT(everywhere == model.ownedItems());
}

rc::Gen<Operation> anyOperation() {
    return rc::gen::map(
        rc::gen::tuple(rc::gen::weightedElement<Kind>({{4, Kind::Own},
                                                       {4, Kind::Add},
                                                       {6, Kind::Change},
                                                       {1, Kind::ChangeFirst},
                                                       {3, Kind::Remove},
                                                       {1, Kind::RemoveFirst},
                                                       {4, Kind::Observe},
                                                       {2, Kind::Forget},
                                                       {2, Kind::ObserveNew},
                                                       {2, Kind::ObserveAll},
                                                       {3, Kind::ProcessAdds},
                                                       {1, Kind::Destroy},
                                                       {1, Kind::Copy}}),
                       rc::gen::inRange(0, VIEWS), rc::gen::inRange(0, ITEMS), rc::gen::inRange(0, 100)),
        [](const std::tuple<Kind, int, int, int>& parts) {
            return Operation{std::get<0>(parts), std::get<1>(parts), std::get<2>(parts), std::get<3>(parts)};
        });
}

rc::Gen<Reaction> anyReaction() {
    return rc::gen::map(rc::gen::tuple(rc::gen::inRange(0, VIEWS), rc::gen::inRange(0, HOOKS), anyOperation()),
                        [](const std::tuple<int, int, Operation>& parts) {
                            return Reaction{std::get<0>(parts), Hook(std::get<1>(parts)), std::get<2>(parts)};
                        });
}

/// What a hook does is mostly about what is going on.
Step related(Step step) {
    for (Reaction& reaction : step.reactions) {
        Operation& inner = reaction.operation;
        if (inner.value % 3 != 0)
            inner.item = step.operation.item;
        if (inner.value % 5 < 2)
            reaction.view = step.operation.view;
        if (inner.value % 7 < 3)
            inner.view = step.operation.view;
    }
    return step;
}

rc::Gen<Step> anyStep(int reactions) {
    const auto some = rc::gen::resize(reactions, rc::gen::container<std::vector<Reaction>>(anyReaction()));
    return rc::gen::map(rc::gen::pair(anyOperation(), some),
                        [](const std::pair<Operation, std::vector<Reaction>>& parts) {
                            return related({parts.first, parts.second});
                        });
}

/// Several histories in one case: many short ones find more than a few long ones.
void runBoth(int reactions, std::array<int, KINDS>& reentered) {
    const auto history = rc::gen::scale(3.0, rc::gen::container<std::vector<Step>>(anyStep(reactions)));
    for (int round = 0; round < 4; ++round) {
        ViewModel model;
        Real real;
        for (const Step& step : *history) {
            model.log.clear();
            real.log.clear();
            model.run(step);
            real.run(step);
            compare(model, real);
        }
        for (int kind = 0; kind < KINDS; ++kind)
            reentered[kind] += model.reentered[kind];
    }
}

TEST(Views, DoWhatAPlainModelOfThemDoes) {
    std::array<int, KINDS> reentered{};
    EXPECT_TRUE(rc::check([&] { runBoth(0, reentered); }));
}

TEST(Views, DoWhatAPlainModelOfThemDoesWhileHooksInterfere) {
    std::array<int, KINDS> reentered{};
    EXPECT_TRUE(rc::check([&] { runBoth(8, reentered); }));
    for (int kind = 0; kind < KINDS; ++kind)
        EXPECT_GT(reentered[kind], 40) << "the steps prove little about operation " << kind << " inside a hook";
}

} // namespace
