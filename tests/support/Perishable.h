// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstring>
#include <new>
#include <utility>

namespace TestSupport {

/// An object whose place is overwritten when it is destroyed: who calls one of its virtual functions afterwards, or
/// looks for its virtual base, crashes in every build.
template <class T>
class Perishable {
public:
    template <class... Arguments>
    explicit Perishable(Arguments&&... arguments)
        : object(new (place) T(std::forward<Arguments>(arguments)...)) {}
    Perishable(const Perishable&) = delete;
    Perishable& operator=(const Perishable&) = delete;
    ~Perishable() { perish(); }

    void perish() {
        if (T* const last = std::exchange(object, nullptr)) {
            last->~T();
            std::memset(place, 0xff, sizeof(place));
        }
    }

    T* get() const { return object; }
    T* operator->() const { return object; }

private:
    alignas(T) unsigned char place[sizeof(T)];
    T* object;
};

} // namespace TestSupport
