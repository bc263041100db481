// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/OpenStreams.h"
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

TEST(OpenStreamsWithoutMemory, LetThemGoAllTheSame) {
    bool alive = false;
    auto streams = std::make_unique<Render::OpenStreams<Kestra::Proc::IStreamVideo>>();
    auto lease = streams->open(new MortalStream(alive));
    {
        const ShortMemory shortage;
        streams->reset();
        EXPECT_FALSE(alive);
        EXPECT_GT(shortage.refusals(), 0);
    }
    lease = streams->open(new MortalStream(alive));
    {
        const ShortMemory shortage;
        streams->letGo(); // which its destructor does, and nothing may leave that
    }
    EXPECT_FALSE(alive);
}

} // namespace
