#include "Kestra/Proc/Processor/PacketQueue.h"
#include "fakes/kestra/FakeData.h"
#include <future>
#include <gtest/gtest.h>

namespace Kestra::Proc {
namespace {

using Fakes::FakePacket;

boost::intrusive_ptr<IDataRaw> MakePacket(std::int64_t time, std::size_t size = 10) {
    return new FakePacket(time, 1, size);
}

constexpr std::chrono::milliseconds A_MOMENT{50};

TEST(PacketQueue, GivesThePacketsInTheirOrder) {
    PacketQueue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(2));
    EXPECT_EQ(queue.WaitFront()->GetTime(), 1);
    EXPECT_EQ(queue.WaitFront()->GetTime(), 1) << "the front stays until it is taken";
    queue.PopFront();
    EXPECT_EQ(queue.WaitFront()->GetTime(), 2);
}

TEST(PacketQueue, AnswersNullAfterTheLastPacket) {
    PacketQueue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.End();
    EXPECT_NE(queue.WaitFront(), nullptr);
    queue.PopFront();
    EXPECT_EQ(queue.WaitFront(), nullptr);
}

TEST(PacketQueue, BlocksThePusherWhenItsBytesAreUsedUp) {
    PacketQueue queue({25, 100});
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(2));
    auto third = std::async(std::launch::async, [&] { return queue.Push(MakePacket(3)); });
    EXPECT_EQ(third.wait_for(A_MOMENT), std::future_status::timeout);
    queue.PopFront();
    EXPECT_TRUE(third.get());
}

TEST(PacketQueue, BlocksThePusherWhenItsTimeIsUsedUp) {
    PacketQueue queue({1000, 5});
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(6));
    auto third = std::async(std::launch::async, [&] { return queue.Push(MakePacket(7)); });
    EXPECT_EQ(third.wait_for(A_MOMENT), std::future_status::timeout);
    queue.PopFront();
    EXPECT_TRUE(third.get());
}

TEST(PacketQueue, TakesASinglePacketOfAnySize) {
    PacketQueue queue({10, 5});
    EXPECT_TRUE(queue.Push(MakePacket(1, 1000)));
    EXPECT_EQ(queue.WaitFront()->GetByteSize(), 1000u);
}

TEST(PacketQueue, WaitsForAPacket) {
    PacketQueue queue({100, 100});
    auto front = std::async(std::launch::async, [&] { return queue.WaitFront(); });
    EXPECT_EQ(front.wait_for(A_MOMENT), std::future_status::timeout);
    queue.Push(MakePacket(1));
    EXPECT_EQ(front.get()->GetTime(), 1);
}

TEST(PacketQueue, CancelWakesBothSides) {
    PacketQueue empty({100, 100});
    PacketQueue full({10, 100});
    full.Push(MakePacket(1));
    auto front = std::async(std::launch::async, [&] { return empty.WaitFront(); });
    auto pushed = std::async(std::launch::async, [&] { return full.Push(MakePacket(2)); });
    EXPECT_EQ(front.wait_for(A_MOMENT), std::future_status::timeout);
    EXPECT_EQ(pushed.wait_for(A_MOMENT), std::future_status::timeout);
    empty.Cancel();
    full.Cancel();
    EXPECT_EQ(front.get(), nullptr);
    EXPECT_FALSE(pushed.get());
}

TEST(PacketQueue, StillGivesWhatIsQueuedAfterCancel) {
    PacketQueue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.Cancel();
    EXPECT_FALSE(queue.Push(MakePacket(2)));
    ASSERT_NE(queue.WaitFront(), nullptr);
    queue.PopFront();
    EXPECT_EQ(queue.WaitFront(), nullptr);
}

TEST(PacketQueue, ClearLetsGoOfThePackets) {
    PacketQueue queue({100, 100});
    const auto packet = MakePacket(1);
    queue.Push(packet);
    EXPECT_EQ(packet->GetRefCount(), 2);
    queue.Clear();
    EXPECT_EQ(packet->GetRefCount(), 1);
}

TEST(PacketQueue, TakingFromAnEmptyQueueDoesNothing) {
    PacketQueue queue({100, 100});
    queue.PopFront();
    EXPECT_TRUE(queue.Push(MakePacket(1)));
    EXPECT_EQ(queue.WaitFront()->GetTime(), 1);
}

} // namespace
} // namespace Kestra::Proc
