// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/BoundedQueue.h"
#include "fakes/kestra/FakeData.h"
#include <algorithm>
#include <atomic>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra::Proc {
namespace {

using Fakes::FakePacket;
using Queue = BoundedQueue<IDataRaw>;

boost::intrusive_ptr<IDataRaw> MakePacket(std::int64_t time, std::size_t size = 10) {
    return new FakePacket(time, 1, size);
}

QueueLimits Pieces(std::size_t count) {
    QueueLimits limits;
    limits.pieces = count;
    return limits;
}

std::exception_ptr Failure() {
    return std::make_exception_ptr(std::runtime_error("the disk is gone"));
}

constexpr std::chrono::milliseconds A_MOMENT{50};

/// What a call answers on a thread of its own; whether it waits is seen for a moment.
template <class Call>
auto OnAnotherThread(Call call) {
    return std::async(std::launch::async, std::move(call));
}
template <class Answer>
bool Waits(const std::future<Answer>& answer) {
    return answer.wait_for(A_MOMENT) == std::future_status::timeout;
}

TEST(BoundedQueue, GivesThePiecesInTheirOrder) {
    Queue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(2));
    EXPECT_EQ(queue.WaitFront()->GetTime(), 1);
    EXPECT_EQ(queue.WaitFront()->GetTime(), 1) << "the front stays until it is taken";
    queue.PopFront();
    EXPECT_EQ(queue.WaitFront()->GetTime(), 2);
    EXPECT_EQ(queue.Pop()->GetTime(), 2);
}

TEST(BoundedQueue, LetsTheTakerAloneHoldWhatItHasTaken) {
    Queue queue({100, 100});
    queue.Push(MakePacket(1));
    EXPECT_EQ(queue.WaitFront()->GetRefCount(), 2);
    EXPECT_EQ(queue.Pop()->GetRefCount(), 1);
}

TEST(BoundedQueue, AnswersNullAfterTheLastPiece) {
    Queue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.End();
    EXPECT_NE(queue.WaitFront(), nullptr);
    EXPECT_NE(queue.Pop(), nullptr);
    EXPECT_EQ(queue.WaitFront(), nullptr);
    EXPECT_EQ(queue.Pop(), nullptr);
}

TEST(BoundedQueue, ThrowsWhatItsMakerFailedWithAfterThePiecesBeforeAndAsOftenAsItIsAsked) {
    Queue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.Fail(Failure());
    EXPECT_EQ(queue.Pop()->GetTime(), 1);
    EXPECT_THROW(queue.Pop(), std::runtime_error);
    EXPECT_THROW(queue.WaitFront(), std::runtime_error);
}

TEST(BoundedQueue, WakesATakerThatWaitsWhenItsMakerEndsOrFails) {
    Queue ended({100, 100});
    Queue failed({100, 100});
    auto end = OnAnotherThread([&] { return ended.Pop(); });
    auto failure = OnAnotherThread([&] { return failed.Pop(); });
    EXPECT_TRUE(Waits(end));
    EXPECT_TRUE(Waits(failure));
    ended.End();
    failed.Fail(Failure());
    EXPECT_EQ(end.get(), nullptr);
    EXPECT_THROW(failure.get(), std::runtime_error);
}

TEST(BoundedQueue, BlocksThePusherWhenItsBytesAreUsedUp) {
    Queue queue({25, 100});
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(2));
    auto third = OnAnotherThread([&] { return queue.Push(MakePacket(3)); });
    EXPECT_TRUE(Waits(third));
    queue.PopFront();
    EXPECT_TRUE(third.get());
}

TEST(BoundedQueue, BlocksThePusherWhenItsTimeIsUsedUp) {
    Queue queue({1000, 5});
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(6));
    auto third = OnAnotherThread([&] { return queue.Push(MakePacket(7)); });
    EXPECT_TRUE(Waits(third));
    queue.Pop();
    EXPECT_TRUE(third.get());
}

