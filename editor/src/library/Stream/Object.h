// SPDX-License-Identifier: GPL-3.0-or-later
// Stream::Object: the model's export stream of one medium.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include "Types/Range.h"
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstdint>

namespace Stream {

/// Ties a media description M to the engine stream I that renders it. A value: a copy is one more holder of the engine
/// stream.
template <class M, class I>
class EDITORMODEL_EXPORT Object : public virtual PubSub::Object {
public:
    /// Borrowed; outlives the stream.
    const M* source = nullptr;
    /// The consumer has taken the stream.
    bool using_ = false;
    boost::intrusive_ptr<I> impl;
    /// The stream can deliver data.
    bool available = false;
    /// Counts the versions of what the stream shows.
    std::uint64_t version = 0;
    /// The composition's time that the stream covers.
    Types::Range range;
};

} // namespace Stream
