// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioZipReader.h"

#include "Timeline/DocumentEdit.h"
#include "Timeline/Reader/OtioReader.h"
#include "Timeline/Reader/ZipMedia.h"
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace Timeline {

namespace {

namespace fs = std::filesystem;

Reading refusal(const std::string& text) {
    return {nullptr, {{Finding::Kind::Error, {}, {}, text}}};
}

/// The first number of its version where that is not the one that is known.
std::string foreignVersion(ZipMedia& media) {
    const auto path = media.fileOf(ZipMedia::VERSION);
    if (!path)
        return {};
    std::ifstream file(*path);
    std::string version;
    std::getline(file, version);
    version.resize(std::min(version.find_first_of(". \t\r"), version.size()));
    return version == "1" ? std::string() : version.substr(0, 20);
}

/// The lengths of media are asked for while the timeline is read: then their bytes have to be there.
ReadingOptions withMedia(const ReadingOptions& options, ZipMedia& media) {
    ReadingOptions own = options;
    if (options.lengthOf)
        own.lengthOf = [&](const MediaReference& reference, Track::Kind kind) {
            media.failsToUnpack(reference);
            return options.lengthOf(reference, kind);
        };
    return own;
}

void append(std::vector<Finding>& findings, std::vector<Finding> more) {
    std::move(more.begin(), more.end(), std::back_inserter(findings));
}

Reading readWith(ZipMedia& media, const ReadingOptions& options) {
    if (!media.has(ZipMedia::CONTENT)) {
        Reading reading = refusal("there is no content.otio in it");
        append(reading.findings, media.takeFindings());
        return reading;
    }
    if (const std::string version = foreignVersion(media); !version.empty() && !options.lenient)
        return refusal("it is an archive of version " + version + ", and version 1 is known");
    const auto content = media.fileOf(ZipMedia::CONTENT);
    if (!content)
        return {nullptr, media.takeFindings()};
    Reading reading = OtioReader().read(Kestra::ioPath(*content), withMedia(options, media));
    if (reading.document) {
        // What cannot be unpacked is told as an entry of the archive, and not as a medium once more.
        auto kept = std::make_shared<Document>(*withMissing(*reading.document, [&media](const MediaReference& one) {
            return media.failsToUnpack(one) ? "cannot be unpacked" : std::string();
        }));
        media.removeRest();
        kept->resources = media.folder();
        reading.document = std::move(kept);
    }
    append(reading.findings, media.takeFindings());
    return reading;
}

} // namespace

bool OtioZipReader::reads(const Kestra::ioPath& file) const {
    std::string extension = fs::path(file.ToUtf8()).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return extension == ".otioz";
}

Reading OtioZipReader::read(const Kestra::ioPath& file, const ReadingOptions& options) const {
    ZipArchive archive;
    if (const std::string trouble = archive.open(file.ToUtf8()); !trouble.empty())
        return refusal(trouble);
    try {
        ZipMedia media(archive, options.interrupted);
        return readWith(media, options);
    } catch (const std::system_error& error) {
        return refusal("there is no folder to unpack it to: " + error.code().message());
    }
}

} // namespace Timeline
