// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/message/ViewFixture.h"
#include <type_traits>
#include <utility>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Chain = ViewFixture;
using SetterChain = Message::View<Item>::SetterChain;

TEST_F(Chain, OfAnAdditionWritesIntoTheCallersObject) {
    first->number = 5;
    for (const bool asOwner : {false, true}) {
        auto chain = asOwner ? owner->own(first) : owner->add(first);
        EXPECT_EQ(chain.view, owner.get());
        EXPECT_TRUE(chain.commit);
        EXPECT_EQ(chain.own, asOwner);
        EXPECT_EQ(chain.source, nullptr);
        EXPECT_EQ(chain.target, first);
        EXPECT_EQ(chain.value.number, 0);
        chain->number = 6;
        EXPECT_EQ(first->number, 6);
        chain.commit = false;
    }
}

TEST_F(Chain, OfAChangeWritesIntoAWorkingCopy) {
    first->number = 5;
    auto chain = observer->change(first);
    EXPECT_EQ(chain.view, observer.get());
    EXPECT_TRUE(chain.commit);
    EXPECT_FALSE(chain.own);
    EXPECT_EQ(chain.source, first);
    EXPECT_EQ(chain.target, &chain.value);
    EXPECT_EQ(chain.value.number, 5);
    (*chain).number = 6;
    EXPECT_EQ(first->number, 5);
    chain.commit = false;
}

TEST_F(Chain, HoldsItsFieldsInAFixedOrder) {
    auto chain = owner->change(first);
    chain.commit = false;
    const std::array<const void*, 6> fields{&chain.view,   &chain.commit, &chain.own,
                                            &chain.source, &chain.target, &chain.value};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<const void*>()));
}

TEST_F(Chain, CommitsAtTheEndOfItsScope) {
    {
        auto chain = owner->own(first);
        EXPECT_THAT(log, IsEmpty());
        EXPECT_FALSE(owner->isObserved(first));
    }
    EXPECT_TRUE(owner->isOwned(first));
}

TEST_F(Chain, IsMovedButNotCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<SetterChain>);
    EXPECT_FALSE(std::is_copy_assignable_v<SetterChain>);
    EXPECT_FALSE(std::is_move_assignable_v<SetterChain>);
    EXPECT_TRUE(std::is_move_constructible_v<SetterChain>);
}

TEST_F(Chain, OfAnAdditionStillWritesIntoTheCallersObjectWhenMoved) {
    {
        auto chain = owner->own(first);
        auto moved = std::move(chain);
        EXPECT_FALSE(chain.commit);
        EXPECT_EQ(moved.target, first);
        EXPECT_TRUE(moved.own);
        moved->number = 4;
    }
    EXPECT_THAT(log,
                ElementsAre("owner added #0=4", "owner changed3 #0=4 0 #0=4", "owner changed1 #0=4", "Added #0=4"));
}

TEST_F(Chain, OfAChangeTakesItsWorkingCopyAlongWhenMoved) {
    owner->own(first);
    auto chain = owner->change(first);
    chain->number = 4;
    {
        auto moved = std::move(chain);
        EXPECT_EQ(moved.target, &moved.value);
        EXPECT_EQ(moved.value.number, 4);
        EXPECT_EQ(moved.source, first);
    }
    EXPECT_EQ(first->number, 4);
}

TEST_F(Chain, ThatMayNotCommitStaysIdleWhenMoved) {
    {
        auto chain = owner->own(first);
        chain.commit = false;
        const auto moved = std::move(chain);
        EXPECT_FALSE(moved.commit);
    }
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Chain, OnNoObjectAddsNothing) {
    owner->add(nullptr);
    owner->own(nullptr);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_THAT(owner->objects(), IsEmpty());
}

TEST_F(Chain, OfAChangeDecidesAtItsEndWhetherItOwns) {
    owner->own(first);
    {
        auto chain = owner->change(first);
        chain->number = 4;
        owner->forget(first);
        log.clear();
    }
    EXPECT_EQ(first->number, 0);
    EXPECT_THAT(log, ElementsAre("Change #0=0 4"));
}

TEST_F(Chain, MayCommitWhileItsHooksDestroyTheView) {
    owner->own(first);
    owner->actions["changed3"] = [&] { owner.reset(); };
    owner->change(first)->number = 4;
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(first->number, 4);
}

} // namespace
