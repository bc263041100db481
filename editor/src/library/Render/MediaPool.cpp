#include "Render/MediaPool.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"

namespace Render {

using Timeline::ImageSequence;
using Timeline::MediaFile;

namespace {

/// The same for references to the same medium; empty where there is none to be opened.
std::string keyOf(const Timeline::MediaReference& media) {
    if (const auto* file = std::get_if<MediaFile>(&media.target))
        return file->path.ToUtf8();
    return {};
}

} // namespace

MediaPool::MediaPool(const Kestra::Proc::MediaLimits& limits)
    : limits(limits) {}

MediaPool::Source MediaPool::open(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted) {
    const std::string key = keyOf(media);
    if (key.empty())
        return nullptr;
    const std::lock_guard<std::mutex> lock(mutex);
    Source& source = opened[key];
    if (!source) {
        source = make(media, interrupted);
        order.push_back(source);
    }
    return source;
}

MediaPool::Source MediaPool::make(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted) const {
    auto& factory = Kestra::Core::CoreManager::Instance().GetSourceFactory();
    return factory.OpenMedia(std::get<MediaFile>(media.target).path, interrupted, limits);
}

std::vector<MediaPool::Source> MediaPool::sources() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return order;
}

} // namespace Render
