// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <boost/exception/get_error_info.hpp>
#include <functional>
#include <gmock/gmock.h>

using ExportCore::PresetCatalogue;
using ExportCore::Refusal;
using ::testing::Contains;
using ::testing::HasSubstr;

namespace {

std::string refusalOf(const std::function<void()>& action) {
    try {
        action();
        return {};
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

TEST(PresetCatalogue, FindsEveryPresetUnderItsTags) {
    const PresetCatalogue catalogue;
    EXPECT_THAT(catalogue.ids(), Contains("mp4-h264-720p"));
    for (const std::string& id : catalogue.ids()) {
        ASSERT_FALSE(catalogue.tagsOf(id).empty()) << id;
        EXPECT_THAT(catalogue.idsOf(catalogue.tagsOf(id).front()), Contains(id));
        EXPECT_EQ(catalogue.preset(id).id(), id);
    }
}

TEST(PresetCatalogue, AnUnknownPresetIsRefusedWithNearNames) {
    const PresetCatalogue catalogue;
    EXPECT_THAT(refusalOf([&] { catalogue.preset("mp4-h264-702p"); }),
                HasSubstr("There is no preset \"mp4-h264-702p\"; did you mean mp4-h264-720p"));
    EXPECT_EQ(refusalOf([&] { catalogue.preset("qqqqqqqqqqqqqq"); }),
              "There is no preset \"qqqqqqqqqqqqqq\"; presets lists those there are");
}

TEST(PresetCatalogue, AnUnknownTagIsRefusedWithAllWhereNoneIsNear) {
    const PresetCatalogue catalogue;
    EXPECT_THAT(refusalOf([&] { catalogue.idsOf("audoi"); }),
                HasSubstr("There is no tag \"audoi\"; did you mean audio?"));
    EXPECT_THAT(refusalOf([&] { catalogue.idsOf("qqqqqqqqqqqqqq"); }),
                HasSubstr("There is no tag \"qqqqqqqqqqqqqq\"; there are mp4, webm, "));
}

/// The function that refuses, and not one that helps it to.
std::string originOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Refusal& refusal) {
        const char* const* const function = boost::get_error_info<boost::throw_function>(refusal);
        return function ? *function : "not told";
    }
    return "nothing was refused";
}

TEST(PresetCatalogue, ARefusalTellsWhichFunctionItComesFrom) {
    const PresetCatalogue catalogue;
    EXPECT_THAT(originOf([&] { catalogue.preset("qqqqqqqqqqqqqq"); }), HasSubstr("preset"));
    EXPECT_THAT(originOf([&] { catalogue.idsOf("qqqqqqqqqqqqqq"); }), HasSubstr("idsOf"));
    EXPECT_THAT(originOf([] { ExportCore::RequestCheck::inputs({}); }), HasSubstr("inputs"));
}

TEST(PresetCatalogue, AnUnknownTagIsRefusedWithNearNames) {
    const PresetCatalogue catalogue;
    EXPECT_THAT(refusalOf([&] { catalogue.idsOf("audoi"); }), HasSubstr("did you mean audio?"));
}

TEST(PresetCatalogue, AMalformedCatalogueIsRefusedWithFilePointerAndReason) {
    const TestMedia::Folder folder;
    const std::string path = folder / "broken.json";
    TestFiles::write(path, R"({"version": 1, "tags": [], "presets": [], "surprise": 1})");
    qputenv("EDITOR_EXPORT_PRESETS", path.c_str());
    const std::string sentence = refusalOf([] { PresetCatalogue catalogue; });
    qunsetenv("EDITOR_EXPORT_PRESETS");
    EXPECT_THAT(sentence, HasSubstr(path));
    EXPECT_THAT(sentence, HasSubstr(": /"));
    EXPECT_EQ(sentence.find('\n'), std::string::npos);
}

} // namespace
