// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PictureSwap: new pictures take the place of old ones in a folder.
#pragma once

#include "Kestra/Conf/NumberedName.h"
#include <atomic>
#include <string>
#include <vector>

namespace ExportCore {

/// The new ones stand in a private folder inside of the folder. Every old one is moved into a folder in there; the
/// renaming of that one says that all have gone; then the new ones come out. So whoever finds a swap that was broken
/// off can tell how far it was: before the renaming it is undone, after it completed, and none of the pictures is lost.
/// Bound to one thread at a time, but for `forbidden`; the folders are borrowed descriptors.
class PictureSwap {
public:
    /// `forbidden` is borrowed and may be set while it runs.
    PictureSwap(int folder, int own, Kestra::Conf::NumberedName name, const std::atomic<bool>& forbidden);

    /// 0 when all new ones stand in the folder, or the system's error: then the folder is as it was. EEXIST where one
    /// of the names is taken and must not be replaced, or by what is no file; and where one is taken meanwhile.
    /// ECANCELED where it was forbidden before the last old one had gone; what is forbidden later is completed.
    int run(bool replace);
    /// After a failure: whether not even the way back was possible, so that old pictures are still in the private
    /// folder.
    bool isStuck() const { return stuck; }

    /// Brings what a dead run began to an end, one way or the other. What is in doubt stays. Whether nothing but
    /// pictures that nobody needs is left in the private folder.
    static bool settle(int folder, int own) noexcept;

private:
    int takeOut(const std::vector<std::string>& old);
    int bringIn(const std::vector<std::string>& made);
    int takeOverAccess(const char* old) const;

    const int folder;
    const int own;
    const Kestra::Conf::NumberedName name;
    const std::atomic<bool>& forbidden;
    bool stuck = false;
};

} // namespace ExportCore
