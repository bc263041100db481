// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/HookSlot.h"
#include "unit/message/ViewFixture.h"
#include <type_traits>

namespace {

namespace Types = Message::Types;

template <template <class> class M>
constexpr bool isRequest = std::is_base_of_v<Types::Request<Item>, M<Item>>;
template <template <class> class M>
constexpr bool isNotification = std::is_base_of_v<Types::Notification<Item>, M<Item>>;

TEST(Messages, AreRequestsOrNotifications) {
    EXPECT_TRUE(isRequest<Types::Add> && isRequest<Types::Change> && isRequest<Types::Remove>);
    EXPECT_TRUE(isRequest<Types::Enumerate>);
    EXPECT_TRUE(isNotification<Types::Added> && isNotification<Types::Changed> && isNotification<Types::Removed>);
    EXPECT_TRUE(isNotification<Types::Enumerated>);
    EXPECT_FALSE(isRequest<Types::Added> || isNotification<Types::Add>);
}

TEST(Messages, AreAboutAnObjectWhateverTheirKind) {
    EXPECT_TRUE((std::is_base_of_v<PubSub::Message<Item>, Types::Request<Item>>));
    EXPECT_TRUE((std::is_base_of_v<PubSub::Message<Item>, Types::Notification<Item>>));
    EXPECT_TRUE((std::is_base_of_v<PubSub::Details::MessageBase, PubSub::Message<Item>>));
    EXPECT_TRUE((std::is_same_v<decltype(PubSub::Message<Item>::object), const Item*>));
}

TEST(Messages, CarryWhatTheirReceiverNeeds) {
    Item item;
    Item proposed(3);
    EXPECT_EQ(Types::Add<Item>(&item).object, &item);
    EXPECT_EQ(Types::Add<Item>(&item).value, &item);
    EXPECT_EQ(Types::Change<Item>(&item, &proposed).object, &item);
    EXPECT_EQ(Types::Change<Item>(&item, &proposed).value, &proposed);
    EXPECT_EQ(Types::Changed<Item>(&item, &proposed).previous, &proposed);
    EXPECT_EQ(Types::Removed<Item>(&item).object, &item);
    EXPECT_EQ(Types::Enumerate<Item>().object, nullptr);
}

/// Just what a view may ask of an object type.
class Plain : public virtual PubSub::Object {
public:
    Plain() = default;
    Plain(const Plain& other) = default;
    Plain& operator=(const Plain& other) = default;
    Plain& operator=(Plain&& other) {
        number = other.number;
        return *this;
    }
    int number = 0;
};

TEST(Messages, AreExchangedAboutAnyTypeThatCanBeCopied) {
    Plain plain;
    Message::View<Plain> owner;
    owner.own(&plain)->number = 1;
    Message::View<Plain> observer(&plain);
    observer.change(&plain)->number = 2;
    EXPECT_EQ(plain.number, 2);
    owner.change(&plain)->number = 3;
    EXPECT_EQ(plain.number, 3);
    observer.remove(&plain);
    EXPECT_EQ(owner.object(), nullptr);
}

TEST(Messages, LeadToHooksOfAFixedBinaryOrder) {
    struct Probe : Message::View<Item> {
        static void check() {
            EXPECT_EQ(hookSlot(&Probe::added), 1u);
            EXPECT_EQ(hookSlot(static_cast<void (Probe::*)(const Item*, const Item*, const Item*)>(&Probe::changed)),
                      2u);
            EXPECT_EQ(hookSlot(static_cast<void (Probe::*)(const Item*, const Item*)>(&Probe::changed)), 3u);
            EXPECT_EQ(hookSlot(static_cast<void (Probe::*)(const Item*)>(&Probe::changed)), 4u);
            EXPECT_EQ(hookSlot(&Probe::removed), 5u);
            EXPECT_EQ(hookSlot(&Probe::addRequested), 6u);
            EXPECT_EQ(hookSlot(&Probe::changeRequested), 7u);
            EXPECT_EQ(hookSlot(&Probe::removeRequested), 8u);
        }
    };
    Probe::check();
    EXPECT_TRUE(std::has_virtual_destructor_v<Message::View<Item>>);
}

} // namespace
