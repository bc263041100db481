// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Perishable.h"
#include "unit/message/ViewFixture.h"

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using Reentrancy = ViewFixture;

/// Destroys its object when the object has left it.
class Keeper : public Message::View<Item> {
public:
    TestSupport::Perishable<Item> kept;
    std::function<void()> onAdded;

private:
    void added(const Item*) override {
        if (onAdded)
            onAdded();
    }
    void removed(const Item*) override { kept.perish(); }
};

/// The hooks of one view that were called, in order.
Log hooksOf(const std::string& view, const Log& log) {
    Log hooks;
    for (const std::string& line : log)
        if (line.compare(0, view.size() + 1, view + ' ') == 0)
            hooks.push_back(line.substr(view.size() + 1, line.find(' ', view.size() + 1) - view.size() - 1));
    return hooks;
}

bool mentions(const Log& log, const std::string& message) {
    return std::any_of(log.begin(), log.end(),
                       [&](const std::string& line) { return line.compare(0, message.size(), message) == 0; });
}

TEST_F(Reentrancy, AHookMayForgetTheObjectThatChanged) {
    ownAndObserve(first);
    other->observe(first);
    log.clear();
    observer->actions["changed2"] = [&] { observer->forget(first); };
    owner->change(first)->number = 1;
    EXPECT_FALSE(observer->isObserved(first));
    EXPECT_THAT(log, Contains("other changed1 #0=1"));
}

TEST_F(Reentrancy, AHookMayMakeAnotherViewForget) {
    ownAndObserve(first);
    other->observe(first);
    log.clear();
    observer->actions["changed3"] = [&] { other->forget(first); };
    owner->change(first)->number = 1;
    EXPECT_THAT(log, Not(Contains("other changed3 #0=1 0 #0=1")));
}

TEST_F(Reentrancy, AHookMayDestroyAnotherView) {
    ownAndObserve(first);
    other->observe(first);
    log.clear();
    observer->actions["changed3"] = [&] { other.reset(); };
    owner->change(first)->number = 1;
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=1 0 #0=1", "owner changed2 #0=1 0", "owner changed1 #0=1",
                                 "observer changed3 #0=1 0 #0=1", "observer changed2 #0=1 0", "observer changed1 #0=1",
                                 "Changed #0=1 0"));
}

TEST_F(Reentrancy, EveryHookMayDestroyItsOwnView) {
    for (const char* hook : {"added", "changed3", "changed1"}) {
        owner = make("owner");
        observer = make("observer");
        observer->observeNew(true);
        observer->actions[hook] = [&] { observer.reset(); };
        owner->own(first);
        EXPECT_EQ(observer, nullptr) << hook;
        EXPECT_TRUE(owner->isOwned(first));
    }
    for (const char* hook : {"changed3", "changed2", "changed1"}) {
        owner = make("owner");
        observer = make("observer");
        ownAndObserve(first);
        observer->actions[hook] = [&] { observer.reset(); };
        owner->change(first)->number = 1;
        EXPECT_EQ(observer, nullptr) << hook;
    }
    for (const char* hook : {"changed3", "changed1", "removed"}) {
        owner = make("owner");
        observer = make("observer");
        ownAndObserve(first);
        observer->actions[hook] = [&] { observer.reset(); };
        owner->remove(first);
        EXPECT_EQ(observer, nullptr) << hook;
        EXPECT_THAT(owner->objects(), IsEmpty());
    }
}

TEST_F(Reentrancy, AnOwnersHookMayDestroyTheOwnerAndNothingMoreIsTold) {
    ownAndObserve(first);
    owner->actions["changed2"] = [&] { owner.reset(); };
    observer->change(first)->number = 1;
    EXPECT_THAT(log, ElementsAre("owner changed3 #0=1 0 #0=1", "owner changed2 #0=1 0", "Change #0=1 1"));
}

TEST_F(Reentrancy, AnObserversHookMayDestroyTheOwnerThatRemoves) {
    for (const bool byRequest : {false, true}) {
        owner = make("owner");
        observer = make("observer");
        ownAndObserve(first);
        observer->actions["removed"] = [&] { owner.reset(); };
        (byRequest ? *observer : *owner).remove(first);
        EXPECT_EQ(owner, nullptr);
        EXPECT_FALSE(observer->isObserved(first));
    }
}

TEST_F(Reentrancy, AnOwnerMayDestroyItsObjectWhenItIsRemoved) {
    for (const bool byRequest : {false, true}) {
        Keeper keeper;
        const Item* const item = keeper.kept.get();
        keeper.own(keeper.kept.get());
        observer->observe(item);
        Message::View<Item>& asking = byRequest ? *observer : static_cast<Message::View<Item>&>(keeper);
        asking.remove(item);
        EXPECT_EQ(keeper.kept.get(), nullptr);
        EXPECT_THAT(keeper.objects(), IsEmpty());
        EXPECT_THAT(observer->objects(), IsEmpty());
    }
}

