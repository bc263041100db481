#pragma once

namespace Message::Details {

/// Held by an object whose callbacks may destroy it; a Watch on the stack then tells.
class Lifeline {
public:
    class Watch {
    public:
        explicit Watch(Lifeline& line)
            : lifeline(&line)
            , outer(line.innermost) {
            line.innermost = this;
        }
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
