// SPDX-License-Identifier: GPL-3.0-or-later
// The model's types under one view template, which treats them all alike.
#include "Composition/View.h"
#include "Export/ExportStreams.h"
#include "FastTrack/View.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using ::testing::ElementsAre;

/// From a virtual base no cast leads back.
template <class T, class = void>
constexpr bool isOrdinaryBase = false;
template <class T>
constexpr bool isOrdinaryBase<T, std::void_t<decltype(static_cast<T*>(std::declval<PubSub::Object*>()))>> = true;

template <class T>
class ModelObject : public ::testing::Test {
protected:
    class Recording : public Message::View<T> {
    public:
        std::vector<std::string> log;
        const T* subject = nullptr;

    private:
        void added(const T*) override { log.push_back("added"); }
        void changed(const T* object, const T* before, const T* after) override {
            log.push_back("changed3" + name(object) + name(before) + name(after));
        }
        void changed(const T* object, const T*) override { log.push_back("changed2" + name(object)); }
        void changed(const T* object) override { log.push_back("changed1" + name(object)); }
        void removed(const T* object) override { log.push_back("removed" + name(object)); }
        std::string name(const T* object) const { return object == subject ? " it" : " other"; }
    };

    ModelObject() { owner.subject = user.subject = &object; }

    T object;
    Recording owner;
    Recording user;
};

using ModelTypes = ::testing::Types<Stream::VideoObject, Stream::AudioObject, FastTrack::Object, Composition::Object,
                                    Composition::Marker, Composition::Range, Media::Video, Media::Audio>;
struct TypeNames {
    template <class T>
    static std::string GetName(int index) {
        static const char* const NAMES[] = {"VideoStream", "AudioStream", "FastTrack", "Composition",
                                            "Marker",      "Range",       "Video",     "Audio"};
        return NAMES[index];
    }
};
TYPED_TEST_SUITE(ModelObject, ModelTypes, TypeNames);

TYPED_TEST(ModelObject, IsAValueThatTheBusKnows) {
    EXPECT_TRUE(std::is_default_constructible_v<TypeParam>);
    EXPECT_TRUE(std::is_copy_constructible_v<TypeParam>);
    EXPECT_TRUE(std::is_copy_assignable_v<TypeParam>);
    EXPECT_TRUE(std::is_move_assignable_v<TypeParam>);
    EXPECT_TRUE((std::is_convertible_v<const TypeParam*, const PubSub::Object*>));
    EXPECT_FALSE(isOrdinaryBase<TypeParam>);
}

TYPED_TEST(ModelObject, ComesChangesAndGoesLikeEveryOther) {
    this->owner.processAddRequests(true);
    this->user.add(&this->object);
    EXPECT_THAT(this->owner.log, ElementsAre("added", "changed3 it other it", "changed1 it"));
    EXPECT_EQ(this->user.log, this->owner.log);
    EXPECT_TRUE(this->owner.isOwned(&this->object));
    EXPECT_THAT(this->user.enumerateAll(), ElementsAre(&this->object));

    for (auto* changer : {&this->owner, &this->user}) {
        this->owner.log.clear();
        this->user.log.clear();
        changer->change(&this->object);
        EXPECT_THAT(this->owner.log, ElementsAre("changed3 it other it", "changed2 it", "changed1 it"));
        EXPECT_EQ(this->user.log, this->owner.log);
    }

    this->owner.log.clear();
    this->user.log.clear();
    this->user.remove(&this->object);
    EXPECT_THAT(this->owner.log, ElementsAre("changed3 it it other", "changed1 it", "removed it"));
    EXPECT_EQ(this->user.log, this->owner.log);
    EXPECT_EQ(this->user.object(), nullptr);
    EXPECT_EQ(this->owner.object(), nullptr);
}

} // namespace
