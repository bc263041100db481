// SPDX-License-Identifier: GPL-3.0-or-later
// The views of compositions, markers, ranges, the fast track and media descriptions: the generic view in other words.
#include "Composition/View.h"
#include "FastTrack/View.h"
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using ::testing::ElementsAre;

using Log = std::vector<std::string>;

struct Compositions : Composition::CompositionView {
    using Object = Composition::Object;
    Log log;
    const Object* first() const { return composition(); }
    std::set<const Object*> all() const { return compositions(); }
    void add(Object* object) { compositionAdd(object); }
    void own(Object* object) { compositionOwn(object); }
    void change(const Object* object) { compositionChange(object); }
    void remove(const Object* object) { compositionRemove(object); }
    void observe(const Object* object) { compositionObserve(object); }
    void forget(const Object* object) { compositionForget(object); }
    bool isObserved(const Object* object) const { return compositionIsObserved(object); }
    bool isOwned(const Object* object) const { return compositionIsOwned(object); }
    Object* ownerPointer(const Object* object) const { return compositionOwnerPointer(object); }
    void adopt() { processAddRequests(true); }

private:
    void compositionAdded(const Object*) override { log.push_back("added"); }
    void compositionRemoved(const Object*) override { log.push_back("removed"); }
    void compositionChanged(const Object*, const Object*, const Object*) override { log.push_back("changed3"); }
    void compositionChanged(const Object*, const Object*) override { log.push_back("changed2"); }
    void compositionChanged(const Object*) override { log.push_back("changed1"); }
};

struct Markers : Composition::MarkerView {
    using Object = Composition::Marker;
    Log log;
    const Object* first() const { return marker(); }
    std::set<const Object*> all() const { return markers(); }
    void add(Object* object) { markerAdd(object); }
    void own(Object* object) { markerOwn(object); }
    void change(const Object* object) { markerChange(object); }
    void remove(const Object* object) { markerRemove(object); }
    void observe(const Object* object) { markerObserve(object); }
    void forget(const Object* object) { markerForget(object); }
    bool isObserved(const Object* object) const { return markerIsObserved(object); }
    bool isOwned(const Object* object) const { return markerIsOwned(object); }
    Object* ownerPointer(const Object* object) const { return markerOwnerPointer(object); }
    void adopt() { processAddRequests(true); }

private:
    void markerAdded(const Object*) override { log.push_back("added"); }
    void markerRemoved(const Object*) override { log.push_back("removed"); }
    void markerChanged(const Object*, const Object*, const Object*) override { log.push_back("changed3"); }
    void markerChanged(const Object*, const Object*) override { log.push_back("changed2"); }
    void markerChanged(const Object*) override { log.push_back("changed1"); }
};

struct Ranges : Composition::RangeView {
    using Object = Composition::Range;
    Log log;
    const Object* first() const { return range(); }
    std::set<const Object*> all() const { return ranges(); }
    void add(Object* object) { rangeAdd(object); }
    void own(Object* object) { rangeOwn(object); }
    void change(const Object* object) { rangeChange(object); }
    void remove(const Object* object) { rangeRemove(object); }
    void observe(const Object* object) { rangeObserve(object); }
    void forget(const Object* object) { rangeForget(object); }
    bool isObserved(const Object* object) const { return rangeIsObserved(object); }
    bool isOwned(const Object* object) const { return rangeIsOwned(object); }
    Object* ownerPointer(const Object* object) const { return rangeOwnerPointer(object); }
    void adopt() { processAddRequests(true); }

private:
    void rangeAdded(const Object*) override { log.push_back("added"); }
    void rangeRemoved(const Object*) override { log.push_back("removed"); }
    void rangeChanged(const Object*, const Object*, const Object*) override { log.push_back("changed3"); }
    void rangeChanged(const Object*, const Object*) override { log.push_back("changed2"); }
    void rangeChanged(const Object*) override { log.push_back("changed1"); }
};

