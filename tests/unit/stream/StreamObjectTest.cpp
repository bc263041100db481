// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/ExportStreams.h"
#include "support/HookSlot.h"
#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <type_traits>

namespace {

template <class O>
class StreamObject : public ::testing::Test {};

using Objects = ::testing::Types<Stream::VideoObject, Stream::AudioObject>;
struct ObjectNames {
    template <class O>
    static std::string GetName(int) {
        return std::is_same_v<O, Stream::VideoObject> ? "Video" : "Audio";
    }
};
TYPED_TEST_SUITE(StreamObject, Objects, ObjectNames);

TYPED_TEST(StreamObject, IsEmptyByDefault) {
    const TypeParam object;
    EXPECT_EQ(object.source, nullptr);
    EXPECT_FALSE(object.using_);
    EXPECT_EQ(object.impl, nullptr);
    EXPECT_FALSE(object.available);
    EXPECT_EQ(object.version, 0u);
    EXPECT_EQ(object.range, Types::Range());
}

TYPED_TEST(StreamObject, HoldsItsFieldsInAFixedOrder) {
    const TypeParam object;
    const std::array<const void*, 6> fields{&object.source,    &object.using_,  &object.impl,
                                            &object.available, &object.version, &object.range};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<const void*>()));
    EXPECT_TRUE((std::is_same_v<decltype(object.version), std::uint64_t>));
}

template <class View, class O>
struct Probe : View {
    static void check() {
        EXPECT_EQ(hookSlot(&Probe::addRequested), 6u);
        EXPECT_EQ(hookSlot(&Probe::changeRequested), 7u);
        EXPECT_EQ(hookSlot(&Probe::removeRequested), 8u);
        EXPECT_EQ(hookSlot(&Probe::streamAdded), 9u);
        EXPECT_EQ(hookSlot(&Probe::streamRemoved), 10u);
        EXPECT_EQ(hookSlot(static_cast<void (Probe::*)(const O*, const O*, const O*)>(&Probe::streamChanged)), 11u);
        EXPECT_EQ(hookSlot(static_cast<void (Probe::*)(const O*, const O*)>(&Probe::streamChanged)), 12u);
        EXPECT_EQ(hookSlot(static_cast<void (Probe::*)(const O*)>(&Probe::streamChanged)), 13u);
        EXPECT_EQ(hookSlot(&Probe::sourceChanged), 14u);
        EXPECT_EQ(hookSlot(&Probe::implChanged), 15u);
        EXPECT_EQ(hookSlot(&Probe::versionChanged), 16u);
        EXPECT_EQ(hookSlot(&Probe::isUsing), 17u);
        EXPECT_EQ(hookSlot(&Probe::isAvailable), 18u);
    }
};

TYPED_TEST(StreamObject, IsSeenThroughHooksOfAFixedBinaryOrder) {
    if constexpr (std::is_same_v<TypeParam, Stream::VideoObject>)
        Probe<Stream::VideoView, TypeParam>::check();
    else
        Probe<Stream::AudioView, TypeParam>::check();
}

TYPED_TEST(StreamObject, LeavesItsViewsAsBigAsTheGenericOne) {
    using View =
        std::conditional_t<std::is_same_v<TypeParam, Stream::VideoObject>, Stream::VideoView, Stream::AudioView>;
    EXPECT_EQ(sizeof(Stream::ObjectViewBase<TypeParam>), sizeof(Message::View<TypeParam>));
    EXPECT_EQ(sizeof(View), sizeof(Message::View<TypeParam>));
    EXPECT_TRUE(std::is_default_constructible_v<View>);
    EXPECT_TRUE(std::is_copy_constructible_v<View>);
    EXPECT_TRUE(std::has_virtual_destructor_v<View>);
}

} // namespace
