// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputRemoval.h"
#include "ExportCore/IOutputTransaction.h"
#include "fakes/kestra/Gate.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>
#include <thread>

using ExportCore::OutputRemoval;
using Kestra::Fakes::Gate;
using TestSupport::turnEventLoop;
using TestSupport::waitUntil;

namespace {

/// What became of an output; outlives it.
struct Fate {
    Gate gate; ///< in front of the removal
    std::atomic<bool> committed{false}, removed{false}, left{false}, gone{false};
    std::thread::id remover, closer; ///< once it is gone
};

class FakeOutput : public ExportCore::IOutputTransaction {
public:
    explicit FakeOutput(std::shared_ptr<Fate> fate)
        : fate(std::move(fate)) {}
    ~FakeOutput() override {
        fate->closer = std::this_thread::get_id();
        fate->gone = true;
    }
    const QByteArray& privatePath() const override { return path; }
    void sync() const override {}
    bool commit() override { return fate->committed = true; }
    void forbid() noexcept override {}
    void rollback() noexcept override {
        fate->gate.Pass();
        fate->remover = std::this_thread::get_id();
        fate->removed = !fate->committed;
    }
    void leave() noexcept override { fate->left = true; }
    bool isCommitted() const override { return fate->committed; }

private:
    const std::shared_ptr<Fate> fate;
    const QByteArray path;
};

class Removal : public ::testing::Test {
protected:
    Removal() {
        QObject::connect(removal.get(), &OutputRemoval::ended, [this] { ++endCount; });
    }
    ~Removal() override { fate->gate.Open(); }

    void start() { removal->start(std::make_shared<FakeOutput>(fate)); }
    bool waitForEnd() {
        return waitUntil([this] { return endCount > 0; });
    }

    const std::shared_ptr<Fate> fate = std::make_shared<Fate>();
    std::unique_ptr<OutputRemoval> removal = std::make_unique<OutputRemoval>();
    int endCount = 0;
};

TEST_F(Removal, RunsAndClosesOnAnotherThreadWhileTheEventLoopTurns) {
    start();
    ASSERT_TRUE(fate->gate.WaitUntilReached());
    turnEventLoop();
    EXPECT_EQ(endCount, 0);
    EXPECT_FALSE(fate->removed);
    fate->gate.Open();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(fate->removed);
    EXPECT_TRUE(fate->gone) << "nothing is left when the end is told";
    EXPECT_NE(fate->remover, std::this_thread::get_id());
    EXPECT_NE(fate->closer, std::this_thread::get_id());
    EXPECT_FALSE(removal->isHanging());
    EXPECT_FALSE(removal->isCommitted());
    removal.reset();
    EXPECT_EQ(endCount, 1);
    EXPECT_FALSE(fate->left);
}

TEST_F(Removal, OfWhatStandsAtItsPlaceTellsThat) {
    fate->committed = true;
    fate->gate.Open();
    start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(removal->isCommitted());
    EXPECT_TRUE(fate->gone);
}

TEST_F(Removal, ThatHangsIsLeftAndToldOnce) {
    start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(removal->isHanging());
    EXPECT_FALSE(removal->isCommitted());
    EXPECT_TRUE(fate->left);
    fate->gate.Open();
    ASSERT_TRUE(waitUntil([this] { return fate->gone.load(); })) << "whoever comes out lets go of it";
    turnEventLoop();
    EXPECT_EQ(endCount, 1);
}

TEST_F(Removal, IsWaitedForByItsDestructionUnlessItHangs) {
    fate->gate.Open();
    start();
    removal.reset();
    EXPECT_TRUE(fate->gone);
    EXPECT_FALSE(fate->left);
    EXPECT_EQ(endCount, 0);

    const auto hanging = std::make_shared<Fate>();
    OutputRemoval().start(std::make_shared<FakeOutput>(hanging));
    EXPECT_TRUE(hanging->left);
    EXPECT_FALSE(hanging->gone);
    hanging->gate.Open();
    EXPECT_TRUE(waitUntil([&] { return hanging->gone.load(); }));
}

} // namespace
