// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::IFormatFile: the description of a container.
#pragma once

#include "Kestra/Base/IRefCountable.h"
#include "Kestra/Core/Property.h"

namespace Kestra::Conf {

class KESTRA_EXPORT IFormatFile : public virtual IRefCountable {
public:
    static const char* const TAG_CONTAINER_ID; ///< string: "mp4", "mov", "webm", "mkv", "m4a", "mp3", "flac", "wav"
    /// A child tree of options that are handed to the muxer by name; one that it does not know is an error.
    static const char* const TAG_MUXER_OPTIONS;

    static boost::intrusive_ptr<IFormatFile> Create();
    ~IFormatFile() override;
    virtual const Core::Property& GetProperty() const = 0;
    virtual void SetProperty(const Core::Property& tree) = 0;
    /// Empty when not set.
    std::string GetContainerID() const;
};

} // namespace Kestra::Conf
