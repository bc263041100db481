// SPDX-License-Identifier: GPL-3.0-or-later
// Objects come, change and go by the thousand, asked for by their owner and by others, and every view knows the truth.
#include "sweep/ReferenceExport.h"
#include "sweep/storm/AllKinds.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

/// Knows by what it hears alone.
template <class ObjectKind>
class Hearer : public ObjectKind::View {
    using Object = typename ObjectKind::Object;

public:
    Hearer() {
        this->onHook = [this](Hook hook, const Object* object, const Object* before, const Object*) {
            hear(hook, object, before);
        };
    }
    Hearer(const Hearer&) = delete;

    std::map<const Object*, int> known;
    std::uint64_t changes = 0;
    std::uint64_t wrong = 0; ///< changes of what it does not know, or from another state than it knew
    std::uint64_t appearances = 0;
    std::uint64_t removedTwice = 0;

private:
    void hear(Hook hook, const Object* object, const Object* before) {
        if (hook == Hook::Added) {
            ++appearances;
            known.emplace(object, ObjectKind::numberOf(*object));
        } else if (hook == Hook::Removed) {
            removedTwice += known.erase(object) == 1 ? 0 : 1;
        } else if (hook == Hook::Changed2) {
            ++changes;
            const auto found = known.find(object);
            if (found == known.end() || found->second != ObjectKind::numberOf(*before))
                ++wrong;
            else
                found->second = ObjectKind::numberOf(*object);
        }
    }
};

template <class ObjectKind>
class BusStorm : public ::testing::Test {
    using Object = typename ObjectKind::Object;

protected:
    BusStorm() {
        model.processAddRequests(true);
        user.observeNew(true);
        onlooker.observeNew(true);
    }

    void add() {
        objects.push_back(std::make_unique<Object>());
        if (random() % 2 == 0)
            model.own(objects.back().get());
        else if (++offers)
            user.add(objects.back().get());
        ++adds;
        truth[objects.back().get()] = 0;
    }
    void remove() {
        const std::size_t at = random() % objects.size();
        std::swap(objects[at], objects.back());
        model.remove(objects.back().get());
        truth.erase(objects.back().get());
        objects.pop_back();
    }
    void change() {
        const Object* object = objects[random() % objects.size()].get();
        const int number = static_cast<int>(random() % ObjectKind::NUMBERS);
        // By its owner, or at the request of somebody else.
        ObjectKind::set(*(random() % 2 == 0 ? model : user).change(object), number);
        truth[object] = number;
        ++changes;
    }
    void step(int most) {
        const unsigned dice = random() % 100;
        if (objects.empty() || (static_cast<int>(objects.size()) < most && dice < 10))
            add();
        else if (dice < 12)
            remove();
        else
            change();
    }

    std::mt19937 random{20'260};
    std::vector<std::unique_ptr<Object>> objects;
    std::map<const Object*, int> truth;
    std::uint64_t adds = 0;
    std::uint64_t offers = 0;
    std::uint64_t changes = 0;
    Hearer<ObjectKind> model, user, onlooker;
};

TYPED_TEST_SUITE(BusStorm, Sweep::AllKinds, Sweep::NamesOfKinds);

TYPED_TEST(BusStorm, EveryViewHearsOfEveryObjectAndEachOfItsChangesOnce) {
    const int steps = Sweep::countOr(20'000), most = std::max(steps / 100, 10);
    for (int done = 0; done < steps; ++done)
        this->step(most);
    EXPECT_GT(this->changes, 0U);
    for (Hearer<TypeParam>* hearer : {&this->model, &this->user, &this->onlooker}) {
        SCOPED_TRACE(hearer == &this->model  ? "the owner"
                     : hearer == &this->user ? "the one that asks"
                                             : "the onlooker");
        EXPECT_EQ(hearer->wrong, 0U);
        // Who offers an object hears of it for itself, and as of a new one.
        EXPECT_EQ(hearer->appearances, this->adds + (hearer == &this->user ? this->offers : 0));
        EXPECT_EQ(hearer->removedTwice, 0U);
        EXPECT_EQ(hearer->changes, this->changes);
        EXPECT_EQ(hearer->known, this->truth);
    }
    while (!this->objects.empty())
        this->remove();
    EXPECT_TRUE(this->onlooker.known.empty());
}

} // namespace
