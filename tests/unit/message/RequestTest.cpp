// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/message/ViewFixture.h"
#include <stdexcept>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Request = ViewFixture;

/// An owner that answers requests in its own way.
class Strict : public RecordingView {
public:
    using RecordingView::RecordingView;
    std::function<bool(Item*, Item*)> judge; ///< may edit the proposal; false refuses
    std::vector<const Item*> refused;

private:
    void addRequested(Item* item) override { refused.push_back(item); }
    void removeRequested(Item* item) override { refused.push_back(item); }
    void changeRequested(Item* item, Item* proposed) override {
        if (judge(item, proposed))
            View::changeRequested(item, proposed);
    }
};

TEST_F(Request, ToAddWithNobodyAdoptingAddsNothing) {
    observer->add(first)->number = 5;
    EXPECT_THAT(log, ElementsAre("Add #0=5 #0=5"));
    EXPECT_THAT(observer->objects(), IsEmpty());
    log.clear();
    // The requester stays subscribed: whoever owns the object later is heard.
    owner->own(first);
    EXPECT_TRUE(observer->isObserved(first));
}

TEST_F(Request, ToAddIsAdoptedBeforeTheRequesterObserves) {
    owner->processAddRequests(true);
    observer->add(first)->number = 5;
    EXPECT_THAT(log, ElementsAre("Add #0=5 #0=5", "owner added #0=5", "owner changed3 #0=5 0 #0=5",
                                 "owner changed1 #0=5", "observer added #0=5", "observer changed3 #0=5 0 #0=5",
                                 "observer changed1 #0=5", "Added #0=5"));
    EXPECT_EQ(owner->ownedPtr(first), first);
    EXPECT_TRUE(observer->isObserved(first));
    EXPECT_FALSE(observer->isOwned(first));
}

TEST_F(Request, ToAddIsNotHeardAfterSwitchingOff) {
    owner->processAddRequests(true);
    owner->processAddRequests(false);
    observer->add(first);
    EXPECT_FALSE(owner->isObserved(first));
}

TEST_F(Request, ToAddWhatAnotherViewOwnsAlreadyIsNotForItsOwnerButForAdopters) {
    owner->own(first);
    log.clear();
    observer->add(first);
    EXPECT_THAT(log, ElementsAre("Add #0=0 #0=0"));
    EXPECT_THAT(observer->objects(), IsEmpty());
}

TEST_F(Request, ToAddByAViewThatAdoptsLeavesItAnObserverOfItsOwnAnnouncement) {
    observer->processAddRequests(true);
    observer->add(first);
    EXPECT_TRUE(observer->isObserved(first));
    EXPECT_FALSE(observer->isOwned(first));
}

TEST_F(Request, ToChangeIsAppliedByTheOwnerAndHeardByAll) {
    ownAndObserve(first);
    other->observe(first);
    log.clear();
    observer->change(first)->number = 8;
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=8 0 #0=8", "owner changed2 #0=8 0", "owner changed1 #0=8",
                                 "observer changed3 #0=8 0 #0=8", "observer changed2 #0=8 0", "observer changed1 #0=8",
                                 "other changed3 #0=8 0 #0=8", "other changed2 #0=8 0", "other changed1 #0=8",
                                 "Changed #0=8 0", "Change #0=8 8"));
}

TEST_F(Request, ToChangeLeavesTheRequestersValueUntouched) {
    ownAndObserve(first);
    int left = -1;
    {
        auto chain = observer->change(first);
        chain->number = 8;
        observer->actions["changed1"] = [&] { left = chain.value.number; };
    }
    EXPECT_EQ(left, 8);
}

TEST_F(Request, ToChangeStartsFromACopy) {
    ownAndObserve(first);
    auto chain = observer->change(first);
    chain->number = 8;
    EXPECT_EQ(first->number, 0);
    EXPECT_EQ(chain.source, first);
    EXPECT_EQ(chain.target, &chain.value);
    chain.commit = false;
}

TEST_F(Request, ToChangeMayBeRefused) {
    Strict strict("strict", names, log);
    strict.judge = [](Item*, Item*) { return false; };
    strict.own(first);
    observer->observe(first);
    log.clear();
    observer->change(first)->number = 8;
    EXPECT_EQ(first->number, 0);
    EXPECT_THAT(log, ElementsAre("Change #0=0 8"));
}

