// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::OtioMedia: reads what clips refer to.
#pragma once

#include "Timeline/Reader/MediaLocator.h"
#include "Timeline/Reader/OtioContext.h"

namespace Timeline {

/// Used by one reading, whose context it borrows.
class OtioMedia {
public:
    OtioMedia(OtioContext& context, MediaLocator locator);

    /// The active reference of `clip`, a Clip of either version; a null where it has none.
    static OtioNode referenceOf(const OtioNode& clip);
    /// The media that it shows. What cannot be found is told.
    MediaReference read(const OtioNode& clip) const;

private:
    MediaTarget targetOf(const OtioNode& reference) const;
    MediaTarget file(const OtioNode& reference) const;
    MediaTarget sequence(const OtioNode& reference) const;
    MediaTarget generator(const OtioNode& reference) const;
    void readColour(const OtioNode& parameters, Generator& generator) const;
    MediaTarget missing(const OtioNode& node, const std::string& url, const std::string& why,
                        Finding::Kind kind = Finding::Kind::MissingMedia) const;

    OtioContext& context;
    MediaLocator locator;
};

} // namespace Timeline
