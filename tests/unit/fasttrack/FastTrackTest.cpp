#include "FastTrack/Suppressor.h"
#include <array>
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

private:
    void progressChanged(const FastTrack::Object*) override { log.push_back("progress"); }
    void isEnabled(const FastTrack::Object*, bool on) override { log.push_back(on ? "enabled" : "disabled"); }
    void isActive(const FastTrack::Object*, bool on) override { log.push_back(on ? "active" : "inactive"); }
    void isFreezed(const FastTrack::Object*, bool on) override { log.push_back(on ? "freezed" : "thawed"); }
    void cacheFolderChanged(const FastTrack::Object*) override { log.push_back("folder"); }
    void isComplete(const FastTrack::Object*, bool on) override { log.push_back(on ? "complete" : "incomplete"); }
};

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
    {
        auto chain = view.fastTrackChange(&object);
        chain->complete = true;
        chain->cacheFolder = QStringLiteral("/cache");
        chain->setFreezed(true).setActive(true);
        chain->enabled = true;
        chain->progress = 100;
    }
    EXPECT_THAT(view.log, ElementsAre("progress", "enabled", "active", "freezed", "folder", "complete"));
    view.log.clear();
    owner.remove(&object);
    EXPECT_THAT(view.log, ElementsAre("progress", "disabled", "inactive", "thawed", "folder", "incomplete"));
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

} // namespace
