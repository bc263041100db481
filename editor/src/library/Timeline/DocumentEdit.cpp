#include "Timeline/DocumentEdit.h"

namespace Timeline {
namespace {

using Why = std::function<std::string(const MediaReference&)>;

std::shared_ptr<const Stack> edited(const Stack& stack, const Why& why);

std::string urlOf(const MediaReference& media) {
    const auto* const file = std::get_if<MediaFile>(&media.target);
    return file ? file->path.ToUtf8() : media.name;
}

Item edited(Item item, const Why& why) {
    if (auto* const nested = std::get_if<Nested>(&item.content)) {
        nested->stack = edited(*nested->stack, why);
    } else if (auto* const clip = std::get_if<Clip>(&item.content)) {
        const std::string reason = why(clip->media);
        if (!reason.empty())
            clip->media.target = MissingMedia{urlOf(clip->media), reason};
    }
    return item;
}

Track edited(const Track& track, const Why& why) {
    std::vector<Item> items;
    items.reserve(track.items().size());
    for (const Item& item : track.items())
        items.push_back(edited(item, why));
    return Track(track.kind(), track.name(), track.isEnabled(), std::move(items), track.transitions(), track.markers());
}

std::shared_ptr<const Stack> edited(const Stack& stack, const Why& why) {
    std::vector<Track> tracks;
    for (const Track& track : stack.tracks())
        tracks.push_back(edited(track, why));
    return std::make_shared<Stack>(stack.name(), std::move(tracks), stack.markers());
}

} // namespace

std::shared_ptr<const Document> withMissing(const Document& document, const Why& why) {
    auto result = std::make_shared<Document>(document);
    result->tracks = edited(*document.tracks, why);
    return result;
}

} // namespace Timeline
