// SPDX-License-Identifier: GPL-3.0-or-later
// Media that are opened by several threads.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "Render/MediaAhead.h"
#include "fakes/project/FakeMedia.h"
#include <condition_variable>
#include <functional>
#include <future>
#include <gtest/gtest.h>

namespace Render {
namespace {

using Project::Fakes::FakeMedia;
using Timeline::MediaReference;

/// Does what a test says before it has opened a medium; thread-safe.
class OpeningFactory : public Kestra::Proc::ISourceFactory {
public:
    explicit OpeningFactory(std::function<void(const std::string& path)> opening)
        : opening(std::move(opening)) {}

    boost::intrusive_ptr<Kestra::Proc::IMediaSource> OpenMedia(const Kestra::ioPath& path, const std::atomic<bool>*,
                                                               const Kestra::Proc::MediaLimits&,
                                                               const Kestra::Proc::TrackChoice&) override {
        ++openings;
        opening(path.ToUtf8());
        return new FakeMedia(path, {}, {});
    }

    std::atomic<int> openings{0};

private:
    const std::function<void(const std::string& path)> opening;
};

class MediaPoolTest : public testing::Test {
protected:
    void TearDown() override { Kestra::Core::CoreManager::Instance().SetSourceFactory(nullptr); }

    void whenOpening(const std::function<void(const std::string& path)>& does) {
        factory = std::make_shared<OpeningFactory>(does);
        Kestra::Core::CoreManager::Instance().SetSourceFactory(factory);
    }
    static MediaReference reference(const std::string& path) {
        return {path, Timeline::MediaFile{Kestra::ioPath(path)}};
    }
    /// Many, each named twice.
    static std::vector<MediaReference> references() {
        std::vector<MediaReference> all;
        for (int number = 0; number < 100; ++number)
            all.push_back(reference(std::to_string(number % 50)));
        return all;
    }
    static std::vector<const MediaReference*> pointersTo(const std::vector<MediaReference>& all) {
        std::vector<const MediaReference*> pointers;
        for (const MediaReference& one : all)
            pointers.push_back(&one);
        return pointers;
    }

    MediaPool pool;
    std::shared_ptr<OpeningFactory> factory;
};

class MediaPoolOfHungFiles : public MediaPoolTest {};
class MediaAheadTest : public MediaPoolTest {};

TEST_F(MediaPoolOfHungFiles, OpensOthersMeanwhile) {
    std::promise<void> begun, released;
    whenOpening([&](const std::string& path) {
        if (path != "hangs")
            return;
        begun.set_value();
        released.get_future().wait();
    });
    const auto hanging = std::async(std::launch::async, [this] { pool.open(reference("hangs")); });
    begun.get_future().wait();
    auto other = std::async(std::launch::async, [this] { return pool.open(reference("other")); });
    const bool came = other.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
    released.set_value();
    EXPECT_TRUE(came);
    EXPECT_EQ(other.get()->GetPath(), Kestra::ioPath("other"));
    hanging.wait();
    ASSERT_EQ(pool.sources().size(), 2U);
    EXPECT_EQ(pool.sources().front()->GetPath(), Kestra::ioPath("hangs")) << "it was asked for first";
}

TEST_F(MediaPoolOfHungFiles, HasOneSourceForAllWhoOpenedAMedium) {
    std::promise<void> begun, released;
    std::atomic<int> count{0};
    whenOpening([&](const std::string&) {
        if (count++ > 0)
            return;
        begun.set_value();
        released.get_future().wait();
    });
    auto first = std::async(std::launch::async, [this] { return pool.open(reference("a")); });
    begun.get_future().wait();
    const MediaPool::Source second = pool.open(reference("a"));
    released.set_value();
    EXPECT_EQ(first.get(), second);
    EXPECT_EQ(pool.open(reference("a")), second);
    EXPECT_EQ(pool.sources(), std::vector{second});
}

TEST_F(MediaAheadTest, OpensSeveralAtATimeEachOnceAndKeepsTheirOrder) {
    std::mutex mutex;
    std::condition_variable changed;
    int now = 0, most = 0;
    whenOpening([&](const std::string&) {
        std::unique_lock<std::mutex> lock(mutex);
        most = std::max(most, ++now);
        changed.notify_all();
        changed.wait_for(lock, std::chrono::seconds(10), [&] { return most > 1; });
        --now;
    });
    const auto all = references();
    MediaAhead(pool, pointersTo(all), nullptr);
    EXPECT_GT(most, 1);
    EXPECT_LE(most, 4);
    EXPECT_EQ(factory->openings, 50);
    ASSERT_EQ(pool.sources().size(), 50U);
    for (std::size_t number = 0; number < 50; ++number)
        EXPECT_EQ(pool.sources()[number]->GetPath(), Kestra::ioPath(std::to_string(number)));
}

TEST_F(MediaAheadTest, PassesOverWhatCannotBeOpened) {
    whenOpening([](const std::string& path) {
        if (path == "7")
            KESTRA_THROW(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::SourceUnreadable, "broken"));
    });
    const auto all = references();
    MediaAhead(pool, pointersTo(all), nullptr);
    EXPECT_EQ(pool.sources().size(), 49U);
    EXPECT_THROW(pool.open(reference("7")), Kestra::Proc::ProcException);
    EXPECT_EQ(factory->openings, 51) << "the others are open";
}

TEST_F(MediaAheadTest, EndsWhenItIsInterrupted) {
    std::atomic<bool> interrupted{false};
    whenOpening([&interrupted](const std::string&) { interrupted = true; });
    const auto all = references();
    MediaAhead(pool, pointersTo(all), &interrupted);
    EXPECT_GE(factory->openings, 1);
    EXPECT_LE(factory->openings, 4) << "one on each thread";
}

} // namespace
} // namespace Render
