// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/MediaAhead.h"

#include <algorithm>
#include <chrono>
#include <exception>

namespace Render {

MediaAhead::MediaAhead(MediaPool& pool, std::vector<const Timeline::MediaReference*> media,
                       const std::atomic<bool>* interrupted)
    : pool(pool)
    , awaited(std::move(media))
    , interrupted(interrupted) {
    const auto isKnown = [&pool](const Timeline::MediaReference* one) { return !pool.isNew(*one); };
    awaited.erase(std::remove_if(awaited.begin(), awaited.end(), isKnown), awaited.end());
    const std::size_t wanted = std::min(HELPERS, std::max<std::size_t>(awaited.size(), 1) - 1);
    try {
        std::for_each(helpers.begin(), helpers.begin() + static_cast<std::ptrdiff_t>(wanted),
                      [this](Kestra::LeavableThread& helper) { helper.Start("open-medium", [this] { work(); }); });
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
    }
    work();
}

MediaAhead::~MediaAhead() {
    for (Kestra::LeavableThread& helper : helpers)
        helper.JoinOrLeave(std::chrono::steady_clock::time_point::max());
}

void MediaAhead::work() noexcept {
    for (std::size_t index = next++; index < awaited.size() && !(interrupted && *interrupted); index = next++)
        openNext(index);
}

void MediaAhead::openNext(std::size_t index) {
    try {
        pool.open(*awaited[index], interrupted);
    } catch (const std::exception&) { // as the next one to ask for it will be told
    }
}

} // namespace Render