TEST(BoundedQueue, CountsTheTimeOfPacketsByTheirDecoding) {
    Queue queue({1000, 5});
    const auto first = MakePacket(1);
    const auto shownLate = MakePacket(100);
    shownLate->SetDecodeTime(2);
    queue.Push(first);
    EXPECT_TRUE(queue.Push(shownLate));
    EXPECT_EQ(queue.Pop(), first);
}

TEST(BoundedQueue, BlocksThePusherWhenItsPiecesAreUsedUp) {
    Queue queue(Pieces(2));
    queue.Push(MakePacket(1));
    queue.Push(MakePacket(2));
    auto third = OnAnotherThread([&] { return queue.Push(MakePacket(3)); });
    EXPECT_TRUE(Waits(third));
    queue.Pop();
    EXPECT_TRUE(third.get());
}

TEST(BoundedQueue, KeepsAPusherWaitingUntilHalfOfItIsEmptyWhereThatIsWanted) {
    QueueLimits limits = Pieces(4);
    limits.wakeAtHalf = true;
    Queue queue(limits);
    for (int time = 1; time <= 4; ++time)
        queue.Push(MakePacket(time));
    auto fifth = OnAnotherThread([&] { return queue.Push(MakePacket(5)); });
    EXPECT_TRUE(Waits(fifth));
    queue.Pop();
    EXPECT_TRUE(Waits(fifth)) << "there is room for one";
    queue.Pop();
    EXPECT_TRUE(fifth.get());
    EXPECT_TRUE(queue.Push(MakePacket(6))) << "who does not wait takes what room there is";
}

TEST(BoundedQueue, TakesASinglePieceOfAnySize) {
    for (const QueueLimits& limits : {QueueLimits{10, 5}, QueueLimits{0, 0}, Pieces(0)}) {
        Queue queue(limits);
        EXPECT_TRUE(queue.WaitForRoom());
        EXPECT_TRUE(queue.Push(MakePacket(1, 1000)));
        EXPECT_EQ(queue.WaitFront()->GetByteSize(), 1000u);
    }
}

/// Whether a maker that does not know what comes is held back behind one piece of 10 bytes and another that is
/// decoded 4 later, and let on when the first is taken.
void ExpectNoRoomBehindTwo(const QueueLimits& limits) {
    Queue queue(limits);
    queue.Push(MakePacket(1));
    EXPECT_TRUE(queue.WaitForRoom());
    queue.Push(MakePacket(5));
    auto room = OnAnotherThread([&] { return queue.WaitForRoom(); });
    EXPECT_TRUE(Waits(room)) << limits.bytes << " bytes, " << limits.time << " time, " << limits.pieces << " pieces";
    queue.Pop();
    EXPECT_TRUE(room.get());
}

TEST(BoundedQueue, HasNoRoomForWhatIsUnknownOnceAnyLimitIsReached) {
    ExpectNoRoomBehindTwo({20, 100});
    ExpectNoRoomBehindTwo({100, 4});
    ExpectNoRoomBehindTwo(Pieces(2));
}

TEST(BoundedQueue, WaitsForAPiece) {
    Queue queue({100, 100});
    auto front = OnAnotherThread([&] { return queue.WaitFront(); });
    EXPECT_TRUE(Waits(front));
    queue.Push(MakePacket(1));
    EXPECT_EQ(front.get()->GetTime(), 1);
}

TEST(BoundedQueue, CancelWakesBothSides) {
    Queue empty({100, 100});
    Queue full({10, 100});
    Queue another({10, 100});
    full.Push(MakePacket(1));
    another.Push(MakePacket(1));
    auto front = OnAnotherThread([&] { return empty.WaitFront(); });
    auto pushed = OnAnotherThread([&] { return full.Push(MakePacket(2)); });
    auto room = OnAnotherThread([&] { return another.WaitForRoom(); });
    EXPECT_TRUE(Waits(front));
    EXPECT_TRUE(Waits(pushed));
    EXPECT_TRUE(Waits(room));
    empty.Cancel();
    full.Cancel();
    another.Cancel();
    EXPECT_EQ(front.get(), nullptr);
    EXPECT_FALSE(pushed.get());
    EXPECT_FALSE(room.get());
}

