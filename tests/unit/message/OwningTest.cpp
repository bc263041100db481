// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/message/ViewFixture.h"
#include <algorithm>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Owning = ViewFixture;

TEST_F(Owning, AppearsBeforeItIsAnnounced) {
    owner->own(first)->number = 5;
    EXPECT_THAT(log,
                ElementsAre("owner added #0=5", "owner changed3 #0=5 0 #0=5", "owner changed1 #0=5", "Added #0=5"));
    EXPECT_TRUE(owner->isOwned(first));
    EXPECT_TRUE(owner->isObserved(first));
    EXPECT_EQ(owner->ownedPtr(first), first);
}

TEST_F(Owning, HearsRequestsOnlyAfterItsOwnHooks) {
    owner->actions["added"] = [&] { observer->change(first)->number = 9; };
    owner->own(first)->number = 5;
    EXPECT_EQ(first->number, 5);
    owner->actions.clear();
    observer->change(first)->number = 9;
    EXPECT_EQ(first->number, 9);
}

TEST_F(Owning, ChangesInPlaceAndThenTells) {
    owner->own(first)->number = 5;
    log.clear();
    owner->change(first)->number = 6;
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=6 5 #0=6", "owner changed2 #0=6 5", "owner changed1 #0=6",
                                 "Changed #0=6 5"));
    EXPECT_EQ(first->number, 6);
}

TEST_F(Owning, LeavesTheChainsWorkingValueEmpty) {
    owner->own(first);
    int left = -1;
    {
        auto chain = owner->change(first);
        chain->number = 6;
        owner->actions["changed3"] = [&] { left = chain.value.number; };
    }
    EXPECT_EQ(left, 0);
}

/// Counts how often one is copied.
struct Heavy : virtual PubSub::Object {
    Heavy() = default;
    Heavy(const Heavy& other)
        : PubSub::Object(other)
        , copies(other.copies) {
        ++*copies;
    }
    Heavy(Heavy&& other)
        : PubSub::Object(other)
        , copies(other.copies) {}
    Heavy& operator=(const Heavy& other) {
        copies = other.copies;
        ++*copies;
        return *this;
    }
    Heavy& operator=(Heavy&& other) {
        copies = other.copies;
        return *this;
    }

    std::shared_ptr<int> copies = std::make_shared<int>(0);
};

TEST_F(Owning, CopiesTheObjectOnceForAChange) {
    Heavy heavy;
    const std::shared_ptr<int> copies = heavy.copies;
    Message::View<Heavy> heavyOwner;
    heavyOwner.own(&heavy);
    EXPECT_EQ(*copies, 0);
    heavyOwner.change(&heavy); // the chain's working copy; from there on everything moves
    EXPECT_EQ(*copies, 1);
}

TEST_F(Owning, TellsOfARemovalBeforeItsOwnHooks) {
    ownAndObserve(first);
    first->number = 5;
    owner->remove(first);
    EXPECT_THAT(log,
                ElementsAre("observer changed3 #0=5 #0=5 0", "observer changed1 #0=5", "observer removed #0=5",
                            "Removed #0=5", "owner changed3 #0=5 #0=5 0", "owner changed1 #0=5", "owner removed #0=5"));
    EXPECT_FALSE(owner->isObserved(first));
    EXPECT_FALSE(observer->isObserved(first));
}

TEST_F(Owning, ErasesTheEntryLastButHearsNoRequestsInItsHooks) {
    ownAndObserve(first);
    bool stillThere = false;
    owner->actions["removed"] = [&] {
        stillThere = owner->isOwned(first);
        other->change(first)->number = 7;
    };
    owner->remove(first);
    EXPECT_TRUE(stillThere);
    EXPECT_EQ(first->number, 0);
}

TEST_F(Owning, HearsRequestsWhileItTellsOfARemoval) {
    ownAndObserve(first);
    observer->actions["removed"] = [&] { other->change(first)->number = 7; };
    owner->remove(first);
    EXPECT_EQ(first->number, 7);
}

