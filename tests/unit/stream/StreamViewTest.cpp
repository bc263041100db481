// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/ExportStreams.h"
#include "support/Perishable.h"
#include "unit/stream/FakeStream.h"
#include <algorithm>
#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Log = std::vector<std::string>;

/// One medium's types, so that every test runs for both.
struct VideoCase {
    using Media = ::Media::Video;
    using Interface = Kestra::Proc::IStreamVideo;
    using Fake = FakeStream<FakeVideoRead>;
};
struct AudioCase {
    using Media = ::Media::Audio;
    using Interface = Kestra::Proc::IStreamAudio;
    using Fake = FakeStream<FakeAudioRead>;
};

template <class Case>
class RecordingStreamView : public Stream::View<typename Case::Media, typename Case::Interface> {
    using Base = Stream::View<typename Case::Media, typename Case::Interface>;

public:
    using O = Stream::Object<typename Case::Media, typename Case::Interface>;
    using Base::streamAdd, Base::streamOwn, Base::streamChange, Base::streamRemove, Base::streamObserve,
        Base::streamForget, Base::streamIsObserved, Base::streamIsOwned, Base::streamOwnerPointer, Base::stream,
        Base::streams, Base::processAddRequests;

    Log log;
    std::function<void(const std::string&)> onHook; ///< may destroy the view

protected:
    void streamAdded(const O*) override { note("added"); }
    void streamRemoved(const O*) override { note("removed"); }
    void streamChanged(const O* object, const O* before, const O* after) override {
        note("changed3");
        Base::streamChanged(object, before, after);
    }
    void streamChanged(const O*, const O*) override { note("changed2"); }
    void streamChanged(const O*) override { note("changed1"); }
    void sourceChanged(const O*) override { note("source"); }
    void implChanged(const O*) override { note("impl"); }
    void versionChanged(const O*) override { note("version"); }
    void isUsing(const O*, bool isUsed) override { note(isUsed ? "using" : "not using"); }
    void isAvailable(const O*, bool available) override { note(available ? "available" : "not available"); }

private:
    void note(const std::string& hook) {
        log.push_back(hook);
        if (const auto action = onHook) // a copy: it may destroy the view
            action(hook);
    }
};

template <class Case>
class StreamView : public ::testing::Test {
protected:
    using View = RecordingStreamView<Case>;
    using Object = typename View::O;

    StreamView() { model.processAddRequests(true); }

    void fill(Object& object) {
        object.source = &media;
        object.impl = new typename Case::Fake;
        object.version = 1;
        object.using_ = true;
        object.available = true;
    }

    typename Case::Media media;
    Object object;
    View model;
    View user;
};

using Cases = ::testing::Types<VideoCase, AudioCase>;
struct CaseNames {
    template <class Case>
    static std::string GetName(int) {
        return std::is_same_v<Case, VideoCase> ? "Video" : "Audio";
    }
};
TYPED_TEST_SUITE(StreamView, Cases, CaseNames);

TYPED_TEST(StreamView, StartsEmpty) {
    EXPECT_EQ(this->user.stream(), nullptr);
    EXPECT_THAT(this->user.streams(), IsEmpty());
}

TYPED_TEST(StreamView, OfAnAdoptedStreamObservesIt) {
    {
        auto chain = this->user.streamAdd(&this->object);
        chain->source = &this->media;
        chain->range = {KTime(1), KTime(2)};
    }
    EXPECT_TRUE(this->model.streamIsOwned(&this->object));
    EXPECT_TRUE(this->user.streamIsObserved(&this->object));
    EXPECT_FALSE(this->user.streamIsOwned(&this->object));
    EXPECT_EQ(this->user.stream(), &this->object);
    EXPECT_EQ(this->user.streamOwnerPointer(&this->object), nullptr);
    EXPECT_EQ(this->model.streamOwnerPointer(&this->object), &this->object);
    EXPECT_THAT(this->user.log, ElementsAre("added", "changed3", "source", "changed1"));
}

TYPED_TEST(StreamView, CallsEveryFieldHookInOrderForAFullStreamThatComes) {
    this->fill(this->object);
    this->user.streamObserve(&this->object);
    EXPECT_THAT(this->user.log,
                ElementsAre("added", "changed3", "source", "impl", "version", "using", "available", "changed1"));
}

