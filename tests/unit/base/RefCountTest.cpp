// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/RefCountImpl.h"
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace Kestra {
namespace {

class Counted : public RefCountImpl {
public:
    explicit Counted(int& alive)
        : alive(alive) {
        ++alive;
    }
    ~Counted() override { --alive; }

private:
    int& alive;
};

/// As the engine's objects are: an interface and the count, both over the same virtual base.
class IThing : public virtual IRefCountable {};
class Thing : public IThing, public RefCountImpl {};

TEST(RefCount, StartsAtZero) {
    int alive = 0;
    auto* object = new Counted(alive);
    EXPECT_EQ(object->GetRefCount(), 0);
    const boost::intrusive_ptr<Counted> first(object);
    EXPECT_EQ(object->GetRefCount(), 1);
}

TEST(RefCount, DestroysTheObjectWithTheLastReleaseOnly) {
    int alive = 0;
    boost::intrusive_ptr<Counted> first(new Counted(alive));
    boost::intrusive_ptr<Counted> second = first;
    first.reset();
    EXPECT_EQ(alive, 1);
    second.reset();
    EXPECT_EQ(alive, 0);
}

TEST(RefCount, IsOneCountForAllInterfacesOfAnObject) {
    const boost::intrusive_ptr<Thing> object(new Thing);
    const boost::intrusive_ptr<IThing> seenAsThing = object;
    const boost::intrusive_ptr<IRefCountable> seenAsCounted = object;
    EXPECT_EQ(object->GetRefCount(), 3);
    EXPECT_EQ(seenAsCounted->GetRefCount(), 3);
}

TEST(RefCount, CountsRightFromManyThreads) {
    int alive = 0;
    boost::intrusive_ptr<Counted> object(new Counted(alive));
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([object] {
            for (int turn = 0; turn < 10000; ++turn) {
                const boost::intrusive_ptr<Counted> copy = object;
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    // The lambdas' copies have gone with their threads.
    EXPECT_EQ(object->GetRefCount(), 1);
    object.reset();
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace Kestra
