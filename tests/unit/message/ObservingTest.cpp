// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/message/ViewFixture.h"
#include <algorithm>
#include <array>
#include <cstddef>
#include <malloc.h>
#include <new>
#include <vector>

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using Observing = ViewFixture;

TEST_F(Observing, StartsWithTheAppearanceHooksAndPublishesNothing) {
    first->number = 5;
    observer->observe(first);
    EXPECT_THAT(log, ElementsAre("observer added #0=5", "observer changed3 #0=5 0 #0=5", "observer changed1 #0=5"));
    EXPECT_TRUE(observer->isObserved(first));
    EXPECT_FALSE(observer->isOwned(first));
    EXPECT_EQ(observer->ownedPtr(first), nullptr);
}

TEST_F(Observing, StartsInTheConstructorWithAnObject) {
    Message::View<Item> view(second);
    EXPECT_TRUE(view.isObserved(second));
    EXPECT_EQ(view.object(), second);
}

TEST_F(Observing, SeesChangesByTheOwner) {
    ownAndObserve(first);
    owner->change(first)->number = 6;
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=6 0 #0=6", "owner changed2 #0=6 0", "owner changed1 #0=6",
                                 "observer changed3 #0=6 0 #0=6", "observer changed2 #0=6 0", "observer changed1 #0=6",
                                 "Changed #0=6 0"));
}

TEST_F(Observing, IsOfSingleObjects) {
    ownAndObserve(first);
    owner->own(second);
    log.clear();
    owner->change(second)->number = 6;
    EXPECT_THAT(log, ElementsAre("owner changed3 #1=6 0 #1=6", "owner changed2 #1=6 0", "owner changed1 #1=6",
                                 "Changed #1=6 0"));
}

TEST_F(Observing, EndsWithTheRemoval) {
    ownAndObserve(first);
    owner->remove(first);
    owner->own(first);
    log.clear();
    owner->change(first)->number = 6;
    EXPECT_FALSE(observer->isObserved(first));
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=6 0 #0=6", "owner changed2 #0=6 0", "owner changed1 #0=6",
                                 "Changed #0=6 0"));
}

TEST_F(Observing, EndsAfterTheHooksOfARemoval) {
    ownAndObserve(first);
    bool stillThere = false;
    observer->actions["removed"] = [&] { stillThere = observer->isObserved(first); };
    owner->remove(first);
    EXPECT_TRUE(stillThere);
}

TEST_F(Observing, EndsBeforeTheHooksWhenTheObjectIsForgotten) {
    ownAndObserve(first);
    bool stillThere = true;
    observer->actions["changed3"] = [&] { stillThere = observer->isObserved(first); };
    observer->forget(first);
    EXPECT_FALSE(stillThere);
    EXPECT_THAT(log, ElementsAre("observer changed3 #0=0 #0=0 0", "observer changed1 #0=0", "observer removed #0=0"));
    log.clear();
    owner->change(first)->number = 6;
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=6 0 #0=6", "owner changed2 #0=6 0", "owner changed1 #0=6",
                                 "Changed #0=6 0"));
}

TEST_F(Observing, OfAllCoversWhatIsOwnedInAddressOrder) {
    owner->own(third);
    other->own(first);
    log.clear();
    observer->observeAll();
    EXPECT_THAT(log, ElementsAre("Enumerate null", "Enumerated #2=0", "Enumerated #0=0", "observer added #0=0",
                                 "observer changed3 #0=0 0 #0=0", "observer changed1 #0=0", "observer added #2=0",
                                 "observer changed3 #2=0 0 #2=0", "observer changed1 #2=0"));
    EXPECT_THAT(observer->objects(), ElementsAre(first, third));
}

TEST_F(Observing, OfAllCoversWhatComesLater) {
    observer->observeAll();
    log.clear();
    owner->own(second);
    EXPECT_THAT(log, ElementsAre("owner added #1=0", "owner changed3 #1=0 0 #1=0", "owner changed1 #1=0", "Added #1=0",
                                 "observer added #1=0", "observer changed3 #1=0 0 #1=0", "observer changed1 #1=0"));
    log.clear();
    owner->change(second)->number = 4;
    EXPECT_THAT(log, ::testing::Contains("observer changed2 #1=4 0"));
}

TEST_F(Observing, OfAllTurnsTheViewsOwnObjectsIntoObservedOnes) {
    owner->own(first);
    owner->observeAll();
    EXPECT_TRUE(owner->isObserved(first));
    EXPECT_FALSE(owner->isOwned(first));
}

