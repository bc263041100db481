// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/RefCountImpl.h"

namespace Kestra {

void RefCountImpl::AddRef() const noexcept {
    count.fetch_add(1, std::memory_order_relaxed);
}

std::int64_t RefCountImpl::GetRefCount() const noexcept {
    return count.load(std::memory_order_relaxed);
}

void RefCountImpl::Release() const noexcept {
    // Release what this thread wrote, acquire what the other owners wrote: the destructor sees all of it.
    if (count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

} // namespace Kestra
