// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/MediaList.h"

namespace Timeline {
namespace {

Item itemOf(const ListedMedia& media, bool has) {
    Item item;
    item.name = media.path.ToUtf8();
    item.duration = media.duration;
    if (has)
        item.content = Clip{{item.name, MediaFile{media.path}}, {}, Kestra::Ticks(0)};
    return item;
}

} // namespace

std::shared_ptr<const Document> documentOf(const std::vector<ListedMedia>& list) {
    std::vector<Item> pictures, sound;
    for (const ListedMedia& media : list) {
        pictures.push_back(itemOf(media, media.pictures));
        sound.push_back(itemOf(media, media.sound));
    }
    auto document = std::make_shared<Document>();
    document->tracks = std::make_shared<Stack>(
        std::string(), std::vector<Track>{Track(Track::Kind::Video, {}, true, std::move(pictures)),
                                          Track(Track::Kind::Audio, {}, true, std::move(sound))});
    return document;
}

} // namespace Timeline