struct FastTracks : FastTrack::View {
    using Object = FastTrack::Object;
    Log log;
    const Object* first() const { return fastTrack(); }
    std::set<const Object*> all() const { return fastTracks(); }
    void add(Object* object) { fastTrackAdd(object); }
    void own(Object* object) { fastTrackOwn(object); }
    void change(const Object* object) { fastTrackChange(object); }
    void remove(const Object* object) { fastTrackRemove(object); }
    void observe(const Object* object) { fastTrackObserve(object); }
    void forget(const Object* object) { fastTrackForget(object); }
    bool isObserved(const Object* object) const { return fastTrackIsObserved(object); }
    bool isOwned(const Object* object) const { return fastTrackIsOwned(object); }
    Object* ownerPointer(const Object* object) const { return fastTrackOwnerPointer(object); }
    void adopt() { processAddRequests(true); }

private:
    void fastTrackAdded(const Object*) override { log.push_back("added"); }
    void fastTrackRemoved(const Object*) override { log.push_back("removed"); }
    void fastTrackChanged(const Object*, const Object*, const Object*) override { log.push_back("changed3"); }
    void fastTrackChanged(const Object*, const Object*) override { log.push_back("changed2"); }
    void fastTrackChanged(const Object*) override { log.push_back("changed1"); }
};

template <class M>
struct Medias : Media::View<M> {
    using Object = M;
    Log log;
    const M* first() const { return this->media(); }
    std::set<const M*> all() const { return this->medias(); }
    void add(M* object) { this->mediaAdd(object); }
    void own(M* object) { this->mediaOwn(object); }
    void change(const M* object) { this->mediaChange(object); }
    void remove(const M* object) { this->mediaRemove(object); }
    void observe(const M* object) { this->mediaObserve(object); }
    void forget(const M* object) { this->mediaForget(object); }
    bool isObserved(const M* object) const { return this->mediaIsObserved(object); }
    bool isOwned(const M* object) const { return this->mediaIsOwned(object); }
    M* ownerPointer(const M* object) const { return this->mediaOwnerPointer(object); }
    void adopt() { this->processAddRequests(true); }

private:
    void mediaAdded(const M*) override { log.push_back("added"); }
    void mediaRemoved(const M*) override { log.push_back("removed"); }
    void mediaChanged(const M*, const M*, const M*) override { log.push_back("changed3"); }
    void mediaChanged(const M*, const M*) override { log.push_back("changed2"); }
    void mediaChanged(const M*) override { log.push_back("changed1"); }
};

template <class View>
class RenamedView : public ::testing::Test {
protected:
    std::array<typename View::Object, 2> objects;
    typename View::Object* const lower = &objects[0];
    typename View::Object* const object = &objects[1];
    View model;
    View user;
};

using Views = ::testing::Types<Compositions, Markers, Ranges, FastTracks, Medias<Media::Video>, Medias<Media::Audio>>;
struct ViewNames {
    template <class View>
    static std::string GetName(int index) {
        static const char* const NAMES[] = {"Composition", "Marker", "Range", "FastTrack", "Video", "Audio"};
        return NAMES[index];
    }
};
TYPED_TEST_SUITE(RenamedView, Views, ViewNames);

TYPED_TEST(RenamedView, CallsTheGenericHooksByItsOwnNames) {
    this->model.own(this->object);
    this->user.observe(this->object);
    this->user.change(this->object);
    this->user.remove(this->object);
    EXPECT_FALSE(this->model.isOwned(this->object));
    EXPECT_THAT(this->user.log, ElementsAre("added", "changed3", "changed1", "changed3", "changed2", "changed1",
                                            "changed3", "changed1", "removed"));
}

TYPED_TEST(RenamedView, CallsTheGenericOperationsByItsOwnNames) {
    this->model.adopt();
    this->user.add(this->object);
    this->user.add(this->lower);
    EXPECT_EQ(this->user.first(), this->lower);
    EXPECT_THAT(this->user.all(), ElementsAre(this->lower, this->object));
    EXPECT_TRUE(this->model.isOwned(this->object));
    EXPECT_FALSE(this->user.isOwned(this->object));
    EXPECT_EQ(this->model.ownerPointer(this->object), this->object);
    EXPECT_EQ(this->user.ownerPointer(this->object), nullptr);
    this->user.forget(this->lower);
    EXPECT_FALSE(this->user.isObserved(this->lower));
    EXPECT_TRUE(this->model.isOwned(this->lower)) << "forgotten, not removed";
    EXPECT_TRUE(this->user.isObserved(this->object));
}

TYPED_TEST(RenamedView, HearsOfNothingByDefault) {
    this->model.own(this->object);
    this->model.add(this->lower);
    EXPECT_EQ(this->user.first(), nullptr);
    EXPECT_TRUE(this->user.log.empty());
}

TYPED_TEST(RenamedView, IsDerivedFromTheGenericViewInConfidence) {
    using Generic = Message::View<typename TypeParam::Object>;
    EXPECT_TRUE((std::is_base_of_v<Generic, TypeParam>));
    EXPECT_FALSE((std::is_convertible_v<TypeParam*, Generic*>));
}

} // namespace
