// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::Subtitles: one track of text that is shown with a programme.
#pragma once

#include "Kestra/Core/Property.h"
#include "KestraExport.h"
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::Conf {

/// A value. Text is UTF-8.
struct KESTRA_EXPORT Subtitles {
    /// From `start` to `end` in engine time.
    struct Cue {
        std::int64_t start = 0;
        std::int64_t end = 0;
        /// An event of Advanced SubStation Alpha as Matroska holds it: number, layer, style, name, three margins,
        /// effect and text, with commas between them. Whoever writes it numbers it anew.
        std::string event;

        /// What behind the commas is shown, with its line breaks and overrides.
        std::string Text() const;

        friend bool operator==(const Cue& a, const Cue& b) {
            return a.start == b.start && a.end == b.end && a.event == b.event;
        }
    };

    std::string language; ///< as its file tells it; empty where it does not
    std::string title;
    bool isDefault = false; ///< shown to those who choose nothing
    bool forced = false;    ///< shown also to those who want none
    bool styled = false;    ///< the styles are a part of the work, not merely how a reader makes up plain text
    std::string header;     ///< the script before its events: what it is, styles
    std::vector<Cue> cues;  ///< by their starts

    /// What is shown from `start` to `end`, whose time begins at 0.
    Subtitles Part(std::int64_t start, std::int64_t end) const;
    /// Whether some of the text has colours of its own, or a place of its own on the picture, by overrides among it.
    bool HasColours() const;
    bool HasPlaces() const;
    /// How many cues are shown at one time where it is most.
    int MostAtATime() const;
    /// At any time one cue at most: those that share time are one for as long as they do. Of more than so many at a
    /// time the first ones count.
    static constexpr int MOST_TOGETHER = 12;
    Subtitles OneAtATime() const;

    /// As children of a node, and out of them.
    void TellIn(Core::Property& node) const;
    static Subtitles Of(const Core::Property& node);

    friend bool operator==(const Subtitles& a, const Subtitles& b) {
        return a.language == b.language && a.title == b.title && a.isDefault == b.isDefault && a.forced == b.forced &&
               a.styled == b.styled && a.header == b.header && a.cues == b.cues;
    }
};

} // namespace Kestra::Conf