TYPED_TEST(StreamView, CallsTheFieldHooksAndThenRemovedForAFullStreamThatLeaves) {
    this->fill(this->object);
    this->user.streamObserve(&this->object);
    this->user.log.clear();
    this->user.streamForget(&this->object);
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "source", "impl", "version", "not using", "not available",
                                            "changed1", "removed"));
}

TYPED_TEST(StreamView, CallsNoHookOfAFieldThatWasEmptyWhenAStreamLeaves) {
    this->object.source = &this->media;
    this->model.streamOwn(&this->object);
    this->user.streamObserve(&this->object);
    this->user.log.clear();
    this->model.streamRemove(&this->object);
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "source", "changed1", "removed"));
}

TYPED_TEST(StreamView, TellsOfTheEngineStreamAlone) {
    this->model.streamOwn(&this->object);
    this->user.streamObserve(&this->object);
    this->user.log.clear();
    this->model.streamChange(&this->object)->impl = new typename TypeParam::Fake;
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "impl", "changed2", "changed1"));
}

TYPED_TEST(StreamView, TellsOfEachFieldWithTheFlagsNewValue) {
    this->model.streamOwn(&this->object);
    this->user.streamObserve(&this->object);
    const auto hookAfter = [&](auto set) {
        this->user.log.clear();
        set(*this->user.streamChange(&this->object));
        return this->user.log.at(1);
    };
    using Object = typename RecordingStreamView<TypeParam>::O;
    EXPECT_EQ(hookAfter([&](Object& o) { o.source = &this->media; }), "source");
    EXPECT_EQ(hookAfter([](Object& o) { o.version = 7; }), "version");
    EXPECT_EQ(hookAfter([](Object& o) { o.using_ = true; }), "using");
    EXPECT_EQ(hookAfter([](Object& o) { o.using_ = false; }), "not using");
    EXPECT_EQ(hookAfter([](Object& o) { o.available = true; }), "available");
    EXPECT_EQ(hookAfter([](Object& o) { o.available = false; }), "not available");
}

TYPED_TEST(StreamView, CallsNoFieldHookForARangeAlone) {
    this->model.streamOwn(&this->object);
    this->user.streamObserve(&this->object);
    this->user.log.clear();
    this->user.streamChange(&this->object)->range = {KTime(5), KTime(9)};
    EXPECT_EQ(this->object.range.end, KTime(9));
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "changed2", "changed1"));
}

TYPED_TEST(StreamView, GivesTheEngineStreamNoExtraHolderBeyondTheChange) {
    using Object = typename RecordingStreamView<TypeParam>::O;
    boost::intrusive_ptr<typename TypeParam::Interface> engine(new typename TypeParam::Fake);
    this->model.streamOwn(&this->object);
    this->model.streamChange(&this->object)->impl = engine;
    EXPECT_EQ(engine->GetRefCount(), 2);
    this->user.streamChange(&this->object)->version = 3; // asks with a copy
    EXPECT_EQ(engine->GetRefCount(), 2);
    Object copy(this->object);
    EXPECT_EQ(engine->GetRefCount(), 3);
    Object moved(std::move(copy));
    EXPECT_EQ(engine->GetRefCount(), 3);
    moved = Object();
    EXPECT_EQ(engine->GetRefCount(), 2);
}

TYPED_TEST(StreamView, ShowsTheOldEngineStreamToHooksWhileTheOwnerChanges) {
    using O = typename RecordingStreamView<TypeParam>::O;
    class Keen : public RecordingStreamView<TypeParam> {
    public:
        typename TypeParam::Interface* old = nullptr;
        std::int64_t holders = 0;

    protected:
        void streamChanged(const O*, const O* before, const O*) override {
            old = before->impl.get();
            holders = old ? old->GetRefCount() : 0;
        }
    } keen;
    boost::intrusive_ptr<typename TypeParam::Interface> engine(new typename TypeParam::Fake);
    this->object.impl = engine;
    keen.streamOwn(&this->object);
    keen.streamChange(&this->object)->version = 3;
    EXPECT_EQ(keen.old, engine.get());
    EXPECT_EQ(keen.holders, 3); // this test, the value before and the value now
}

