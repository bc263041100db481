// Streams come, change and go by the thousand, asked for by their owner and by others, and every view knows the truth.
#include "Export/ExportStreams.h"
#include "sweep/ReferenceExport.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

using Object = Stream::VideoObject;
using VideoStreams = Stream::View<Media::Video, Kestra::Proc::IStreamVideo>;

/// Knows by what it hears alone.
class Hearer : public VideoStreams {
public:
    using VideoStreams::observeNew, VideoStreams::processAddRequests, VideoStreams::streamAdd,
        VideoStreams::streamChange, VideoStreams::streamOwn, VideoStreams::streamRemove, VideoStreams::streams;

    std::map<const Object*, std::uint64_t> versions;
    std::uint64_t changes = 0;
    std::uint64_t wrong = 0; ///< changes of what it does not know, or from another version than it knew
    std::uint64_t appearances = 0;
    std::uint64_t removedTwice = 0;

protected:
    void streamAdded(const Object* object) override {
        ++appearances;
        versions.emplace(object, object->version);
    }
    void streamRemoved(const Object* object) override { removedTwice += versions.erase(object) == 1 ? 0 : 1; }
    using VideoStreams::streamChanged;
    void streamChanged(const Object* object, const Object* before) override {
        ++changes;
        const auto known = versions.find(object);
        if (known == versions.end() || known->second != before->version)
            ++wrong;
        else
            known->second = object->version;
    }
};

class BusStorm : public ::testing::Test {
protected:
    BusStorm() {
        model.processAddRequests(true);
        user.observeNew(true);
        onlooker.observeNew(true);
    }

    void add() {
        objects.push_back(std::make_unique<Object>());
        if (random() % 2 == 0)
            model.streamOwn(objects.back().get());
        else if (++offers)
            user.streamAdd(objects.back().get());
        ++adds;
        truth[objects.back().get()] = 0;
    }
    void remove() {
        const std::size_t at = random() % objects.size();
        std::swap(objects[at], objects.back());
        model.streamRemove(objects.back().get());
        truth.erase(objects.back().get());
        objects.pop_back();
    }
    void change() {
        const Object* object = objects[random() % objects.size()].get();
        // By its owner, or at the request of somebody else.
        (random() % 2 == 0 ? model : user).streamChange(object)->version = ++lastVersion;
        truth[object] = lastVersion;
    }

    std::mt19937 random{20'260};
    std::vector<std::unique_ptr<Object>> objects;
    std::map<const Object*, std::uint64_t> truth;
    std::uint64_t adds = 0;
    std::uint64_t offers = 0;
    std::uint64_t lastVersion = 0;
    Hearer model, user, onlooker;
};

TEST_F(BusStorm, EveryViewHearsOfEveryStreamAndEachOfItsChangesOnce) {
    const int steps = Sweep::countOr(20'000), most = std::max(steps / 100, 10);
    std::uint64_t changes = 0;
    for (int step = 0; step < steps; ++step) {
        const unsigned dice = random() % 100;
        if (objects.empty() || (static_cast<int>(objects.size()) < most && dice < 10)) {
            add();
        } else if (dice < 12) {
            remove();
        } else {
            change();
            ++changes;
        }
    }
    EXPECT_GT(changes, 0U);
    for (Hearer* hearer : {&model, &user, &onlooker}) {
        SCOPED_TRACE(hearer == &model ? "the owner" : hearer == &user ? "the one that asks" : "the onlooker");
        EXPECT_EQ(hearer->wrong, 0U);
        // Who offers a stream hears of it for itself, and as of a new one.
        EXPECT_EQ(hearer->appearances, adds + (hearer == &user ? offers : 0));
        EXPECT_EQ(hearer->removedTwice, 0U);
        EXPECT_EQ(hearer->changes, changes);
        EXPECT_EQ(hearer->versions, truth);
    }
    while (!objects.empty())
        remove();
    EXPECT_TRUE(onlooker.versions.empty());
}

} // namespace
