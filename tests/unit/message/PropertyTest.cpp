// SPDX-License-Identifier: GPL-3.0-or-later
// Random steps over several views on one bus, against a plain model of what views promise.
#include "unit/message/RealViews.h"
#include "unit/message/RecordingView.h"
#include "unit/message/ViewModel.h"
#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace {

struct ItemKind {
    using Object = Item;

    static void set(Item& item, int number) { item.number = number; }
    static int numberOf(const Item& item) { return item.number; }

    class View : public Message::View<Item>, public Telling<Item> {
    protected:
        void added(const Item* item) override { tell(Hook::Added, item); }
        void changed(const Item* item, const Item* before, const Item* after) override {
            tell(Hook::Changed3, item, before, after);
        }
        void changed(const Item* item, const Item* before) override { tell(Hook::Changed2, item, before); }
        void changed(const Item* item) override { tell(Hook::Changed1, item); }
        void removed(const Item* item) override { tell(Hook::Removed, item); }
    };
};

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
        RealViews<ItemKind> real;
        for (const Step& step : *history) {
            model.log.clear();
            real.log.clear();
            model.run(step);
            real.run(step);
            RC_ASSERT(real.differenceTo(model) == "");
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
