// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Message.h"
#include "PubSub/Publisher.h"
#include "PubSub/Subscriber.h"
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Lamp : virtual PubSub::Object {
    int brightness = 0;
};
struct Door : virtual PubSub::Object {};

struct Lit : PubSub::Message<Lamp> {
    using PubSub::Message<Lamp>::Message;
};
struct Broken : PubSub::Message<Lamp> {
    using PubSub::Message<Lamp>::Message;
};
struct Opened : PubSub::Message<Door> {
    using PubSub::Message<Door>::Message;
};

using Log = std::vector<std::string>;

class Listener : public PubSub::Subscriber<Lit, Broken> {
public:
    Listener(std::string ownName, Log& target)
        : name(std::move(ownName))
        , log(target) {}
    void notify(const Lit& message) override {
        log.push_back(name + " lit");
        last = message.object;
        if (const auto action = onLit) // a copy: the action may destroy the listener
            action();
    }
    void notify(const Broken&) override { log.push_back(name + " broken"); }

    std::function<void()> onLit;
    const Lamp* last = nullptr;

private:
    std::string name;
    Log& log;
};

class Bus : public ::testing::Test {
protected:
    void light(const Lamp* which) { publisher.publish(Lit(which)); }

    Lamp lamp;
    Lamp other;
    Log log;
    Listener a{"a", log};
    Listener b{"b", log};
    Listener c{"c", log};
    PubSub::Publisher<Lit, Broken, Opened> publisher;
};

TEST_F(Bus, DeliversToTheSubscribersOfTheObject) {
    a.subscribe(&lamp);
    b.subscribe(&other);
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
    EXPECT_EQ(a.last, &lamp);
}

TEST_F(Bus, DeliversToSubscribersOfAllObjects) {
    a.subscribeAll(typeid(Lamp));
    light(&lamp);
    light(&other);
    EXPECT_THAT(log, ElementsAre("a lit", "a lit"));
}

TEST_F(Bus, TellsMessageTypesApart) {
    a.subscribe(&lamp);
    publisher.publish(Broken(&lamp));
    EXPECT_THAT(log, ElementsAre("a broken"));
}

TEST_F(Bus, TellsObjectTypesApart) {
    a.subscribeAll(typeid(Door));
    light(&lamp);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Bus, CallsTheObjectsSubscribersThenThoseOfAllEachInOrderOfSubscription) {
    Listener d("d", log);
    d.subscribeAll(typeid(Lamp));
    c.subscribeAll(typeid(Lamp));
    b.subscribe(&lamp);
    a.subscribe(&lamp);
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("b lit", "a lit", "d lit", "c lit"));
}

TEST_F(Bus, CallsASubscriberOfBothKindsOnce) {
    a.subscribe(&lamp);
    a.subscribeAll(typeid(Lamp));
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
}

TEST_F(Bus, CallsARepeatedSubscriberOnce) {
    a.subscribe(&lamp);
    a.subscribe(&lamp);
    b.subscribeAll(typeid(Lamp));
    b.subscribeAll(typeid(Lamp));
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit"));
}

TEST_F(Bus, DeliversAMessageAboutNoObjectOnlyToSubscribersOfAll) {
    a.subscribe(&lamp);
    b.subscribeAll(typeid(Lamp));
    light(nullptr);
    EXPECT_THAT(log, ElementsAre("b lit"));
    EXPECT_EQ(b.last, nullptr);
}

TEST_F(Bus, KnowsWhatASubscriberIsSubscribedTo) {
    a.subscribe(&lamp);
    a.subscribeAll(typeid(Door));
    EXPECT_TRUE(a.isSubscribed(&lamp));
    EXPECT_FALSE(a.isSubscribed(&other));
    EXPECT_TRUE(a.isSubscribed(typeid(Door)));
    EXPECT_FALSE(a.isSubscribed(typeid(Lamp)));
    a.unsubscribe(&lamp);
    a.unsubscribeAll(typeid(Door));
    EXPECT_FALSE(a.isSubscribed(&lamp));
    EXPECT_FALSE(a.isSubscribed(typeid(Door)));
}

