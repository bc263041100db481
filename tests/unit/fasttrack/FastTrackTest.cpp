// SPDX-License-Identifier: GPL-3.0-or-later
#include "FastTrack/Suppressor.h"
#include "support/Perishable.h"
#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Log = std::vector<std::string>;

/// The editor's side: owns fast-track objects and counts the requests.
class Owner : public Message::View<FastTrack::Object> {
public:
    int requests = 0;

protected:
    void changeRequested(FastTrack::Object* object, FastTrack::Object* proposed) override {
        ++requests;
        View::changeRequested(object, proposed);
    }
};

class RecordingView : public FastTrack::View {
public:
    using FastTrack::View::fastTrackObserve, FastTrack::View::fastTrackChange;
    Log log;
    std::function<void(const std::string&)> onHook; ///< may destroy the view

private:
    void progressChanged(const FastTrack::Object*) override { note("progress"); }
    void isEnabled(const FastTrack::Object*, bool on) override { note(on ? "enabled" : "disabled"); }
    void isActive(const FastTrack::Object*, bool on) override { note(on ? "active" : "inactive"); }
    void isFreezed(const FastTrack::Object*, bool on) override { note(on ? "freezed" : "thawed"); }
    void cacheFolderChanged(const FastTrack::Object*) override { note("folder"); }
    void isComplete(const FastTrack::Object*, bool on) override { note(on ? "complete" : "incomplete"); }
    void note(const std::string& hook) {
        log.push_back(hook);
        if (const auto action = onHook) // a copy: it may destroy the view
            action(hook);
    }
};

/// Differs from a fresh one in every property.
void fill(FastTrack::Object& object) {
    object.progress = 100;
    object.enabled = true;
    object.setActive(true).setFreezed(true);
    object.cacheFolder = QStringLiteral("/cache");
    object.complete = true;
}

class FastTrackSuppressor : public ::testing::Test {
protected:
    FastTrackSuppressor() {
        owner.own(track)->setActive(true);
        owner.requests = 0;
    }

    std::array<FastTrack::Object, 2> objects;
    FastTrack::Object* const lower = &objects[0];
    FastTrack::Object* const track = &objects[1];
    Owner owner;
};

TEST_F(FastTrackSuppressor, HoldsTheFastTrackBackAsLongAsItLives) {
    {
        FastTrack::Suppressor suppressor;
        EXPECT_TRUE(track->isSuppressedBy(&suppressor));
        EXPECT_FALSE(track->active());
        EXPECT_EQ(owner.requests, 1);
    }
    EXPECT_FALSE(track->isSuppressed());
    EXPECT_TRUE(track->active());
    EXPECT_EQ(owner.requests, 2);
}

TEST_F(FastTrackSuppressor, IsKnownByItsAddressBesideOthers) {
    auto one = std::make_unique<FastTrack::Suppressor>();
    auto two = std::make_unique<FastTrack::Suppressor>();
    EXPECT_TRUE(track->isSuppressedBy(one.get()));
    EXPECT_TRUE(track->isSuppressedBy(two.get()));
    EXPECT_FALSE(track->active());
    const FastTrack::Suppressor* gone = one.get();
    one.reset();
    EXPECT_FALSE(track->isSuppressedBy(gone));
    EXPECT_FALSE(track->active());
    two.reset();
    EXPECT_TRUE(track->active());
    EXPECT_EQ(owner.requests, 4);
}

TEST_F(FastTrackSuppressor, DoesNotSuppressAnObjectThatComesLater) {
    FastTrack::Suppressor suppressor;
    owner.own(lower);
    EXPECT_FALSE(lower->isSuppressed());
    EXPECT_TRUE(track->isSuppressedBy(&suppressor));
}

TEST_F(FastTrackSuppressor, TakesItselfOutOfTheFirstObjectEvenIfThatCameLater) {
    class Watched : public Owner {
    public:
        std::vector<const FastTrack::Object*> asked;

    private:
        void changeRequested(FastTrack::Object* object, FastTrack::Object* proposed) override {
            asked.push_back(object);
            Owner::changeRequested(object, proposed);
        }
    } later;
    auto suppressor = std::make_unique<FastTrack::Suppressor>();
    const FastTrack::Suppressor* address = suppressor.get();
    later.own(lower);
    suppressor.reset();
    EXPECT_THAT(later.asked, ElementsAre(lower));
    EXPECT_TRUE(track->isSuppressedBy(address));
}

TEST_F(FastTrackSuppressor, SuppressesNothingWhereNobodyOwnsAFastTrack) {
    owner.forget(track);
    FastTrack::Suppressor suppressor;
    EXPECT_FALSE(track->isSuppressed());
}

TEST_F(FastTrackSuppressor, SurvivesTheOwner) {
    auto shortLived = std::make_unique<Owner>();
    owner.forget(track);
    shortLived->own(track);
    FastTrack::Suppressor suppressor;
    shortLived.reset();
    EXPECT_TRUE(track->isSuppressedBy(&suppressor)); // nobody is left to take it out
}