TEST_F(Observing, OfNewObjectsCanBeSwitchedOffAgain) {
    observer->observeNew(true);
    owner->own(first);
    observer->observeNew(false);
    owner->own(second);
    EXPECT_THAT(observer->objects(), ElementsAre(first));
}

TEST_F(Observing, IsByDefaultNotOfNewObjects) {
    owner->own(first);
    EXPECT_EQ(observer->object(), nullptr);
}

TEST_F(Observing, EndsWithTheViewWithoutHooksOrMessages) {
    ownAndObserve(first);
    observer.reset();
    EXPECT_THAT(log, IsEmpty());
    owner->change(first)->number = 6;
    EXPECT_EQ(log.size(), 4u);
}

TEST_F(Observing, MayOutliveTheObjectUntilTheViewIsDestroyedOrForgetsIt) {
    auto gone = std::make_unique<Item>();
    Message::View<Item> destroyed(gone.get());
    Message::View<Item> forgetful(gone.get());
    const Item* address = gone.get();
    gone.reset();
    forgetful.forget(address);
    EXPECT_EQ(forgetful.object(), nullptr);
    EXPECT_EQ(destroyed.object(), address);
}

TEST_F(Observing, OfAnEarlierObjectEndsWhereOneWithItsTopicElsewhereTakesItsPlace) {
    struct Part : virtual PubSub::Object {};
    struct Compound : Part, Item {};
    alignas(Compound) std::array<std::byte, 2 * sizeof(Compound)> room{};
    auto* compound = new (room.data()) Compound;
    Item* item = compound;
    ASSERT_NE(static_cast<void*>(static_cast<PubSub::Object*>(item)), static_cast<void*>(item));
    observer->observe(item);
    compound->~Compound();
    Item* const plain = new (item) Item;
    observer->observe(plain);
    observer->forget(plain);
    plain->~Item();
    compound = new (room.data()) Compound;
    owner->own(compound);
    log.clear();
    owner->change(compound)->number = 6;
    EXPECT_THAT(log, Each(Not(HasSubstr("observer"))));
    owner->forget(compound);
    compound->~Compound();
}

TEST_F(Observing, IsCopiedWithoutALookIntoObjectsThatAreGone) {
    alignas(Item) std::array<std::byte, sizeof(Item)> room{};
    Item* const item = new (room.data()) Item;
    observer->observe(item);
    item->~Item();
    room.fill({});
    const RecordingView copy("copy", *observer);
    EXPECT_EQ(copy.object(), item);
}

TEST_F(Observing, LeavesNothingBehindOfForgottenObjects) {
    std::vector<Item> many(20000);
    Message::View<Item> view;
    const auto observeAndForgetAll = [&] {
        for (const Item& item : many) {
            view.observe(&item);
            view.forget(&item);
        }
    };
    observeAndForgetAll(); // what the bus itself keeps ready is there from now on
    std::vector<Item> others(many.size());
    many.swap(others);
    const std::size_t before = mallinfo2().uordblks;
    observeAndForgetAll();
    EXPECT_LT(mallinfo2().uordblks, before + many.size());
}

TEST_F(Observing, OfNothingChangesNothing) {
    observer->observe(nullptr);
    observer->forget(nullptr);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_THAT(observer->objects(), IsEmpty());
}

TEST_F(Observing, IsWhatACopyOfAViewDoes) {
    owner->own(first);
    owner->observe(second);
    observer->observeNew(true);
    other->own(second);
    log.clear();

    RecordingView copy(*owner);
    RecordingView curious(*observer);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_THAT(copy.objects(), ElementsAre(first, second));
    EXPECT_FALSE(copy.isOwned(first));
    EXPECT_TRUE(owner->isOwned(first));

    owner->change(first)->number = 3;
    EXPECT_EQ(std::count(log.begin(), log.end(), "owner changed2 #0=3 0"), 2);
    other->own(third);
    EXPECT_TRUE(curious.isObserved(third));
    EXPECT_FALSE(copy.isObserved(third));
}

TEST_F(Observing, BeginsBeforeItsHooks) {
    owner->own(first);
    log.clear();
    bool there = false;
    observer->actions["added"] = [&] {
        there = observer->isObserved(first);
        owner->change(first)->number = 6;
    };
    observer->observe(first);
    EXPECT_TRUE(there);
    EXPECT_THAT(log, ::testing::Contains("observer changed2 #0=6 0"));
}

