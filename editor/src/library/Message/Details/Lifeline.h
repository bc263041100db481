// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Details/ObjectWatch.h"

namespace Message::Details {

/// Held by an object whose callbacks may destroy it; a Watch on the stack then tells.
class Lifeline {
public:
    class Watch {
    public:
        EDITORMODEL_EXPORT explicit Watch(Lifeline& line);
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        ~Watch() {
            if (lifeline)
                lifeline->innermost = outer;
        }
        explicit operator bool() const { return lifeline != nullptr; }

    private:
        friend class Lifeline;
        Lifeline* lifeline;
        Watch* outer;
    };

    Lifeline() = default;
    Lifeline(const Lifeline&) = delete;
    Lifeline& operator=(const Lifeline&) = delete;
    ~Lifeline() {
        for (Watch* watch = innermost; watch; watch = watch->outer)
            watch->lifeline = nullptr;
    }

private:
    Watch* innermost = nullptr;
};

/// Tells of a view and of an object.
class Watch {
public:
    Watch(Lifeline& line, const PubSub::Object* object)
        : view(line)
        , object(object) {}

    bool seesView() const { return bool(view); }
    bool seesObject() const { return bool(object); }
    explicit operator bool() const { return seesView() && seesObject(); }

private:
    const Lifeline::Watch view;
    const PubSub::Details::ObjectWatch object;
};

} // namespace Message::Details
