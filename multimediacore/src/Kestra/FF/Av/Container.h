// Kestra::FF::Container: what the engine's containers are to the muxer library.
#pragma once

#include <string>

namespace Kestra::FF {

struct Container {
    const char* id;
    const char* muxer;
    bool isMov;      ///< of the MP4 and QuickTime family
    bool isMatroska; ///< of the Matroska and WebM family
};

/// Null for an id that is none.
const Container* FindContainer(const std::string& id) noexcept;

} // namespace Kestra::FF
