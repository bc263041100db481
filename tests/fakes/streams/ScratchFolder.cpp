// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/ScratchFolder.h"

extern "C" {
#include <libavutil/log.h>
}
#include <cstdlib>
#include <stdexcept>

namespace Fakes {

ScratchFolder::ScratchFolder() {
    av_log_set_level(AV_LOG_FATAL);
    std::string name = (std::filesystem::temp_directory_path() / "editorexport-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("no folder for the test's files");
    folder = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace Fakes
