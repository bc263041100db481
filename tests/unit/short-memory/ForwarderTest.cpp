// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/FunctorExecutionForwarder.h"
#include "support/WaitUntil.h"
#include "unit/short-memory/ShortMemory.h"
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <vector>

using Kestra::Util::FunctorExecutionForwarder;
using TestSupport::ShortMemory;

namespace {

class ForwarderWithoutMemory : public ::testing::Test {
protected:
    /// Whether the number has set out. A functor of this size needs no memory itself.
    bool forward(int number, void (FunctorExecutionForwarder::*way)(std::function<void()>)) {
        next = number;
        try {
            (forwarder.*way)([this] { arrived.push_back(next); });
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    FunctorExecutionForwarder forwarder;
    int next = 0;
    std::vector<int> arrived;
};

TEST_F(ForwarderWithoutMemory, RefusesAFunctorWholeSoThatTheNextOneArrives) {
    std::vector<int> numbers;
    for (int number = 0; number < 40; ++number) {
        std::unique_ptr<ShortMemory> shortage;
        if (number % 2 == 0)
            shortage = std::make_unique<ShortMemory>();
        const bool sent = forward(number, &FunctorExecutionForwarder::Forward);
        EXPECT_EQ(sent, number % 2 != 0);
        shortage.reset();
        TestSupport::turnEventLoop(1);
        if (sent)
            numbers.push_back(number);
        ASSERT_EQ(arrived, numbers);
    }
}

TEST_F(ForwarderWithoutMemory, CarriesOneFunctorByThePlaceThatWasKept) {
    forwarder.KeepPlace();
    {
        const ShortMemory shortage;
        EXPECT_FALSE(forward(1, &FunctorExecutionForwarder::Forward)) << "the place is for what has to arrive";
        EXPECT_TRUE(forward(2, &FunctorExecutionForwarder::ForwardSurely));
        EXPECT_GT(shortage.refusals(), 0);
    }
    TestSupport::turnEventLoop();
    EXPECT_EQ(arrived, std::vector<int>{2});
    const ShortMemory shortage;
    EXPECT_FALSE(forward(3, &FunctorExecutionForwarder::ForwardSurely));
}

TEST_F(ForwarderWithoutMemory, LeavesTheKeptPlaceWhereThereIsMemory) {
    forwarder.KeepPlace();
    EXPECT_TRUE(forward(1, &FunctorExecutionForwarder::ForwardSurely));
    TestSupport::turnEventLoop();
    {
        const ShortMemory shortage;
        EXPECT_TRUE(forward(2, &FunctorExecutionForwarder::ForwardSurely));
    }
    TestSupport::turnEventLoop();
    EXPECT_EQ(arrived, (std::vector<int>{1, 2}));
}

} // namespace