TEST_F(Request, ToChangeMayBeAltered) {
    Strict strict("strict", names, log);
    strict.judge = [](Item*, Item* proposed) { return (proposed->number /= 2, true); };
    strict.own(first);
    observer->change(first)->number = 8;
    EXPECT_EQ(first->number, 4);
}

TEST_F(Request, ToChangeAnObjectOfNobodyIsDropped) {
    observer->observe(first);
    log.clear();
    observer->change(first)->number = 8;
    EXPECT_EQ(first->number, 0);
    EXPECT_THAT(log, ElementsAre("Change #0=0 8"));
}

TEST_F(Request, ToRemoveIsAnnouncedBeforeTheOwnersHooks) {
    ownAndObserve(first);
    observer->remove(first);
    EXPECT_THAT(log, ElementsAre("observer changed3 #0=0 #0=0 0", "observer changed1 #0=0", "observer removed #0=0",
                                 "Removed #0=0", "owner changed3 #0=0 #0=0 0", "owner changed1 #0=0",
                                 "owner removed #0=0", "Remove #0=0"));
    EXPECT_FALSE(owner->isObserved(first));
    EXPECT_FALSE(observer->isObserved(first));
}

TEST_F(Request, ToRemoveErasesTheEntryBeforeRequestsEnd) {
    ownAndObserve(first);
    bool ownedInHook = false;
    owner->actions["removed"] = [&] {
        ownedInHook = owner->isOwned(first);
        other->change(first)->number = 3; // the owner still hears this one
    };
    observer->remove(first);
    EXPECT_TRUE(ownedInHook);
    EXPECT_EQ(first->number, 3);
}

TEST_F(Request, ToRemoveTheFirstOfOnlyObservedObjectsReachesNoOwner) {
    ownAndObserve(first);
    observer->remove(nullptr);
    EXPECT_THAT(log, ElementsAre("Remove null"));
    EXPECT_TRUE(owner->isOwned(first));
}

TEST_F(Request, ToRemoveFromAnEmptyViewDoesNothing) {
    observer->remove(nullptr);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Request, WithoutAnObjectRemovesTheOwnersFirst) {
    owner->own(second);
    owner->own(first);
    owner->remove(nullptr);
    EXPECT_THAT(owner->objects(), ElementsAre(second));
}

TEST_F(Request, WithoutAnObjectChangesTheOneOfTheLowestAddress) {
    owner->own(third);
    owner->own(first);
    EXPECT_EQ(owner->object(), first);
    owner->change(nullptr)->number = 4;
    EXPECT_EQ(first->number, 4);
    EXPECT_EQ(third->number, 0);
}

TEST_F(Request, WithoutAnObjectOnAnEmptyViewChangesNothing) {
    {
        auto chain = observer->change(nullptr);
        EXPECT_FALSE(chain.commit);
        chain->number = 4;
    }
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Request, IsNotMadeByAChainThatMayNotCommit) {
    owner->processAddRequests(true);
    ownAndObserve(first);
    {
        auto add = observer->add(second);
        auto own = other->own(third);
        auto change = owner->change(first);
        auto request = observer->change(first);
        for (auto* chain : {&add, &own, &change, &request})
            chain->commit = false;
    }
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Request, IsMadeOnceByAChainThatWasMoved) {
    ownAndObserve(first);
    {
        auto chain = observer->change(first);
        chain->number = 2;
        auto moved = std::move(chain);
        moved->number = 3;
    }
    EXPECT_EQ(first->number, 3);
    EXPECT_EQ(std::count(log.begin(), log.end(), "Change #0=3 3"), 1);
    EXPECT_EQ(std::count_if(log.begin(), log.end(), [](const auto& line) { return line.find("Change ") == 0; }), 1);
}

TEST_F(Request, ForAllNamesOwnedObjectsOnly) {
    owner->own(second);
    other->own(first);
    observer->observe(third);
    observer->observe(first);
    EXPECT_THAT(observer->enumerateAll(), ElementsAre(first, second));
    EXPECT_THAT(owner->enumerateAll(), ElementsAre(first, second));
}

