// SPDX-License-Identifier: GPL-3.0-or-later
// Render::LinkedStacks: stacks whose picture and sound stand on tracks of their own.
#pragma once

#include "Timeline/Document.h"
#include <unordered_set>

namespace Render {

/// A stack among pictures whose sound stands on a sound track beside it: another of its name that is placed within the
/// same stretch and has a piece of its sound, whether it is switched on or off. Editors that link both write them so;
/// what is heard is the sound track's business then. Found once; any thread. Points into the document.
class LinkedStacks {
public:
    explicit LinkedStacks(const Timeline::Document& document);

    bool isHeardElsewhere(const Timeline::Nested& amongPictures) const { return linked.count(&amongPictures) != 0; }

private:
    void find(const Timeline::Stack& stack);
    void find(const Timeline::Track& pictures, const Timeline::Track& sound);

    std::unordered_set<const Timeline::Nested*> linked;
    std::unordered_set<const Timeline::Stack*> looked;
};

} // namespace Render