TEST(BoundedQueue, StillGivesWhatIsQueuedAfterCancel) {
    Queue queue({100, 100});
    queue.Push(MakePacket(1));
    queue.Cancel();
    EXPECT_FALSE(queue.Push(MakePacket(2)));
    EXPECT_FALSE(queue.WaitForRoom());
    ASSERT_NE(queue.WaitFront(), nullptr);
    queue.PopFront();
    EXPECT_EQ(queue.WaitFront(), nullptr);
}

TEST(BoundedQueue, TellsNoFailureOfItsMakerAfterCancel) {
    for (const bool before : {true, false}) {
        Queue queue({100, 100});
        if (before)
            queue.Fail(Failure());
        queue.Cancel();
        if (!before)
            queue.Fail(Failure());
        EXPECT_EQ(queue.Pop(), nullptr);
    }
}

TEST(BoundedQueue, ClearLetsGoOfThePiecesAndMakesRoom) {
    Queue queue({10, 100});
    const auto packet = MakePacket(1);
    queue.Push(packet);
    auto pushed = OnAnotherThread([&] { return queue.Push(MakePacket(2)); });
    EXPECT_TRUE(Waits(pushed));
    queue.Clear();
    EXPECT_EQ(packet->GetRefCount(), 1);
    EXPECT_TRUE(pushed.get());
    queue.Clear();
    EXPECT_TRUE(queue.Push(MakePacket(3, 5)));
    EXPECT_TRUE(queue.Push(MakePacket(4, 5))) << "what was let go of takes no room";
}

TEST(BoundedQueue, CanBeUsedAgainAfterAReset) {
    for (const auto& end : {std::function<void(Queue&)>(&Queue::End), std::function<void(Queue&)>(&Queue::Cancel),
                            std::function<void(Queue&)>([](Queue& queue) { queue.Fail(Failure()); })}) {
        Queue queue({10, 100});
        queue.Push(MakePacket(1));
        end(queue);
        queue.Reset();
        EXPECT_TRUE(queue.WaitForRoom());
        EXPECT_TRUE(queue.Push(MakePacket(2)));
        EXPECT_EQ(queue.Pop()->GetTime(), 2);
        auto next = OnAnotherThread([&] { return queue.Pop(); });
        EXPECT_TRUE(Waits(next)) << "what it ended with is forgotten";
        queue.End();
        EXPECT_EQ(next.get(), nullptr);
    }
}

TEST(BoundedQueue, LetsGoOfAFailureByAReset) {
    const auto token = std::make_shared<int>(0);
    struct Holding {
        std::shared_ptr<int> token;
    };
    Queue queue({10, 100});
    queue.Fail(std::make_exception_ptr(Holding{token}));
    EXPECT_EQ(token.use_count(), 2);
    queue.Reset();
    EXPECT_EQ(token.use_count(), 1);
}

TEST(BoundedQueue, TakingFromAnEmptyQueueDoesNothing) {
    Queue queue({100, 100});
    queue.PopFront();
    EXPECT_TRUE(queue.Push(MakePacket(1)));
    EXPECT_EQ(queue.WaitFront()->GetTime(), 1);
}

TEST(BoundedQueue, CarriesEveryPieceFromThreadToThreadAndNeverHoldsMoreThanItMay) {
    constexpr int COUNT = 5000;
    Queue queue(Pieces(3));
    std::atomic<int> under{0};
    int most = 0;
    auto made = OnAnotherThread([&] {
        int number = 0;
        while (number < COUNT && queue.WaitForRoom()) {
            most = std::max(most, ++under);
            queue.Push(MakePacket(number++));
        }
        queue.End();
        return number;
    });
    int taken = 0;
    bool inOrder = true;
    while (const auto packet = queue.WaitFront()) {
        inOrder = inOrder && packet->GetTime() == taken;
        ++taken;
        --under;
        queue.PopFront();
    }
    EXPECT_EQ(made.get(), COUNT);
    EXPECT_EQ(taken, COUNT);
    EXPECT_TRUE(inOrder);
    EXPECT_LE(most, 3);
}

} // namespace
} // namespace Kestra::Proc
