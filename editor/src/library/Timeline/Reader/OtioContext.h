// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::OtioContext: what has been found so far, and where the reading stands.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"
#include "Timeline/Reader/OtioNode.h"
#include <string>
#include <vector>

namespace Timeline {

/// Used by one reading.
class OtioContext {
public:
    /// More are counted, not told one by one.
    static constexpr std::size_t MOST_FINDINGS = 1000;
    /// How deep stacks and tracks may stand in each other.
    static constexpr std::size_t DEEPEST = 64;

    /// Names a part of the timeline while it lives.
    class Within {
    public:
        Within(OtioContext& context, const char* kind, const std::string& name);
        ~Within();
        Within(const Within&) = delete;
        Within& operator=(const Within&) = delete;

    private:
        OtioContext& context;
    };

    /// While it lives, media that are missing are worth a warning only: nobody sees or hears what is switched off.
    class Unseen {
    public:
        Unseen(OtioContext& context, bool enabled);
        ~Unseen();
        Unseen(const Unseen&) = delete;
        Unseen& operator=(const Unseen&) = delete;

    private:
        OtioContext& context;
        const bool before;
    };

    /// While it lives, errors are warnings that end in `consequence`: what is wrong stands in nobody's way.
    class Spared {
    public:
        Spared(OtioContext& context, const char* consequence)
            : context(context) {
            context.consequence = consequence;
        }
        ~Spared() { context.consequence = nullptr; }
        Spared(const Spared&) = delete;
        Spared& operator=(const Spared&) = delete;

    private:
        OtioContext& context;
    };

    explicit OtioContext(const ReadingOptions& options)
        : options(options) {}

    void tell(Finding::Kind kind, const OtioNode& node, const std::string& text);
    void error(const OtioNode& node, const std::string& text) { tell(Finding::Kind::Error, node, text); }
    void warn(const OtioNode& node, const std::string& text) { tell(Finding::Kind::Warning, node, text); }
    /// What becomes a title: up to a NUL, which ends one in every file; a warning tells that.
    std::string nameOf(const OtioNode& node);
    bool isTooDeep() const { return path.size() > DEEPEST; }

    /// What was told, with a last one for those that were only counted.
    std::vector<Finding> take();

    const ReadingOptions& options;

private:
    std::vector<std::string> path;
    bool isUnseen = false;
    const char* consequence = nullptr; ///< of errors that are warnings; null where errors are errors
    std::vector<Finding> findings;
    std::size_t untold = 0;
    bool untoldErrors = false;
};

} // namespace Timeline