TEST_F(FastTrackSuppressor, IsNotCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<FastTrack::Suppressor>);
    EXPECT_FALSE(std::is_move_constructible_v<FastTrack::Suppressor>);
    EXPECT_FALSE(std::is_copy_assignable_v<FastTrack::Suppressor>);
}

TEST(FastTrackObject, IsActiveWhenSwitchedOnAndHeldBackByNobody) {
    FastTrack::Object object;
    EXPECT_FALSE(object.active());
    EXPECT_TRUE(object.setActive(true).active());
    const auto* one = reinterpret_cast<const FastTrack::Suppressor*>(&object);
    EXPECT_FALSE(object.suppress(one).suppress(one).active());
    EXPECT_TRUE(object.unsuppress(one).active());
    EXPECT_TRUE(object.unsuppress(one).active());
    EXPECT_FALSE(object.suppress(nullptr).isSuppressed());
    EXPECT_TRUE(object.setFreezed(true).freezed());
}

TEST(FastTrackView, TellsPropertyByPropertyInAFixedOrder) {
    Owner owner;
    FastTrack::Object object;
    owner.own(&object);
    RecordingView view;
    view.fastTrackObserve(&object);
    EXPECT_THAT(view.log, IsEmpty());
    fill(*view.fastTrackChange(&object));
    EXPECT_THAT(view.log, ElementsAre("progress", "enabled", "active", "freezed", "folder", "complete"));
    view.log.clear();
    owner.remove(&object);
    EXPECT_THAT(view.log, ElementsAre("progress", "disabled", "inactive", "thawed", "folder", "incomplete"));
}

TEST(FastTrackView, MayBeDestroyedByEachOfItsPropertyHooks) {
    FastTrack::Object object;
    fill(object);
    Log until;
    for (const char* last : {"progress", "enabled", "active", "freezed", "folder", "complete"}) {
        until.push_back(last);
        Log called;
        TestSupport::Perishable<RecordingView> doomed;
        doomed->onHook = [&](const std::string& hook) {
            called.push_back(hook);
            if (hook == last)
                doomed.perish();
        };
        doomed->fastTrackObserve(&object);
        EXPECT_EQ(doomed.get(), nullptr);
        EXPECT_EQ(called, until);
    }
}

TEST(FastTrackView, TellsNoFurtherPropertiesOfAnObjectThatAHookDestroyed) {
    Log until;
    for (const char* last : {"progress", "enabled", "active", "freezed", "folder", "complete"}) {
        until.push_back(last);
        Log called;
        TestSupport::Perishable<FastTrack::Object> doomed;
        fill(*doomed.get());
        RecordingView view;
        view.onHook = [&](const std::string& hook) {
            called.push_back(hook);
            if (hook == last)
                doomed.perish();
        };
        view.fastTrackObserve(doomed.get());
        EXPECT_EQ(doomed.get(), nullptr);
        EXPECT_EQ(called, until);
    }
}

TEST(FastTrackView, TellsOfOnePropertyAlone) {
    Owner owner;
    FastTrack::Object object;
    owner.own(&object)->cacheFolder = QStringLiteral("/cache");
    RecordingView view;
    view.fastTrackObserve(&object);
    view.log.clear();
    owner.change(&object)->setFreezed(true);
    owner.change(&object)->cacheFolder = QStringLiteral("/cache"); // equal text
    EXPECT_THAT(view.log, ElementsAre("freezed"));
}

TEST(FastTrackView, SeesSuppressionAsInactivity) {
    Owner owner;
    FastTrack::Object object;
    owner.own(&object)->setActive(true);
    RecordingView view;
    view.fastTrackObserve(&object);
    view.log.clear();
    { FastTrack::Suppressor suppressor; }
    EXPECT_THAT(view.log, ElementsAre("inactive", "active"));
}

TEST_F(FastTrackSuppressor, AsksAndIsAnsweredBeforeItsConstructorReturns) {
    class Spy : public PubSub::Subscriber<Message::Types::Change<FastTrack::Object>,
                                          Message::Types::Changed<FastTrack::Object>> {
    public:
        Log log;
        void notify(const Message::Types::Change<FastTrack::Object>& message) override {
            log.push_back(message.value->isSuppressed() ? "asks to suppress" : "asks to let go");
        }
        void notify(const Message::Types::Changed<FastTrack::Object>& message) override {
            log.push_back(message.object->isSuppressed() ? "suppressed" : "let go");
        }
    } spy;
    owner.forget(track);
    spy.subscribe(track); // ahead of the owner, so that a request comes before its answer
    Owner later;
    later.own(track);
    {
        const FastTrack::Suppressor suppressor;
        EXPECT_THAT(spy.log, ElementsAre("asks to suppress", "suppressed"));
    }
    EXPECT_THAT(spy.log, ElementsAre("asks to suppress", "suppressed", "asks to let go", "let go"));
}

