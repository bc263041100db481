// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::RefCountImpl: the reference count that engine objects inherit beside their interfaces.
#pragma once

#include "Kestra/Base/IRefCountable.h"
#include <atomic>

namespace Kestra {

/// Starts at zero: the first intrusive_ptr takes the first reference.
class KESTRA_EXPORT RefCountImpl : public virtual IRefCountable {
public:
    void AddRef() const noexcept override;
    std::int64_t GetRefCount() const noexcept override;
    void Release() const noexcept override;

private:
    mutable std::atomic<std::int64_t> count{0};
};

} // namespace Kestra
