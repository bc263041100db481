#include "Kestra/FF/Av/Container.h"

namespace Kestra::FF {

namespace {

constexpr Container CONTAINERS[] = {
    {"mp4", "mp4", true, false},      {"mov", "mov", true, false},   {"m4a", "ipod", true, false},
    {"m4v", "mp4", true, false},      {"webm", "webm", false, true}, {"mkv", "matroska", false, true},
    {"mka", "matroska", false, true}, {"mp3", "mp3", false, false},  {"flac", "flac", false, false},
    {"wav", "wav", false, false},     {"ogg", "ogg", false, false},  {"opus", "opus", false, false},
};

} // namespace

const Container* FindContainer(const std::string& id) noexcept {
    for (const Container& container : CONTAINERS)
        if (id == container.id)
            return &container;
    return nullptr;
}

} // namespace Kestra::FF