/// Shows what a suppressor holds.
class OpenSuppressor : public FastTrack::Suppressor {
public:
    using FastTrack::Suppressor::fastTracks, FastTrack::Suppressor::fastTrackIsOwned;
    Log log;

private:
    void isActive(const FastTrack::Object*, bool on) override { log.push_back(on ? "active" : "inactive"); }
};

TEST_F(FastTrackSuppressor, ObservesWhatIsThereAndWhatComesLater) {
    const OpenSuppressor suppressor;
    EXPECT_THAT(suppressor.fastTracks(), ElementsAre(track));
    EXPECT_FALSE(suppressor.fastTrackIsOwned(track));
    owner.own(lower);
    EXPECT_THAT(suppressor.fastTracks(), ElementsAre(lower, track));
}

TEST_F(FastTrackSuppressor, HearsOfChangesLikeEveryObserver) {
    const OpenSuppressor first;
    const OpenSuppressor second;
    owner.change(track)->unsuppress(&first).unsuppress(&second);
    EXPECT_THAT(first.log, ElementsAre("active"));
    EXPECT_THAT(second.log, ElementsAre("active"));
}

TEST_F(FastTrackSuppressor, SuppressesOnlyTheFirstOfTwo) {
    owner.own(lower);
    const FastTrack::Suppressor suppressor;
    EXPECT_TRUE(lower->isSuppressedBy(&suppressor));
    EXPECT_FALSE(track->isSuppressed());
}

TEST_F(FastTrackSuppressor, AddsNothingToAView) {
    EXPECT_EQ(sizeof(FastTrack::Suppressor), sizeof(FastTrack::View));
    EXPECT_EQ(sizeof(FastTrack::View), sizeof(Message::View<FastTrack::Object>));
    EXPECT_TRUE((std::is_base_of_v<FastTrack::View, FastTrack::Suppressor>));
    EXPECT_TRUE((std::is_base_of_v<FastTrack::Details::ObjectViewBase, FastTrack::View>));
    EXPECT_FALSE((std::is_convertible_v<FastTrack::Suppressor*, FastTrack::View*>));
    EXPECT_FALSE((std::is_convertible_v<FastTrack::View*, FastTrack::Details::ObjectViewBase*>));
    EXPECT_FALSE((std::is_convertible_v<FastTrack::Details::ObjectViewBase*, Message::View<FastTrack::Object>*>));
}

TEST_F(FastTrackSuppressor, GivesItsRequestUpWhereTheOwnerRefuses) {
    class Refusing : public Message::View<FastTrack::Object> {
        void changeRequested(FastTrack::Object*, FastTrack::Object*) override {}
    } refusing;
    owner.forget(track);
    refusing.own(track);
    const FastTrack::Suppressor suppressor;
    EXPECT_FALSE(track->isSuppressed());
    EXPECT_TRUE(track->active());
}

TEST(FastTrackView, CallsTheGenericHooksByItsOwnNames) {
    class Named : public FastTrack::View {
    public:
        using FastTrack::View::fastTrackObserve;
        Log log;

    private:
        void fastTrackAdded(const FastTrack::Object*) override { log.push_back("added"); }
        void fastTrackRemoved(const FastTrack::Object*) override { log.push_back("removed"); }
        void fastTrackChanged(const FastTrack::Object* object, const FastTrack::Object* before,
                              const FastTrack::Object* after) override {
            log.push_back("changed3");
            FastTrack::View::fastTrackChanged(object, before, after);
        }
        void fastTrackChanged(const FastTrack::Object*, const FastTrack::Object*) override {
            log.push_back("changed2");
        }
        void fastTrackChanged(const FastTrack::Object*) override { log.push_back("changed1"); }
        void progressChanged(const FastTrack::Object*) override { log.push_back("progress"); }
    } view;
    Owner owner;
    FastTrack::Object object;
    owner.own(&object);
    view.fastTrackObserve(&object);
    owner.change(&object)->progress = 5;
    owner.remove(&object);
    EXPECT_THAT(view.log, ElementsAre("added", "changed3", "changed1", "changed3", "progress", "changed2", "changed1",
                                      "changed3", "progress", "changed1", "removed"));
}

TEST(FastTrackView, TellsOfEachPropertyAloneWithItsNewValue) {
    Owner owner;
    FastTrack::Object object;
    owner.own(&object);
    RecordingView view;
    view.fastTrackObserve(&object);
    owner.change(&object)->progress = 5;
    owner.change(&object)->enabled = true;
    owner.change(&object)->setActive(true);
    owner.change(&object)->setFreezed(true);
    owner.change(&object)->cacheFolder = QStringLiteral("/cache");
    owner.change(&object)->complete = true;
    EXPECT_THAT(view.log, ElementsAre("progress", "enabled", "active", "freezed", "folder", "complete"));
}

} // namespace