TEST_F(Reentrancy, NothingMoreIsToldOfAnObjectThatIsDestroyedWhileItsChangeIsTold) {
    for (const bool byRequest : {false, true}) {
        Log until;
        for (const char* hook : {"changed3", "changed2", "changed1"}) {
            until.emplace_back(hook);
            Keeper keeper;
            const Item* const item = keeper.kept.get();
            keeper.own(keeper.kept.get());
            observer = make("observer");
            observer->observe(item);
            other->observe(item);
            log.clear();
            observer->actions[hook] = [&] {
                observer->actions.clear();
                log.clear();
                keeper.remove(item);
            };
            (byRequest ? static_cast<Message::View<Item>&>(*other) : keeper).change(item)->number = 1;
            EXPECT_EQ(keeper.kept.get(), nullptr);
            EXPECT_EQ(hooksOf("observer", log), (Log{"changed3", "changed1", "removed"})) << "of the removal alone";
            EXPECT_EQ(hooksOf("other", log), (Log{"changed3", "changed1", "removed"}));
            EXPECT_FALSE(mentions(log, "Changed")) << hook;
            EXPECT_FALSE(mentions(log, "Change ")) << hook;
            for (const Message::View<Item>* view :
                 {static_cast<Message::View<Item>*>(&keeper), observerView(), otherView()})
                EXPECT_THAT(view->objects(), IsEmpty());
        }
    }
}

TEST_F(Reentrancy, AnObjectThatIsDestroyedWhileItIsAdoptedIsNotAnnounced) {
    for (const bool byRequest : {false, true}) {
        Keeper keeper;
        const Item* const item = keeper.kept.get();
        keeper.processAddRequests(true);
        keeper.onAdded = [&] { keeper.remove(item); };
        log.clear();
        (byRequest ? observer->add(keeper.kept.get()) : keeper.own(keeper.kept.get()));
        EXPECT_EQ(keeper.kept.get(), nullptr);
        EXPECT_FALSE(mentions(log, "Added"));
        EXPECT_THAT(keeper.objects(), IsEmpty());
    }
}

TEST_F(Reentrancy, AnObjectMayBeRemovedAndDestroyedWhileItsRemovalIsTold) {
    for (const bool byRequest : {false, true}) {
        for (const char* hook : {"changed3", "changed1", "removed"}) {
            Keeper keeper;
            const Item* const item = keeper.kept.get();
            keeper.own(keeper.kept.get());
            observer = make("observer");
            observer->observe(item);
            other->observe(item);
            observer->actions[hook] = [&] {
                observer->actions.clear();
                keeper.remove(item);
            };
            (byRequest ? static_cast<Message::View<Item>&>(*other) : keeper).remove(item);
            EXPECT_EQ(keeper.kept.get(), nullptr) << hook;
            for (const Message::View<Item>* view :
                 {static_cast<Message::View<Item>*>(&keeper), observerView(), otherView()})
                EXPECT_THAT(view->objects(), IsEmpty()) << hook;
        }
    }
}

TEST_F(Reentrancy, AHookMayRemoveTheObjectThatChanged) {
    ownAndObserve(first);
    other->observe(first);
    observer->actions["changed2"] = [&] { observer->remove(first); };
    owner->change(first)->number = 1;
    for (const auto* view : {owner.get(), observer.get(), other.get()})
        EXPECT_THAT(view->objects(), IsEmpty());
}

TEST_F(Reentrancy, AHookMayChangeTheObjectAgain) {
    ownAndObserve(first);
    observer->actions["changed2"] = [&] {
        if (first->number == 1)
            observer->change(first)->number = 2;
    };
    owner->change(first)->number = 1;
    EXPECT_EQ(first->number, 2);
    EXPECT_THAT(log, Contains("observer changed2 #0=2 1"));
}

TEST_F(Reentrancy, AHookMayOwnAnotherObject) {
    observer->observeNew(true);
    owner->actions["changed1"] = [&] {
        if (!owner->isObserved(second))
            owner->own(second);
    };
    owner->own(first);
    EXPECT_THAT(observer->objects(), ElementsAre(first, second));
}

TEST_F(Reentrancy, AnEnumerationSkipsWhatIsRemovedDuringIt) {
    class Remover : public PubSub::Subscriber<Message::Types::Enumerated<Item>> {
    public:
        explicit Remover(std::function<void()> reaction)
            : act(std::move(reaction)) {
            subscribeAll(typeid(Item));
        }
        void notify(const Message::Types::Enumerated<Item>&) override { act(); }
        std::function<void()> act;
    } remover([&] {
        if (owner->isOwned(second))
            owner->remove(second);
    });
    owner->own(first);
    owner->own(second);
    EXPECT_THAT(observer->enumerateAll(), ElementsAre(first));
}

TEST_F(Reentrancy, AHookMayDestroyAViewThatObservesAll) {
    owner->own(first);
    owner->own(second);
    observer->actions["changed1"] = [&] { observer.reset(); };
    observer->observeAll();
    EXPECT_EQ(observer, nullptr);
    EXPECT_THAT(log, Not(Contains("observer added #1=0")));
}

TEST_F(Reentrancy, WhatAHookRemovesIsNotObservedByTheRestOfObservingAll) {
    owner->own(first);
    owner->own(second);
    observer->actions["added"] = [&] {
        if (owner->isOwned(second))
            owner->remove(second);
    };
    observer->observeAll();
    EXPECT_THAT(observer->objects(), ElementsAre(first));
}

} // namespace