TEST_F(Observing, BeginsBeforeItsHooksForANewObject) {
    bool there = false;
    observer->observeNew(true);
    observer->actions["added"] = [&] {
        there = observer->isObserved(first);
        owner->change(first)->number = 6;
    };
    owner->own(first);
    EXPECT_TRUE(there);
    EXPECT_THAT(log, ::testing::Contains("observer changed2 #0=6 0"));
}

TEST_F(Observing, TwiceRunsTheHooksTwiceButHearsEachChangeOnce) {
    ownAndObserve(first);
    observer->observe(first);
    EXPECT_THAT(log, ElementsAre("observer added #0=0", "observer changed3 #0=0 0 #0=0", "observer changed1 #0=0"));
    log.clear();
    owner->change(first)->number = 6;
    EXPECT_EQ(std::count(log.begin(), log.end(), "observer changed1 #0=6"), 1);
    observer->forget(first);
    log.clear();
    owner->change(first)->number = 7;
    EXPECT_EQ(std::count(log.begin(), log.end(), "observer changed1 #0=7"), 0);
}

TEST_F(Observing, OfANewObjectThatIsHeardForItselfTooBeginsTwice) {
    observer->add(first); // nobody adopts, but the observer listens from now on
    observer->observeNew(true);
    log.clear();
    owner->own(first);
    EXPECT_EQ(std::count(log.begin(), log.end(), "observer added #0=0"), 2);
    EXPECT_THAT(observer->objects(), ElementsAre(first));
}

TEST_F(Observing, OfAllHearsOfNewObjectsBeforeItsFirstHook) {
    owner->own(first);
    observer->actions["added"] = [&] {
        if (!owner->isOwned(second))
            owner->own(second);
    };
    observer->observeAll();
    EXPECT_THAT(observer->objects(), ElementsAre(first, second));
}

TEST_F(Observing, SeesAChangeWithoutTouchingTheTable) {
    owner->own(first);
    observer->observe(first);
    const PubSub::Publisher<Message::Types::Changed<Item>> publisher;
    other->own(first);
    other->add(first); // from now on it hears of its own object too
    log.clear();
    const Item before(4);
    publisher.publish(Message::Types::Changed<Item>(first, &before));
    EXPECT_THAT(log, ElementsAre("observer changed3 #0=0 4 #0=0", "observer changed2 #0=0 4", "observer changed1 #0=0",
                                 "other changed3 #0=0 4 #0=0", "other changed2 #0=0 4", "other changed1 #0=0",
                                 "Changed #0=0 4"));
    EXPECT_TRUE(other->isOwned(first));
    EXPECT_FALSE(observer->isOwned(first));
}

TEST_F(Observing, AsksNobodyForNothing) {
    EXPECT_FALSE(observer->isObserved(nullptr));
    EXPECT_FALSE(observer->isOwned(nullptr));
    EXPECT_EQ(observer->ownedPtr(nullptr), nullptr);
    EXPECT_EQ(observer->ownerPointer(nullptr), nullptr);
}

TEST_F(Observing, CoversAHundredThousandObjects) {
    std::vector<Item> many(100'000);
    class Counting : public Message::View<Item> {
    public:
        int appearances = 0;
        int changes = 0;

    private:
        void added(const Item*) override { ++appearances; }
        void changed(const Item*, const Item*) override { ++changes; }
    };
    Message::View<Item> manyOwner;
    for (Item& item : many)
        manyOwner.own(&item);
    Counting counting;
    counting.observeAll();
    EXPECT_EQ(counting.appearances, 100'000);
    for (const Item& item : many)
        counting.change(&item)->number = 1;
    EXPECT_EQ(counting.changes, 100'000);
    EXPECT_EQ(counting.objects().size(), many.size());
    for (const Item& item : many)
        manyOwner.remove(&item);
    EXPECT_EQ(counting.object(), nullptr);
}

TEST_F(Observing, EndsInAnyOrderOfDestruction) {
    for (int order = 0; order < 6; ++order) {
        auto item = std::make_unique<Item>();
        auto its = std::make_unique<Message::View<Item>>();
        auto watcher = std::make_unique<Message::View<Item>>();
        its->own(item.get());
        watcher->observe(item.get());
        const std::array<std::function<void()>, 3> ends{[&] { item.reset(); }, [&] { its.reset(); },
                                                        [&] { watcher.reset(); }};
        std::array<int, 3> turns{0, 1, 2};
        for (int step = 0; step < order; ++step)
            std::next_permutation(turns.begin(), turns.end());
        log.clear();
        for (int turn : turns)
            ends[turn]();
        EXPECT_THAT(log, IsEmpty());
    }
}

} // namespace