TEST_F(Bus, IgnoresASubscriptionToNoObject) {
    a.subscribe(nullptr);
    EXPECT_FALSE(a.isSubscribed(static_cast<const PubSub::Object*>(nullptr)));
    light(nullptr);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Bus, PassesOverASubscriberThatWasUnsubscribed) {
    a.subscribe(&lamp);
    b.subscribeAll(typeid(Lamp));
    a.unsubscribe(&lamp);
    b.unsubscribeAll(typeid(Lamp));
    light(&lamp);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Bus, KeepsTheSubscriptionsOfASubscriberThatIsOffTheBus) {
    a.subscribe(&lamp);
    a.unregisterSelf();
    EXPECT_FALSE(a.isRegistered());
    light(&lamp);
    EXPECT_THAT(log, IsEmpty());
    a.registerSelf();
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
}

TEST_F(Bus, ForgetsADestroyedSubscriber) {
    auto gone = std::make_unique<Listener>("gone", log);
    gone->subscribe(&lamp);
    gone->subscribeAll(typeid(Lamp));
    gone.reset();
    light(&lamp);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Bus, LetsGoOfAnObjectThatIsGone) {
    auto gone = std::make_unique<Lamp>();
    const PubSub::Object* topic = gone.get();
    a.subscribe(topic);
    gone.reset();
    a.unsubscribe(topic);
    EXPECT_FALSE(a.isSubscribed(topic));
}

TEST_F(Bus, DoesNotCallASubscriberThatADeliveryDestroyed) {
    auto victim = std::make_unique<Listener>("victim", log);
    a.subscribe(&lamp);
    victim->subscribe(&lamp);
    victim->subscribeAll(typeid(Lamp));
    b.subscribe(&lamp);
    a.onLit = [&] { victim.reset(); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit"));
}

TEST_F(Bus, LetsASubscriberDestroyItself) {
    auto self = std::make_unique<Listener>("self", log);
    self->subscribe(&lamp);
    b.subscribe(&lamp);
    self->onLit = [&] { self.reset(); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("self lit", "b lit"));
}

TEST_F(Bus, DoesNotCallASubscriberThatANestedDeliveryDestroyed) {
    auto victim = std::make_unique<Listener>("victim", log);
    a.subscribe(&lamp);
    victim->subscribe(&lamp);
    b.subscribe(&other);
    a.onLit = [&] { light(&other); };
    b.onLit = [&] { victim.reset(); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit"));
}

TEST_F(Bus, CallsNobodyAboutAnObjectThatADeliveryDestroyed) {
    const auto nested = [this](const Lamp* which) { light(which); };
    auto gone = std::make_unique<Lamp>();
    a.subscribe(gone.get());
    b.subscribe(gone.get());
    b.subscribe(&other);
    c.subscribeAll(typeid(Lamp));
    a.onLit = [&] { nested(&other); };
    b.onLit = [&] { gone.reset(); };
    light(gone.get());
    EXPECT_THAT(log, ElementsAre("a lit", "b lit", "c lit")) << "the nested message is about another object";
    log.clear();
    a.onLit = b.onLit = nullptr;
    light(&other);
    EXPECT_THAT(log, ElementsAre("b lit", "c lit"));
}

TEST_F(Bus, GoesOnAboutAnObjectWhoseCopiesAreDestroyed) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    a.onLit = [&] { const Lamp copy(lamp); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit"));
}

TEST_F(Bus, DoesNotCallANewcomerAtADestroyedSubscribersAddress) {
    alignas(Listener) unsigned char place[sizeof(Listener)];
    auto* first = new (place) Listener("first", log);
    Listener* second = nullptr;
    a.subscribe(&lamp);
    first->subscribe(&lamp);
    a.onLit = [&] {
        first->~Listener();
        second = new (place) Listener("second", log);
        second->subscribe(&lamp);
    };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
    second->~Listener();
}

TEST_F(Bus, DoesNotCallASubscriberThatADeliveryUnsubscribed) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    c.subscribeAll(typeid(Lamp));
    a.onLit = [&] {
        b.unsubscribe(&lamp);
        c.unsubscribeAll(typeid(Lamp));
    };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
}

TEST_F(Bus, NoticesEachWayToLeaveDuringADelivery) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    c.subscribeAll(typeid(Lamp));
    a.onLit = [&] { b.unsubscribe(&lamp); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "c lit"));
    log.clear();
    b.subscribe(&lamp);
    a.onLit = [&] { c.unsubscribeAll(typeid(Lamp)); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit"));
}

