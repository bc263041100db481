// SPDX-License-Identifier: GPL-3.0-or-later
// How often an animated WebP file is shown, as a catalogue can wish for it: refused, or in the file.
#include "WishFixture.h"
#include "support/AnimatedWebP.h"

using TestPresets::text;

namespace {

class AnimationWish : public TestWishes::WishFixture {
protected:
    static QJsonObject presetWith(const char* option, const QJsonValue& value) {
        const QJsonObject container{{text("id"), text("webp")}, {text("options"), QJsonObject{{text(option), value}}}};
        return {{text("container"), container}, {text("video"), QJsonObject{{text("codec"), text("webp")}}}};
    }
};

TEST_F(AnimationWish, OfPlaysIsRefusedOrMet) {
    for (const int plays : {0, 3, 65535}) {
        ASSERT_TRUE(accepts(presetWith("loop", plays), "/container/")) << plays;
        exported("short.mkv", "webp");
        EXPECT_EQ(TestMedia::AnimatedWebP::read(path).plays, plays);
    }
    ASSERT_TRUE(accepts(presetWith("loop", text("2")), "/container/"));
    exported("short.mkv", "webp");
    EXPECT_EQ(TestMedia::AnimatedWebP::read(path).plays, 2);
    EXPECT_FALSE(accepts(presetWith("loop", -1), "/container/options/loop: "));
    EXPECT_FALSE(accepts(presetWith("loop", 65536), "/container/options/loop: "));
    EXPECT_FALSE(accepts(presetWith("loop", text("often")), "/container/options/loop: "));
    EXPECT_FALSE(accepts(presetWith("fflags", text("bitexact")), "/container/options/fflags: "));
}

} // namespace
