#pragma once

#include "EditorModelExport.h"

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

} // namespace Message::Details
