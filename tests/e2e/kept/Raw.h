// SPDX-License-Identifier: GPL-3.0-or-later
// What libav's own decoders find in a file: the tests' own measure of what was kept.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <string>

namespace TestKept {

/// The checksum of each picture's bytes in `pixelFormat`. Throws std::runtime_error when the file cannot be decoded.
QStringList pictures(const std::string& path, const std::string& pixelFormat);
/// The bytes of all pictures, converted where `pixelFormat` is not the file's own. Throws as pictures().
QByteArray bytes(const std::string& path, const std::string& pixelFormat);
/// Rate, channels and the checksum of all samples, each as the number that it stands for, of how many bits ever. Throws
/// as pictures().
QString sound(const std::string& path);
/// What ffprobe tells of the first stream of that kind ("v", "a"), entries joined by commas, in ffprobe's order.
QString told(const std::string& path, const std::string& kind, const std::string& entries);

} // namespace TestKept
