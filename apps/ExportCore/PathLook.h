// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PathLook: what stands at a path, without opening it.
#pragma once

#include "Timeline/MediaReference.h"
#include <QByteArray>
#include <optional>
#include <sys/stat.h>

/// Links are followed. Each may take as long as the disk does; errno tells of the last one why it failed.
namespace ExportCore::PathLook {

std::optional<struct stat> stateOf(const QByteArray& path);
bool isSame(const QByteArray& path, const struct stat& other);
/// Whether such a file is the medium, or one of the pictures that it consists of.
bool isOf(const Timeline::MediaTarget& medium, const struct stat& file);
/// As the process is effectively; `mode` as of access().
bool allows(const QByteArray& path, int mode);
/// In words; null for a regular file.
const char* kindOf(mode_t mode);
/// By the path alone.
QByteArray folderOf(const QByteArray& path);
/// The path with every link resolved; empty when it leads nowhere.
QByteArray resolved(const QByteArray& path);

} // namespace ExportCore::PathLook
