// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/MediaPool.h"

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include <algorithm>
#include <iterator>
#include <string>

namespace Render {

using Timeline::ImageSequence;
using Timeline::MediaFile;

namespace {

/// How many pictures of a sequence there are said to be, if anything says so.
std::optional<std::int64_t> countOf(const Timeline::MediaReference& media) {
    constexpr std::int64_t MOST = 1'000'000'000;
    if (!media.available)
        return std::nullopt;
    const Kestra::FrameGrid grid(std::get<ImageSequence>(media.target).rate);
    return std::clamp<std::int64_t>(grid.Nearest(media.available->duration).Value(), 1, MOST);
}

/// The same for references to the same medium; empty where there is none to be opened.
std::string keyOf(const Timeline::MediaReference& media) {
    if (const auto* file = std::get_if<MediaFile>(&media.target))
        return file->path.ToUtf8();
    const auto* const sequence = std::get_if<ImageSequence>(&media.target);
    if (!sequence)
        return {};
    const auto& rate = sequence->rate;
    return sequence->folder.ToUtf8() + '/' + sequence->nameOf(0) + '\n' + std::to_string(sequence->step) + ' ' +
           std::to_string(sequence->digits) + ' ' + std::to_string(rate.numerator()) + '/' +
           std::to_string(rate.denominator()) + ' ' + std::to_string(static_cast<int>(sequence->missing)) + ' ' +
           std::to_string(countOf(media).value_or(0));
}

Kestra::Proc::SettingsImageSequence settingsOf(const ImageSequence& sequence, std::optional<std::int64_t> count) {
    using Missing = Kestra::Proc::SettingsImageSequence::Missing;
    Kestra::Proc::SettingsImageSequence settings;
    settings.folder = sequence.folder;
    settings.prefix = sequence.prefix;
    settings.suffix = sequence.suffix;
    settings.firstNumber = sequence.firstNumber;
    settings.step = sequence.step;
    settings.digits = sequence.digits;
    settings.rate = sequence.rate;
    settings.count = count;
    settings.missing = sequence.missing == ImageSequence::MissingFrames::Held    ? Missing::Held
                       : sequence.missing == ImageSequence::MissingFrames::Black ? Missing::Black
                                                                                 : Missing::Refused;
    return settings;
}

} // namespace

MediaPool::MediaPool(const Kestra::Proc::MediaLimits& limits, Kestra::Proc::TrackChoice choice)
    : limits(limits)
    , choice(std::move(choice)) {}

std::pair<std::size_t, bool> MediaPool::takePlace(const std::string& key) {
    const auto known = places.find(key);
    if (known != places.end())
        return {known->second, false};
    opened.emplace_back();
    const std::size_t place = opened.size() - 1;
    places.emplace(key, place);
    return {place, true};
}

MediaPool::Source MediaPool::open(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted) {
    const std::string key = keyOf(media);
    if (key.empty())
        return nullptr;
    std::unique_lock<std::mutex> lock(mutex);
    const std::size_t place = takePlace(key).first;
    if (opened[place])
        return opened[place];
    lock.unlock(); // opening may take for ever
    const Source made = make(media, interrupted);
    lock.lock();
    if (!opened[place])
        opened[place] = made;
    return opened[place];
}

void MediaPool::put(const Timeline::MediaReference& media, const Source& source) {
    const std::string key = keyOf(media);
    const std::lock_guard<std::mutex> lock(mutex);
    if (!key.empty())
        opened[takePlace(key).first] = source;
}

bool MediaPool::isNew(const Timeline::MediaReference& media) {
    const std::string key = keyOf(media);
    const std::lock_guard<std::mutex> lock(mutex);
    return !key.empty() && takePlace(key).second;
}

MediaPool::Source MediaPool::make(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted) const {
    auto& factory = Kestra::Core::CoreManager::Instance().GetSourceFactory();
    if (const auto* sequence = std::get_if<ImageSequence>(&media.target))
        return factory.OpenSequence(settingsOf(*sequence, countOf(media)), interrupted, limits);
    return factory.OpenMedia(std::get<MediaFile>(media.target).path, interrupted, limits, choice);
}

std::vector<MediaPool::Source> MediaPool::sources() const {
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<Source> all;
    std::copy_if(opened.begin(), opened.end(), std::back_inserter(all),
                 [](const Source& one) { return one != nullptr; });
    return all;
}

void MediaPool::note(const std::string& what) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (noted.insert(what).second)
        notes.push_back({{}, what});
}

std::vector<Kestra::Proc::SourceNote> MediaPool::takeNotes() {
    std::vector<Kestra::Proc::SourceNote> taken;
    for (const Source& source : sources())
        for (Kestra::Proc::SourceNote& one : source->TakeNotes())
            taken.push_back(std::move(one));
    const std::lock_guard<std::mutex> lock(mutex);
    taken.insert(taken.end(), std::make_move_iterator(notes.begin()), std::make_move_iterator(notes.end()));
    notes.clear();
    return taken;
}

} // namespace Render