TYPED_TEST(StreamView, IsDerivedFromItsGenericViewInConfidence) {
    using O = typename RecordingStreamView<TypeParam>::O;
    using View = Stream::View<typename TypeParam::Media, typename TypeParam::Interface>;
    static_assert(std::is_base_of_v<Stream::ObjectViewBase<O>, View>);
    static_assert(std::is_base_of_v<Message::View<O>, Stream::ObjectViewBase<O>>);
    EXPECT_FALSE((std::is_convertible_v<View*, Stream::ObjectViewBase<O>*>));
    EXPECT_FALSE((std::is_convertible_v<Stream::ObjectViewBase<O>*, Message::View<O>*>));
}

TYPED_TEST(StreamView, OfACopyObservesTheSameStreams) {
    this->model.streamOwn(&this->object);
    this->user.streamObserve(&this->object);
    RecordingStreamView<TypeParam> copy(this->user);
    copy.log.clear();
    this->model.streamChange(&this->object)->version = 2;
    EXPECT_THAT(copy.log, ElementsAre("changed3", "version", "changed2", "changed1"));
}

TYPED_TEST(StreamView, HearsOfNothingByDefault) {
    RecordingStreamView<TypeParam> plain;
    this->model.streamOwn(&this->object);
    EXPECT_EQ(plain.stream(), nullptr);
    this->model.streamRemove(&this->object);
    this->model.processAddRequests(false);
    this->user.streamAdd(&this->object);
    EXPECT_FALSE(plain.streamIsOwned(&this->object));
    EXPECT_THAT(plain.log, IsEmpty());
}

TYPED_TEST(StreamView, CallsTheGenericOperationsByTheirStreamNames) {
    using Object = typename RecordingStreamView<TypeParam>::O;
    std::array<Object, 2> objects;
    this->model.streamOwn(&objects[1])->version = 1;
    this->model.streamOwn(&objects[0])->version = 1;
    EXPECT_EQ(this->model.stream(), &objects[0]);
    EXPECT_THAT(this->model.streams(), ElementsAre(&objects[0], &objects[1]));
    EXPECT_TRUE(this->model.streamIsOwned(&objects[1]));
    this->user.streamObserve(&objects[1]);
    EXPECT_TRUE(this->user.streamIsObserved(&objects[1]));
    EXPECT_FALSE(this->user.streamIsOwned(&objects[1]));
    EXPECT_EQ(this->user.streamOwnerPointer(&objects[1]), nullptr);
    EXPECT_EQ(this->user.streamOwnerPointer(&objects[0]), &objects[0]);
    this->user.streamChange(&objects[1])->version = 2;
    EXPECT_EQ(objects[1].version, 2u);
    this->user.streamForget(&objects[1]);
    EXPECT_FALSE(this->user.streamIsObserved(&objects[1]));
    EXPECT_TRUE(this->model.streamIsOwned(&objects[1]));
    this->user.streamRemove(&objects[1]);
    EXPECT_THAT(this->model.streams(), ElementsAre(&objects[0]));
}

TYPED_TEST(StreamView, TellsItsUserOfEveryLaterChangeByTheModel) {
    this->user.streamAdd(&this->object)->source = &this->media;
    this->user.log.clear();
    this->model.streamChange(&this->object)->impl = new typename TypeParam::Fake;
    this->model.streamChange(&this->object)->version = 4;
    this->model.streamChange(&this->object)->available = true;
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "impl", "changed2", "changed1", "changed3", "version",
                                            "changed2", "changed1", "changed3", "available", "changed2", "changed1"));
}

TYPED_TEST(StreamView, LosesTheFieldHooksToAnOverrideThatKeepsThemForItself) {
    using O = typename RecordingStreamView<TypeParam>::O;
    class Silent : public RecordingStreamView<TypeParam> {
        void streamChanged(const O*, const O*, const O*) override { this->log.push_back("silent"); }
    } silent;
    this->fill(this->object);
    silent.streamObserve(&this->object);
    EXPECT_THAT(silent.log, ElementsAre("added", "silent", "changed1"));
}

TYPED_TEST(StreamView, MayBeDestroyedByEachOfItsFieldHooks) {
    this->fill(this->object);
    Log until;
    for (const char* last : {"source", "impl", "version", "using", "available"}) {
        until.push_back(last);
        Log called;
        TestSupport::Perishable<RecordingStreamView<TypeParam>> doomed;
        doomed->onHook = [&](const std::string& hook) {
            if (hook == "added" || hook == "changed3")
                return;
            called.push_back(hook);
            if (hook == last)
                doomed.perish();
        };
        doomed->streamObserve(&this->object);
        EXPECT_EQ(doomed.get(), nullptr);
        EXPECT_EQ(called, until);
    }
}

