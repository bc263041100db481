#include "unit/message/ViewFixture.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

} // namespace
