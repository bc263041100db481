#include "Timeline/Reader/PrivateFolder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace Timeline {

namespace fs = std::filesystem;

PrivateFolder::PrivateFolder()
    : folder((fs::absolute(fs::temp_directory_path()) / "editor-export-timeline-XXXXXX").string()) {
    if (!::mkdtemp(folder.data()))
        throw std::system_error(errno, std::generic_category(), folder);
}

PrivateFolder::~PrivateFolder() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

} // namespace Timeline
