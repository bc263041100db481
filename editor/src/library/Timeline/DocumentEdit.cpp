// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/DocumentEdit.h"

#include <algorithm>
#include <map>
#include <utility>

namespace Timeline {
namespace {

using Why = std::function<std::string(const MediaReference&)>;
using Edit = std::function<void(MediaReference&)>;

std::string urlOf(const MediaReference& media) {
    const auto* const file = std::get_if<MediaFile>(&media.target);
    return file ? file->path.ToUtf8() : media.name;
}

/// Gives every clip another medium. What tracks share stays shared.
class MediaEdit {
public:
    explicit MediaEdit(Edit edit)
        : edit(std::move(edit)) {}

    std::shared_ptr<const Stack> edited(const Stack& stack) {
        const auto known = done.find(&stack);
        if (known != done.end())
            return known->second;
        std::vector<Track> tracks;
        for (const Track& track : stack.tracks())
            tracks.push_back(edited(track));
        return done[&stack] = std::make_shared<Stack>(stack.name(), std::move(tracks), stack.markers());
    }

private:
    Track edited(const Track& track) {
        std::vector<Item> items;
        items.reserve(track.items().size());
        for (const Item& item : track.items())
            items.push_back(edited(item));
        return Track(track.kind(), track.name(), track.isEnabled(), std::move(items), track.transitions(),
                     track.markers());
    }

    Item edited(Item item) {
        if (auto* const nested = std::get_if<Nested>(&item.content))
            nested->stack = edited(*nested->stack);
        else if (auto* const clip = std::get_if<Clip>(&item.content))
            edit(clip->media);
        return item;
    }

    const Edit edit;
    std::map<const Stack*, std::shared_ptr<const Stack>> done;
};

/// Fitted to the items beside them.
std::vector<Transition> fitted(const std::vector<Transition>& transitions, const std::vector<Item>& items) {
    std::vector<Transition> all;
    for (Transition one : transitions) {
        const Kestra::Ticks taken = !all.empty() && all.back().at + 1 == one.at ? all.back().behind : Kestra::Ticks(0);
        one.before = one.at > 0 ? std::min(one.before, items[one.at - 1].duration - taken) : Kestra::Ticks(0);
        one.behind = one.at < items.size() ? std::min(one.behind, items[one.at].duration) : Kestra::Ticks(0);
        if (one.before + one.behind > Kestra::Ticks(0))
            all.push_back(std::move(one));
    }
    return all;
}

std::shared_ptr<const Document> withTrack(const Document& document, std::size_t index, std::vector<Item> items,
                                          const std::vector<Transition>& transitions) {
    std::vector<Track> tracks = document.tracks->tracks();
    const Track& old = tracks.at(index);
    auto kept = fitted(transitions, items);
    tracks[index] = Track(old.kind(), old.name(), old.isEnabled(), std::move(items), std::move(kept), old.markers());
    auto result = std::make_shared<Document>(document);
    result->tracks = std::make_shared<Stack>(document.tracks->name(), std::move(tracks), document.tracks->markers());
    return result;
}

} // namespace

std::shared_ptr<const Document> withItem(const Document& document, const ItemPlace& place, Item item) {
    const Track& track = document.tracks->tracks().at(place.track);
    std::vector<Item> items = track.items();
    items.at(place.item) = std::move(item);
    return withTrack(document, place.track, std::move(items), track.transitions());
}

std::shared_ptr<const Document> withoutItem(const Document& document, const ItemPlace& place) {
    const Track& track = document.tracks->tracks().at(place.track);
    std::vector<Item> items = track.items();
    static_cast<void>(items.at(place.item));
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(place.item));
    std::vector<Transition> transitions;
    for (Transition one : track.transitions()) {
        if (one.at == place.item || one.at == place.item + 1)
            continue;
        one.at -= one.at > place.item ? 1 : 0;
        transitions.push_back(std::move(one));
    }
    return withTrack(document, place.track, std::move(items), transitions);
}

std::shared_ptr<const Document> withMissing(const Document& document, const Why& why) {
    auto result = std::make_shared<Document>(document);
    const Edit edit = [&why](MediaReference& media) {
        const std::string reason = why(media);
        if (!reason.empty())
            media.target = MissingMedia{urlOf(media), reason};
    };
    result->tracks = MediaEdit(edit).edited(*document.tracks);
    return result;
}

std::shared_ptr<const Document> withBlackForMissingPictures(const Document& document) {
    using MissingFrames = ImageSequence::MissingFrames;
    auto result = std::make_shared<Document>(document);
    const Edit edit = [](MediaReference& media) {
        auto* const sequence = std::get_if<ImageSequence>(&media.target);
        if (sequence && sequence->missing == MissingFrames::Refused)
            sequence->missing = MissingFrames::Black;
    };
    result->tracks = MediaEdit(edit).edited(*document.tracks);
    return result;
}

} // namespace Timeline
