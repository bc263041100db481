// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/DocumentEdit.h"
#include "Timeline/MarkerList.h"
#include <gtest/gtest.h>
#include <stdexcept>

namespace Timeline::Tests {
namespace {

using Kestra::Ticks;

Item clip(const std::string& name, std::int64_t duration) {
    Item item;
    item.name = name;
    item.duration = Ticks(duration);
    item.content = Clip{{name, MediaFile{Kestra::ioPath("/" + name)}}, {}, Ticks(0)};
    return item;
}

Transition transition(std::size_t at, std::int64_t before, std::int64_t behind) {
    return {"", "SMPTE_Dissolve", at, Ticks(before), Ticks(behind)};
}

Document three() {
    Document document;
    document.name = "cut";
    document.resources = std::make_shared<int>(1);
    document.tracks = std::make_shared<Stack>(
        "", std::vector<Track>{Track(Track::Kind::Video, "V", true, {clip("a", 100), clip("b", 50), clip("c", 80)},
                                     {transition(1, 30, 20), transition(2, 20, 40)})});
    return document;
}

const Track& trackOf(const std::shared_ptr<const Document>& document) {
    return document->tracks->tracks().front();
}

TEST(DocumentEdit, TrimsAnItemAndMovesWhatFollows) {
    const Document before = three();
    const auto after = withItem(before, {0, 1}, clip("b", 30));
    EXPECT_EQ(trackOf(after).startOf(2), Ticks(130));
    EXPECT_EQ(after->duration(), Ticks(210));
    ASSERT_EQ(trackOf(after).transitions().size(), 2U);
    EXPECT_EQ(trackOf(after).transitions()[0].behind, Ticks(20));
    EXPECT_EQ(trackOf(after).transitions()[1].before, Ticks(10)) << "shortened to what the other one leaves";
    EXPECT_EQ(before.duration(), Ticks(230)) << "an edit makes another document";
    EXPECT_EQ(after->resources, before.resources);
    EXPECT_EQ(after->name, "cut");
}

TEST(DocumentEdit, RemovesAnItemWithTheTransitionsBesideIt) {
    const auto after = withoutItem(three(), {0, 0});
    ASSERT_EQ(trackOf(after).items().size(), 2U);
    EXPECT_EQ(trackOf(after).items()[0].name, "b");
    ASSERT_EQ(trackOf(after).transitions().size(), 1U);
    EXPECT_EQ(trackOf(after).transitions()[0].at, 1U);
    EXPECT_EQ(trackOf(after).transitions()[0].behind, Ticks(40));
    EXPECT_TRUE(trackOf(withoutItem(three(), {0, 1})).transitions().empty());
}

TEST(DocumentEdit, LeavesSharedWhatTracksShare) {
    Item nested;
    nested.duration = Ticks(10);
    nested.content = Nested{three().tracks, {}};
    Document document;
    document.tracks = std::make_shared<Stack>("", std::vector<Track>{Track(Track::Kind::Video, "", true, {nested}),
                                                                     Track(Track::Kind::Audio, "", true, {nested})});
    const auto after = withMissing(document, [](const MediaReference&) { return std::string("is broken"); });
    const auto stackIn = [&](std::size_t track) {
        return std::get<Nested>(after->tracks->tracks()[track].items()[0].content).stack;
    };
    EXPECT_EQ(stackIn(0), stackIn(1)) << "it would have its markers twice";
}

TEST(DocumentEdit, MovesMarkersWithTheirItems) {
    std::vector<Item> items{clip("a", 100), clip("b", 100), clip("c", 100)};
    for (Item& item : items)
        item.markers.push_back({"in " + item.name, "", "", {Ticks(60), Ticks(0)}});
    Document cut;
    cut.tracks = std::make_shared<Stack>("", std::vector<Track>{Track(Track::Kind::Video, "V", true, items)});
    const auto markers = [](const std::shared_ptr<const Document>& document) {
        std::string words;
        for (const Marker& one : markersOf(*document->tracks))
            words += one.name + '@' + std::to_string(one.range.start.Value()) + ' ';
        return words;
    };
    EXPECT_EQ(markers(withoutItem(cut, {0, 0})), "in b@60 in c@160 ");
    EXPECT_EQ(markers(withoutItem(cut, {0, 1})), "in a@60 in c@160 ");
    items[0].duration = Ticks(50);
    EXPECT_EQ(markers(withItem(cut, {0, 0}, items[0])), "in b@110 in c@210 ") << "that of a lies behind its end";
}

TEST(DocumentEdit, RefusesAPlaceThatThereIsNot) {
    EXPECT_THROW(withoutItem(three(), {0, 3}), std::out_of_range);
    EXPECT_THROW(withItem(three(), {1, 0}, clip("x", 1)), std::out_of_range);
}

TEST(DocumentEdit, TakesMediaForMissingAlsoInStacks) {
    Item nested;
    nested.duration = Ticks(10);
    nested.content = Nested{three().tracks, {}};
    Document document;
    document.tracks = std::make_shared<Stack>("", std::vector<Track>{Track(Track::Kind::Video, "", true, {nested})});
    const auto after = withMissing(document, [](const MediaReference& media) {
        return media.name == "b" ? std::string("is broken") : std::string();
    });
    const auto& inner = std::get<Nested>(trackOf(after).items()[0].content).stack->tracks().front().items();
    EXPECT_TRUE(std::holds_alternative<MediaFile>(std::get<Clip>(inner[0].content).media.target));
    const auto& missing = std::get<MissingMedia>(std::get<Clip>(inner[1].content).media.target);
    EXPECT_EQ(missing.url, "/b");
    EXPECT_EQ(missing.why, "is broken");
}

} // namespace
} // namespace Timeline::Tests
