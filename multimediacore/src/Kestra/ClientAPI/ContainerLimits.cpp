#include "Kestra/ClientAPI/ContainerLimits.h"

#include "Kestra/Conf/Container.h"
#include <algorithm>
#include <iterator>

namespace Kestra::ClientAPI {

namespace {

using Conf::CodecID;
using Conf::Container;

/// Of files that are none of the containers above.
constexpr const char* FOREIGN_EXTENSIONS[] = {
    "264",  "265",  "3g2", "3gp", "aac",  "ac3",  "aif", "aiff", "amr",  "ape",  "asf",  "au",   "avi",
    "avif", "bmp",  "caf", "dv",  "dts",  "eac3", "f4v", "flv",  "gif",  "h264", "h265", "hevc", "heic",
    "ivf",  "jpeg", "jpg", "m1v", "m2ts", "m2v",  "m3u", "m3u8", "mk3d", "mp1",  "mp2",  "mpa",  "mpe",
    "mpeg", "mpg",  "mpd", "mts", "mxf",  "nut",  "ogv", "opus", "png",  "rm",   "rmvb", "svg",  "tif",
    "tiff", "ts",   "tta", "vob", "w64",  "wma",  "wmv", "webp", "wv",   "y4m",
};

bool Has(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

bool ContainerLimits::IsContainer(const std::string& container) {
    return Container::Find(container) != nullptr;
}

bool ContainerLimits::Holds(const std::string& container, CodecID codec) {
    const Container* const found = Container::Find(container);
    return found != nullptr && std::find(found->codecs.begin(), found->codecs.end(), codec) != found->codecs.end();
}

bool ContainerLimits::Holds(const std::string& container, ProgrammeField field) {
    const Container* const found = Container::Find(container);
    if (found == nullptr)
        return false;
    switch (field) {
    case ProgrammeField::Title:
    case ProgrammeField::Tags:
        return true;
    case ProgrammeField::TimeCode:
        return found->timecode;
    case ProgrammeField::Chapters:
        return found->chapters;
    }
    return false;
}

bool ContainerLimits::HoldsTag(const std::string& container, const std::string& key) {
    const Container* const found = Container::Find(container);
    return found != nullptr && !key.empty() && (found->tags.empty() || Has(found->tags, key));
}

std::vector<std::string> ContainerLimits::Extensions(const std::string& container, bool withPictures) {
    const Container* const found = Container::Find(container);
    if (found == nullptr)
        return {};
    std::vector<std::string> names = found->extensions;
    if (!withPictures)
        names.insert(names.end(), found->extensionsOfSound.begin(), found->extensionsOfSound.end());
    return names;
}

bool ContainerLimits::IsKnownExtension(const std::string& extension) {
    const bool own =
        std::any_of(Container::All().begin(), Container::All().end(), [&extension](const Container& container) {
            return Has(container.extensions, extension) || Has(container.extensionsOfSound, extension);
        });
    return own || std::any_of(std::begin(FOREIGN_EXTENSIONS), std::end(FOREIGN_EXTENSIONS),
                              [&extension](const char* foreign) { return extension == foreign; });
}

} // namespace Kestra::ClientAPI
