#include "EditorProject/StreamSlot.h"
#include "unit/short-memory/ShortMemory.h"
#include "unit/stream/FakeStream.h"
#include <gtest/gtest.h>
#include <memory>

using TestSupport::ShortMemory;

namespace {

class MortalStream : public FakeStream<FakeVideoRead> {
public:
    explicit MortalStream(bool& alive)
        : alive(alive) {
        alive = true;
    }
    ~MortalStream() override { alive = false; }

private:
    bool& alive;
};

TEST(SlotWithoutMemory, LetsItsStreamGoAllTheSame) {
    bool alive = false;
    auto slot = std::make_unique<Project::StreamSlot<Kestra::Proc::IStreamVideo>>();
    slot->put(new MortalStream(alive));
    {
        const ShortMemory shortage;
        slot->reset();
        EXPECT_FALSE(alive);
        EXPECT_GT(shortage.refusals(), 0);
    }
    slot->put(new MortalStream(alive));
    {
        const ShortMemory shortage;
        slot.reset(); // nothing may leave its destructor
    }
    EXPECT_FALSE(alive);
}

} // namespace
