#include "Kestra/FF/Encode/TwoPassSeal.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/StatisticsFile.h"
#include <cerrno>
#include <cstdio>
#include <optional>
#include <sstream>

extern "C" {
#include <libavutil/crc.h>
}

namespace Kestra::FF::TwoPassSeal {

using Proc::TranscodingError;

namespace {

/// The log itself, x264's and x265's trees of references.
constexpr const char* SUFFIXES[] = {"", ".mbtree", ".cutree"};

struct Content {
    std::uint64_t size = 0;
    std::uint32_t checksum = 0;
};

std::string SealPath(const std::string& logPath) {
    return logPath + ".seal";
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
        FailAsDamaged(SealPath(logPath));
    const std::string suffix = line.substr(mark + 1);
    StatisticsFile file(logPath + suffix, StatisticsFile::Mode::Read);
    if (Line(Read(file), suffix.c_str()) != line)
        FailAsDamaged(logPath + suffix);
}

} // namespace

void Break(const std::string& logPath) {
    const std::string path = SealPath(logPath);
    if (std::remove(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR)
        Proc::FailAsSystem(errno, TranscodingError::OutputNotWritable, "\"" + path + "\" cannot be removed");
}

void Set(const std::string& logPath, std::int64_t pictures) {
    std::string lines = "pictures " + std::to_string(pictures) + '\n';
    for (const char* suffix : SUFFIXES) {
        const std::string path = logPath + suffix;
        if (*suffix && !StatisticsFile::Exists(path))
            continue;
        StatisticsFile file(path, StatisticsFile::Mode::Read);
        lines += Line(Read(file), suffix) + '\n';
    }
    StatisticsFile seal(SealPath(logPath), StatisticsFile::Mode::Write);
    seal.Write(lines);
    seal.Close();
}

std::int64_t Verify(const std::string& logPath) {
    // First, so that a log that is not there is what the failure names.
    StatisticsFile log(logPath, StatisticsFile::Mode::Read);
    StatisticsFile seal(SealPath(logPath), StatisticsFile::Mode::Read);
    std::string text;
    seal.ReadAll([&text](const char* bytes, std::size_t size) { text.append(bytes, size); });
    std::istringstream lines(text);
    std::string word;
    std::int64_t pictures = -1;
    if (!(lines >> word >> pictures >> std::ws) || word != "pictures" || pictures < 0)
        FailAsDamaged(SealPath(logPath));
    int files = 0;
    for (std::string line; std::getline(lines, line); ++files)
        VerifyLine(logPath, line);
    if (files == 0 || text.back() != '\n')
        FailAsDamaged(SealPath(logPath));
    return pictures;
}

} // namespace Kestra::FF::TwoPassSeal
