// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::IRefCountable: the counted base of every engine object.
#pragma once

#include "KestraExport.h"
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstdint>

namespace Kestra {

/// Held through boost::intrusive_ptr; the last release destroys the object. The count is thread-safe, the object need
/// not be.
class KESTRA_EXPORT IRefCountable {
public:
    IRefCountable() = default;
    IRefCountable(const IRefCountable&) = delete;
    IRefCountable& operator=(const IRefCountable&) = delete;
    virtual ~IRefCountable();

    virtual void AddRef() const noexcept = 0;
    /// The count at the moment of the call; for tests and diagnostics.
    virtual std::int64_t GetRefCount() const noexcept = 0;
    virtual void Release() const noexcept = 0;
};

inline void intrusive_ptr_add_ref(const IRefCountable* object) noexcept {
    object->AddRef();
}
inline void intrusive_ptr_release(const IRefCountable* object) noexcept {
    object->Release();
}

} // namespace Kestra