TEST_F(Bus, DoesNotCallASubscriberThatADeliveryTookOffTheBus) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    a.onLit = [&] { b.unregisterSelf(); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
}

TEST_F(Bus, StillCallsASubscriberThatLostOnlyOneOfItsSubscriptions) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    b.subscribeAll(typeid(Lamp));
    a.onLit = [&] { b.unsubscribe(&lamp); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit"));
}

TEST_F(Bus, CallsASubscriberThatADeliveryAddedOnlyFromTheNextMessageOn) {
    a.subscribe(&lamp);
    a.onLit = [&] {
        b.subscribe(&lamp);
        c.subscribeAll(typeid(Lamp));
    };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
    log.clear();
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b lit", "c lit"));
}

TEST_F(Bus, DeliversANestedMessageBeforeTheOuterOneGoesOn) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    b.subscribe(&other);
    a.onLit = [&] { publisher.publish(Broken(&other)); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit", "b broken", "b lit"));
}

TEST_F(Bus, PassesAnExceptionToThePublisherAndGoesOnWorking) {
    a.subscribe(&lamp);
    b.subscribe(&lamp);
    c.subscribe(&other);
    a.onLit = [&] { light(&other); };
    c.onLit = [] { throw std::runtime_error("dark"); };
    EXPECT_THROW(light(&lamp), std::runtime_error);
    EXPECT_THAT(log, ElementsAre("a lit", "c lit"));

    log.clear();
    a.onLit = [&] { b.unsubscribe(&lamp); };
    light(&lamp);
    EXPECT_THAT(log, ElementsAre("a lit"));
}

TEST_F(Bus, NamesTheCandidatesOfAMessage) {
    a.subscribe(&lamp);
    b.subscribeAll(typeid(Lamp));
    const Lit message(&lamp);
    auto candidates = PubSub::Details::Dispatcher::instance().getSubscribers(message, typeid(Lit), &lamp, typeid(Lamp));
    ASSERT_TRUE(candidates.next());
    EXPECT_EQ(candidates.subscriber(), &a);
    ASSERT_TRUE(candidates.next());
    EXPECT_EQ(candidates.subscriber(), &b);
    EXPECT_FALSE(candidates.next());
}

TEST_F(Bus, CarriesAMillionMessagesOverAHundredThousandObservedObjects) {
    class Counter : public PubSub::Subscriber<Lit> {
    public:
        void notify(const Lit& message) override { sum += message.object->brightness; }
        long sum = 0;
    };
    std::vector<Lamp> lamps(100'000);
    Counter counter;
    for (Lamp& each : lamps) {
        each.brightness = 1;
        counter.subscribe(&each);
    }
    for (int round = 0; round < 10; ++round)
        for (const Lamp& each : lamps)
            light(&each);
    EXPECT_EQ(counter.sum, 1'000'000);
}

TEST_F(Bus, LetsAHundredThousandSubscribersOfAllLeaveInAnyOrder) {
    std::vector<std::unique_ptr<Listener>> crowd;
    for (int count = 0; count < 100'000; ++count) {
        crowd.push_back(std::make_unique<Listener>("x", log));
        crowd.back()->subscribeAll(typeid(Lamp));
    }
    for (auto& each : crowd) // the eldest first: the dearest order for a plain list
        each.reset();
    light(&lamp);
    EXPECT_THAT(log, IsEmpty());
}

} // namespace
