// SPDX-License-Identifier: GPL-3.0-or-later
// Message::View::SetterChain: one change to one model object, made when the chain is destroyed.
#pragma once

#include "Message/View.h"
#include <type_traits>

namespace Message {

/// chain->field = ... writes into the target: the caller's own object in an add chain, a working copy in a change
/// chain. The chain must not outlive its view. What a hook throws during the commit ends the process.
template <class T>
class View<T>::SetterChain {
public:
    SetterChain(View* committer, T* added, bool asOwner)
        : view(committer)
        , own(asOwner)
        , target(added) {}
    SetterChain(View* committer, const T* changed)
        : view(committer)
        , source(changed)
        , target(&value)
        , value(changed ? *changed : T()) {}
    /// The other chain has no effect any more.
    SetterChain(SetterChain&& other) noexcept(std::is_nothrow_move_constructible_v<T>);
    SetterChain(const SetterChain&) = delete;
    SetterChain& operator=(const SetterChain&) = delete;
    ~SetterChain();

    T* operator->() const { return target; }
    T& operator*() const { return *target; }

    View* view;
    bool commit = true; ///< false: the chain has no effect
    bool own = false;
    const T* source = nullptr; ///< null in an add chain
    T* target;
    T value{};
};

template <class T>
View<T>::SetterChain::SetterChain(SetterChain&& other) noexcept(std::is_nothrow_move_constructible_v<T>)
    : view(other.view)
    , commit(other.commit)
    , own(other.own)
    , source(other.source)
    , target(other.target == &other.value ? &value : other.target)
    , value(std::move(other.value)) {
    other.commit = false;
}

template <class T>
View<T>::SetterChain::~SetterChain() {
    if (!commit)
        return;
    if (source)
        view->doChange(source, target);
    else
        view->doAdd(target, own);
}

} // namespace Message