TEST_F(Request, ForTheOwnersPointerTellsThreeCasesApart) {
    owner->own(first);
    owner->observe(second);
    EXPECT_EQ(owner->ownerPointer(first), first);
    EXPECT_EQ(owner->ownerPointer(second), nullptr);
    EXPECT_EQ(owner->ownerPointer(third), third);
    EXPECT_FALSE(owner->isOwned(third));
    EXPECT_FALSE(owner->isObserved(third));
}

TEST_F(Request, ThatAHandlerFailsEndsTheProcessOnCommit) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    owner->actions["changed3"] = [] { throw std::runtime_error("no"); };
    EXPECT_DEATH(owner->own(first), "");
}

TEST_F(Request, PassesWhatAHookThrowsToTheCaller) {
    ownAndObserve(first);
    observer->actions["removed"] = [] { throw std::runtime_error("no"); };
    EXPECT_THROW(owner->remove(first), std::runtime_error);
    observer->actions.clear();
    EXPECT_TRUE(owner->isOwned(first));
    owner->remove(first);
    EXPECT_THAT(owner->objects(), IsEmpty());
}

TEST_F(Request, ToAddOrToRemoveMayBeRefused) {
    Strict strict("strict", names, log);
    strict.processAddRequests(true);
    strict.own(second);
    log.clear();
    observer->add(first);
    observer->remove(second);
    EXPECT_THAT(strict.refused, ElementsAre(first, second));
    EXPECT_THAT(strict.objects(), ElementsAre(second));
    EXPECT_THAT(log, ElementsAre("Add #0=0 #0=0", "Remove #1=0"));
}

TEST_F(Request, ToRemoveReachesNoAdopterAndNoObserver) {
    other->processAddRequests(true);
    other->observeNew(true);
    observer->observe(first);
    log.clear();
    observer->remove(first);
    EXPECT_THAT(log, ElementsAre("Remove #0=0"));
    EXPECT_TRUE(observer->isObserved(first));
}

TEST_F(Request, ToChangeHandsTheOwnerACopyOfTheProposal) {
    Strict strict("strict", names, log);
    const Item* proposal = nullptr;
    strict.own(first);
    strict.judge = [&](Item* item, Item* proposed) {
        EXPECT_EQ(item, first);
        EXPECT_EQ(proposed->number, 8);
        proposal = proposed;
        proposed->number = 3;
        return true;
    };
    auto chain = std::make_unique<Message::View<Item>::SetterChain>(observer->change(first));
    (*chain)->number = 8;
    const Item* working = &chain->value;
    int left = -1;
    strict.actions["changed1"] = [&] { left = working->number; };
    chain.reset();
    EXPECT_NE(proposal, working);
    EXPECT_EQ(left, 8);
    EXPECT_EQ(first->number, 3);
}

TEST_F(Request, ToChangeLeavesTheOldStateInTheOwnersProposal) {
    class Curious : public Message::View<Item> {
    public:
        int left = -1;

    private:
        void changeRequested(Item* item, Item* proposed) override {
            View::changeRequested(item, proposed);
            left = proposed->number;
        }
    } curious;
    curious.own(first)->number = 5;
    observer->change(first)->number = 8;
    EXPECT_EQ(curious.left, 5);
}

/// Counts how many of them there are.
struct Counted : virtual PubSub::Object {
    Counted() { ++count; }
    Counted(const Counted& other)
        : PubSub::Object(other) {
        ++count;
    }
    Counted& operator=(const Counted&) = default;
    ~Counted() override { --count; }
    static inline int count = 0;
};

TEST_F(Request, DestroysItsTemporaryValuesWhenAHookThrows) {
    class Failing : public Message::View<Counted> {
        void changed(const Counted*, const Counted*, const Counted*) override { throw std::runtime_error("no"); }
    };
    Counted counted;
    Counted proposed;
    Failing observing;
    EXPECT_THROW(observing.observe(&counted), std::runtime_error);
    EXPECT_THROW(observing.forget(&counted), std::runtime_error);

    class FailingLater : public Message::View<Counted> {
        void changed(const Counted*, const Counted*) override { throw std::runtime_error("no"); }
    } owning;
    owning.own(&counted);
    const PubSub::Publisher<Message::Types::Change<Counted>> requester;
    EXPECT_THROW(requester.publish(Message::Types::Change<Counted>(&counted, &proposed)), std::runtime_error);
    EXPECT_EQ(Counted::count, 2);
}

} // namespace
