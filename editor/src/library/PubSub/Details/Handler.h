// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace PubSub::Details {

/// Receives messages of type M, inside the publisher's call.
template <class M>
class Handler {
public:
    virtual void notify(const M& message) = 0;

protected:
    ~Handler() = default;
};

} // namespace PubSub::Details
