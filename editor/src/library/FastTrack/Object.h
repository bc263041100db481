// SPDX-License-Identifier: GPL-3.0-or-later
// FastTrack::Object: the editor's fast track, which prepares the composition for smooth playback.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include "Types/AddressSet.h"
#include <QString>
#include <cstdint>

namespace FastTrack {

class Suppressor;

/// A value. Suppressors are borrowed and only known by address.
class EDITORMODEL_EXPORT Object : public virtual PubSub::Object {
public:
    /// Holds the fast track back until the same suppressor is taken out; repeated calls change nothing.
    Object& suppress(const Suppressor* suppressor);
    Object& unsuppress(const Suppressor* suppressor);
    bool isSuppressed() const { return !suppressors.empty(); }
    bool isSuppressedBy(const Suppressor* suppressor) const;

    /// At work: switched on and held back by nobody.
    bool active() const { return switchedOn && !isSuppressed(); }
    Object& setActive(bool on);
    /// Keeps what is prepared, prepares nothing new.
    bool freezed() const { return frozen; }
    Object& setFreezed(bool on);

    std::int32_t progress = 0; ///< prepared part, in percent
    bool enabled = false;      ///< the user allows it
    QString cacheFolder;
    bool complete = false; ///< everything is prepared

private:
    Types::AddressSet<Suppressor> suppressors;
    bool switchedOn = false;
    bool frozen = false;
};

} // namespace FastTrack
