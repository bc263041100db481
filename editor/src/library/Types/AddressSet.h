// SPDX-License-Identifier: GPL-3.0-or-later
// Small ordered sets of borrowed objects, kept by address.
#pragma once

#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <functional>

namespace Types {

/// The few that there usually are need no memory of their own: what holds such a set can be copied where there is none,
/// and so be taken back by a destructor.
template <class T>
using AddressSet = boost::container::small_vector<const T*, 4>;

template <class T>
bool contains(const AddressSet<T>& set, const T* item) {
    return std::binary_search(set.begin(), set.end(), item, std::less<const T*>());
}

/// Null and what is in the set already are left out.
template <class T>
void insert(AddressSet<T>& set, const T* item) {
    const auto place = std::lower_bound(set.begin(), set.end(), item, std::less<const T*>());
    if (item && (place == set.end() || *place != item))
        set.insert(place, item);
}

template <class T>
void erase(AddressSet<T>& set, const T* item) {
    const auto place = std::lower_bound(set.begin(), set.end(), item, std::less<const T*>());
    if (place != set.end() && *place == item)
        set.erase(place);
}

} // namespace Types
