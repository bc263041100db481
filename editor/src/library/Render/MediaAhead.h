// SPDX-License-Identifier: GPL-3.0-or-later
// Render::MediaAhead: the media of a timeline, opened several at a time.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Base/LeavableThread.h"
#include "Render/MediaPool.h"
#include <array>
#include <atomic>
#include <vector>

namespace Render {

/// Asks a pool for the media that nobody has asked it for yet, so that whoever does then finds them opened. What cannot
/// be opened is passed over, and tells why when it is asked for. Bound to its thread.
class EDITORRENDER_EXPORT MediaAhead {
public:
    /// Borrows all for life; `interrupted`, unless null, ends it early when it turns true. Opens media itself until
    /// none is left that no thread has begun. Then one may still be under way on each of the others: who asks for such
    /// a one opens it, too, so that the thread which made this never waits idly.
    MediaAhead(MediaPool& pool, std::vector<const Timeline::MediaReference*> media,
               const std::atomic<bool>* interrupted);
    /// Waits for the other threads, however long.
    ~MediaAhead();
    MediaAhead(const MediaAhead&) = delete;
    MediaAhead& operator=(const MediaAhead&) = delete;

private:
    /// More bring little where a processor is what is waited for, and each takes the memory of some pictures.
    static constexpr std::size_t HELPERS = 3;

    void work() noexcept;
    void openNext(std::size_t index);

    MediaPool& pool;
    std::vector<const Timeline::MediaReference*> awaited;
    const std::atomic<bool>* const interrupted;
    std::atomic<std::size_t> next{0};
    std::array<Kestra::LeavableThread, HELPERS> helpers;
};

} // namespace Render
