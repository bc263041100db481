// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/StatisticsManifest.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/StatisticsFile.h"
#include <cerrno>
#include <cstdio>
#include <optional>
#include <sstream>

extern "C" {
#include <libavutil/crc.h>
}

namespace Kestra::FF::StatisticsManifest {

using Proc::TranscodingError;

namespace {

/// The log itself, x264's and x265's trees of references.
constexpr const char* SUFFIXES[] = {"", ".mbtree", ".cutree"};

struct Content {
    std::uint64_t size = 0;
    std::uint32_t checksum = 0;
};

std::string ManifestPath(const std::string& logPath) {
    return logPath + ".manifest";
}

Content Read(StatisticsFile& file) {
    Content content;
    file.ReadAll([&content](const char* bytes, std::size_t size) {
        content.checksum = av_crc(av_crc_get_table(AV_CRC_32_IEEE), content.checksum,
                                  reinterpret_cast<const std::uint8_t*>(bytes), size);
        content.size += size;
    });
    return content;
}

std::string Line(const Content& content, const char* suffix) {
    return std::to_string(content.size) + ' ' + std::to_string(content.checksum) + " *" + suffix;
}

[[noreturn]] void FailAsDamaged(const std::string& path, SourcePlace place = SourcePlace::Here()) {
    Fail(TranscodingError::SourceDamaged, "The statistics of the first pass \"" + path + "\" are damaged", place);
}

void VerifyLine(const std::string& logPath, const std::string& line) {
    const std::size_t mark = line.find('*');
    if (mark == std::string::npos)
        FailAsDamaged(ManifestPath(logPath));
    const std::string suffix = line.substr(mark + 1);
    StatisticsFile file(logPath + suffix, StatisticsFile::Mode::Read);
    if (Line(Read(file), suffix.c_str()) != line)
        FailAsDamaged(logPath + suffix);
}

} // namespace

void Remove(const std::string& logPath) {
    const std::string path = ManifestPath(logPath);
    if (std::remove(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR)
        Proc::FailAsSystem(errno, TranscodingError::OutputNotWritable, "\"" + path + "\" cannot be removed");
}

void Write(const std::string& logPath, std::int64_t frames) {
    std::string lines = "pictures " + std::to_string(frames) + '\n';
    for (const char* suffix : SUFFIXES) {
        const std::string path = logPath + suffix;
        if (*suffix && !StatisticsFile::Exists(path))
            continue;
        StatisticsFile file(path, StatisticsFile::Mode::Read);
        lines += Line(Read(file), suffix) + '\n';
    }
    StatisticsFile manifest(ManifestPath(logPath), StatisticsFile::Mode::Write);
    manifest.Write(lines);
    manifest.Close();
}

std::int64_t Verify(const std::string& logPath) {
    // First, so that a log that is not there is what the failure names.
    StatisticsFile log(logPath, StatisticsFile::Mode::Read);
    StatisticsFile manifest(ManifestPath(logPath), StatisticsFile::Mode::Read);
    std::string text;
    manifest.ReadAll([&text](const char* bytes, std::size_t size) { text.append(bytes, size); });
    std::istringstream lines(text);
    std::string word;
    std::int64_t frames = -1;
    if (!(lines >> word >> frames >> std::ws) || word != "pictures" || frames < 0)
        FailAsDamaged(ManifestPath(logPath));
    int files = 0;
    for (std::string line; std::getline(lines, line); ++files)
        VerifyLine(logPath, line);
    if (files == 0 || text.back() != '\n')
        FailAsDamaged(ManifestPath(logPath));
    return frames;
}

} // namespace Kestra::FF::StatisticsManifest
