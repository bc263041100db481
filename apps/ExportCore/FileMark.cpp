// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FileMark.h"

#include "ExportCore/PathLook.h"

namespace ExportCore {

std::vector<FileMark> FileMark::of(const QStringList& paths) {
    constexpr qint64 NANOSECONDS = 1'000'000'000;
    std::vector<FileMark> marks;
    for (const QString& path : paths) {
        const auto state = PathLook::stateOf(path.toUtf8());
        marks.push_back(state ? FileMark{state->st_dev, state->st_ino, state->st_size,
                                         state->st_mtim.tv_sec * NANOSECONDS + state->st_mtim.tv_nsec}
                              : FileMark());
    }
    return marks;
}

} // namespace ExportCore