TEST_F(Owning, HearsNoRequestsAfterARemoval) {
    ownAndObserve(first);
    owner->remove(first);
    log.clear();
    observer->change(first)->number = 7;
    observer->remove(first);
    EXPECT_THAT(log, ElementsAre("Change #0=0 7", "Remove #0=0"));
}

TEST_F(Owning, OfAnObjectEndsSilentlyWhenItIsForgotten) {
    ownAndObserve(first);
    owner->forget(first);
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=0 #0=0 0", "owner changed1 #0=0", "owner removed #0=0"));
    EXPECT_FALSE(owner->isObserved(first));
    log.clear();
    observer->change(first)->number = 7;
    observer->remove(first);
    EXPECT_EQ(first->number, 0);
    EXPECT_THAT(log, ElementsAre("Change #0=0 7", "Remove #0=0"));
}

TEST_F(Owning, EndsSilentlyWhenTheObjectIsObservedInstead) {
    ownAndObserve(first);
    owner->observe(first);
    EXPECT_FALSE(owner->isOwned(first));
    EXPECT_TRUE(owner->isObserved(first));
    EXPECT_THAT(log, ElementsAre("owner added #0=0", "owner changed3 #0=0 0 #0=0", "owner changed1 #0=0"));
    log.clear();
    observer->change(first)->number = 7; // reaches the former owner, who may not act on it any more
    EXPECT_THAT(log, ElementsAre("Change #0=0 7"));
}

TEST_F(Owning, IsNotAnnouncedAsEndedByTheViewsDestruction) {
    ownAndObserve(first);
    owner.reset();
    EXPECT_THAT(log, IsEmpty());
    EXPECT_TRUE(observer->isObserved(first));
    observer->change(first)->number = 7;
    EXPECT_EQ(first->number, 0);
}

TEST_F(Owning, IsLostToAnotherOwnersAnnouncement) {
    owner->own(first);
    owner->observeNew(true);
    other->own(first);
    EXPECT_FALSE(owner->isOwned(first));
    EXPECT_TRUE(owner->isObserved(first));
    EXPECT_TRUE(other->isOwned(first));
}

TEST_F(Owning, KeepsHearingRequestsForAnObjectThatItOnlyObservesNow) {
    owner->own(first);
    owner->observe(first);
    owner->actions["added"] = [&] { observer->change(first)->number = 9; };
    owner->own(first); // owned from the first hook on, and heard all the time
    EXPECT_EQ(first->number, 9);
}

TEST_F(Owning, HearsRequestsThatAnswerItsAnnouncement) {
    observer->observeNew(true);
    observer->actions["added"] = [&] { observer->change(first)->number = 9; };
    owner->own(first);
    EXPECT_EQ(first->number, 9);
}

TEST_F(Owning, TwiceRunsTheHooksAndTellsTwice) {
    owner->own(first);
    const Log once = log;
    log.clear();
    owner->own(first);
    EXPECT_EQ(log, once);
    log.clear();
    observer->change(first)->number = 1;
    EXPECT_EQ(std::count(log.begin(), log.end(), "owner changed1 #0=1"), 1);
}

TEST_F(Owning, IsSharedByTwoViewsThatBothTakeTheObject) {
    owner->own(first);
    other->own(first);
    EXPECT_TRUE(owner->isOwned(first));
    EXPECT_TRUE(other->isOwned(first));
    EXPECT_THAT(observer->enumerateAll(), ElementsAre(first));
    log.clear();
    observer->change(first)->number = 1;
    EXPECT_EQ(std::count(log.begin(), log.end(), "owner changed2 #0=1 0"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "other changed2 #0=1 1"), 1);
}

TEST_F(Owning, ShowsTheChangeInPlaceToItsHooks) {
    owner->own(first)->number = 5;
    int seen = -1;
    owner->actions["changed3"] = [&] { seen = first->number; };
    owner->change(first)->number = 6;
    EXPECT_EQ(seen, 6);
}

} // namespace