TYPED_TEST(StreamView, TellsNoFurtherFieldsOfAnObjectThatAFieldHookDestroyed) {
    using Object = Stream::Object<typename TypeParam::Media, typename TypeParam::Interface>;
    Log until;
    for (const char* last : {"source", "impl", "version", "using", "available"}) {
        until.push_back(last);
        Log called;
        TestSupport::Perishable<Object> doomed;
        this->fill(*doomed.get());
        RecordingStreamView<TypeParam> view;
        view.onHook = [&](const std::string& hook) {
            if (hook == "added" || hook == "changed3")
                return;
            called.push_back(hook);
            if (hook == last)
                doomed.perish();
        };
        view.streamObserve(doomed.get());
        EXPECT_EQ(doomed.get(), nullptr);
        EXPECT_EQ(called, until);
    }
}

TYPED_TEST(StreamView, InheritsTheRequestHooksUnchanged) {
    using O = typename RecordingStreamView<TypeParam>::O;
    class Refusing : public RecordingStreamView<TypeParam> {
        void addRequested(O*) override { this->log.push_back("add requested"); }
        void changeRequested(O*, O*) override { this->log.push_back("change requested"); }
        void removeRequested(O*) override { this->log.push_back("remove requested"); }
    } refusing;
    this->model.processAddRequests(false);
    refusing.processAddRequests(true);
    this->user.streamAdd(&this->object);
    EXPECT_THAT(refusing.log, ElementsAre("add requested"));
    EXPECT_FALSE(refusing.streamIsObserved(&this->object));
    refusing.streamOwn(&this->object);
    refusing.log.clear();
    this->user.streamChange(&this->object)->version = 4;
    this->user.streamRemove(&this->object);
    EXPECT_THAT(refusing.log, ElementsAre("change requested", "remove requested"));
    EXPECT_EQ(this->object.version, 0u);
}

TYPED_TEST(StreamView, ComparesEngineStreamsByAddress) {
    this->object.impl = new typename TypeParam::Fake;
    this->model.streamOwn(&this->object);
    this->user.streamObserve(&this->object);
    this->user.log.clear();
    this->model.streamChange(&this->object)->impl = this->object.impl;
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "changed2", "changed1"));
    this->user.log.clear();
    this->model.streamChange(&this->object)->impl = new typename TypeParam::Fake;
    EXPECT_THAT(this->user.log, ElementsAre("changed3", "impl", "changed2", "changed1"));
}

/// Keeps what its hooks are called with.
template <class Case>
class ExactStreamView : public Stream::View<typename Case::Media, typename Case::Interface> {
    using Base = Stream::View<typename Case::Media, typename Case::Interface>;
    using O = Stream::Object<typename Case::Media, typename Case::Interface>;

public:
    using Base::streamObserve;
    std::vector<const O*> objects;
    std::vector<std::uint64_t> versions;

private:
    void streamAdded(const O* o) override { objects.push_back(o); }
    void streamRemoved(const O* o) override { objects.push_back(o); }
    void streamChanged(const O* o, const O* before, const O* after) override {
        objects.push_back(o);
        versions.push_back(before->version);
        versions.push_back(after->version);
        Base::streamChanged(o, before, after);
    }
    void streamChanged(const O* o, const O* before) override {
        objects.push_back(o);
        versions.push_back(before->version);
    }
    void streamChanged(const O* o) override { objects.push_back(o); }
    void sourceChanged(const O* o) override { objects.push_back(o); }
    void implChanged(const O* o) override { objects.push_back(o); }
    void versionChanged(const O* o) override { objects.push_back(o); }
    void isUsing(const O* o, bool) override { objects.push_back(o); }
    void isAvailable(const O* o, bool) override { objects.push_back(o); }
};

TYPED_TEST(StreamView, PassesItsHooksTheObjectsThatChanged) {
    ExactStreamView<TypeParam> exact;
    this->fill(this->object);
    this->model.streamOwn(&this->object);
    exact.streamObserve(&this->object);
    this->model.streamChange(&this->object)->version = 2;
    this->model.streamRemove(&this->object);
    EXPECT_THAT(exact.versions, ElementsAre(0, 1, 1, 2, 1, 2, 0));
    EXPECT_EQ(exact.objects.size(), 8u + 4u + 8u);
    EXPECT_THAT(exact.objects, ::testing::Each(&this->object));
}

} // namespace
