// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/StatisticsFile.h"

#include "Kestra/Proc/Failure.h"
#include <array>
#include <cerrno>
#include <sys/stat.h>

namespace Kestra::FF {

using Proc::TranscodingError;

StatisticsFile::StatisticsFile(const std::string& path, Mode mode)
    : path(path)
    , mode(mode)
    , file(std::fopen(path.c_str(), mode == Mode::Read    ? "rbe"
                                    : mode == Mode::Write ? "wbe"
                                                          : "abe")) {
    if (!file)
        Throw("cannot be opened");
}

bool StatisticsFile::Exists(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0;
}

void StatisticsFile::Throw(const char* what, SourcePlace place) const {
    Proc::FailAsSystem(errno,
                       mode == Mode::Read ? TranscodingError::SourceUnreadable : TranscodingError::OutputNotWritable,
                       "The log of the first pass \"" + path + "\" " + what, place);
}

void StatisticsFile::Write(const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size())
        Throw("cannot be written");
}

void StatisticsFile::ReadAll(const std::function<void(const char* bytes, std::size_t size)>& take) {
    std::array<char, 65536> part;
    std::size_t size = 0;
    while ((size = std::fread(part.data(), 1, part.size(), file.get())) > 0)
        take(part.data(), size);
    if (std::ferror(file.get()))
        Throw("cannot be read");
}

void StatisticsFile::Close() {
    if (file && std::fclose(file.release()) != 0)
        Throw("cannot be completed");
}

} // namespace Kestra::FF
