#include "Kestra/FF/Container.h"

namespace Kestra::FF {

namespace {

constexpr Container CONTAINERS[] = {
    {"mp4", "mp4", true},    {"mov", "mov", true},       {"m4a", "ipod", true},      {"m4v", "mp4", true},
    {"webm", "webm", false}, {"mkv", "matroska", false}, {"mka", "matroska", false}, {"mp3", "mp3", false},
    {"flac", "flac", false}, {"wav", "wav", false},      {"ogg", "ogg", false},      {"opus", "opus", false},
};

} // namespace

const Container* FindContainer(const std::string& id) noexcept {
    for (const Container& container : CONTAINERS)
        if (id == container.id)
            return &container;
    return nullptr;
}

} // namespace Kestra::FF
