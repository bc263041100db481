// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioReader.h"

#include "Timeline/Reader/OtioItems.h"
#include "Timeline/Reader/OtioNames.h"
#include "Timeline/Reader/OtioSchema.h"
#include "Timeline/Reader/OtioText.h"
#include "Timeline/Reader/OtioTime.h"
#include "Timeline/Reader/OtioZipReader.h"
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <set>

namespace Timeline {
namespace {

namespace fs = std::filesystem;

const char* const CONTENT = "content.otio"; ///< of a folder

std::string extensionOf(const Kestra::ioPath& file) {
    std::string path = file.ToUtf8();
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    std::string extension = fs::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return extension;
}

void collect(OtioContext& context, const OtioNode& node, std::vector<OtioNode>& found) {
    const OtioKind kind = kindOf(node);
    checkVersion(context, node);
    if (kind == OtioKind::Timeline)
        return found.push_back(node);
    const OtioContext::Within within(context, "collection", node.text("name"));
    const OtioNode children = kind == OtioKind::Collection ? node["children"] : node;
    if (kind != OtioKind::Collection || !children.isArray() || context.isTooDeep())
        return;
    for (std::size_t index = 0; index < children.size(); ++index)
        collect(context, children.at(index), found);
}

/// The names of timelines, for a sentence, and how to choose one where they do not tell them apart.
std::string listed(const std::vector<OtioNode>& timelines) {
    std::string names;
    std::set<std::string> different;
    for (const OtioNode& one : timelines) {
        names += (names.empty() ? "\"" : ", \"") + one.text("name") + '"';
        if (const std::string name = one.text("name"); !name.empty())
            different.insert(name);
    }
    return different.size() == timelines.size()
               ? names
               : names + "; a number from 1 to " + std::to_string(timelines.size()) + " chooses one as well";
}

/// Those of that name, counted from 1: "1, 3".
std::string numbersOf(const std::vector<OtioNode>& timelines, const std::string& name) {
    std::string numbers;
    for (std::size_t index = 0; index < timelines.size(); ++index)
        if (timelines[index].text("name") == name)
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(index + 1);
    return numbers;
}

/// Counted from 1 in the order of the file.
std::optional<OtioNode> byNumber(const std::vector<OtioNode>& timelines, const std::string& wanted) {
    std::size_t number = 0;
    const auto [end, failure] = std::from_chars(wanted.data(), wanted.data() + wanted.size(), number);
    const bool isOne = failure == std::errc() && end == wanted.data() + wanted.size() && number >= 1;
    return isOne && number <= timelines.size() ? std::optional(timelines[number - 1]) : std::nullopt;
}

std::optional<OtioNode> choose(OtioContext& context, const OtioNode& root) {
    std::vector<OtioNode> timelines;
    collect(context, root, timelines);
    const std::string& wanted = context.options.timeline;
    const auto isWanted = [&](const OtioNode& one) { return one.text("name") == wanted; };
    const auto named = std::find_if(timelines.begin(), timelines.end(), isWanted);
    const auto count = wanted.empty() ? 0 : std::count_if(timelines.begin(), timelines.end(), isWanted);
    if (count == 1)
        return *named;
    if (auto numbered = byNumber(timelines, wanted); count == 0 && numbered)
        return numbered;
    if (count > 1)
        context.error(*named, std::to_string(count) + " timelines in it are called \"" + wanted +
                                  "\"; their numbers choose one: " + numbersOf(timelines, wanted));
    else if (timelines.empty())
        context.error(root, "there is no timeline in it");
    else if (!wanted.empty())
        context.error(root, "there is no timeline \"" + wanted + "\" in it; there are " + listed(timelines));
    else if (timelines.size() > 1)
        context.error(root, "there are several timelines in it, and none was chosen: " + listed(timelines));
    else
        return timelines.front();
    return std::nullopt;
}

bool isItem(OtioKind kind) {
    return kind == OtioKind::Stack || kind == OtioKind::Track || kind == OtioKind::Clip;
}

/// Time codes have no days. They count frames, of whole rates: 30 of 29.97.
std::optional<Kestra::Ticks> readGlobalStart(OtioContext& context, const OtioNode& node) {
    constexpr double DAY = 24 * 60 * 60;
    const auto time = readTime(context, node);
    const double value = time ? node["value"].value().GetDouble() : 0;
    if (value < 0 || (time && value / std::ceil(node["rate"].value().GetDouble()) >= DAY))
        context.warn(node, "the global start time lies outside of 0 to 24 hours, and its time code wraps around");
    return time;
}

std::shared_ptr<const Document> readTimeline(OtioContext& context, const OtioNode& root, OtioItems& items) {
    auto document = std::make_shared<Document>();
    if (isItem(kindOf(root))) {
        document->name = context.nameOf(root);
        document->tracks = items.readRoot(root);
        return document;
    }
    const auto timeline = choose(context, root);
    if (!timeline)
        return nullptr;
    document->name = context.nameOf(*timeline);
    if (timeline->has("metadata"))
        document->metadata = jsonOf((*timeline)["metadata"].value());
    if (timeline->has("global_start_time"))
        document->globalStart = readGlobalStart(context, (*timeline)["global_start_time"]);
    const OtioNode tracks = (*timeline)["tracks"];
    if (!isItem(kindOf(tracks))) {
        context.error(tracks, "the timeline has no tracks");
        return nullptr;
    }
    document->tracks = items.readRoot(tracks);
    return document;
}

void readFrom(OtioContext& context, const std::string& path, Reading& reading) {
    const auto json = parseFile(context, path);
    if (!json)
        return;
    std::error_code error;
    const std::string folder = fs::absolute(path, error).parent_path().string();
    if (error)
        return context.error(OtioNode(*json), "the folder that it stands in cannot be told: " + error.message());
    const MediaLocator locator(folder, context.options.mediaRoot.ToUtf8());
    const OtioMedia media(context, locator);
    OtioItems items(context, media);
    reading.document = readTimeline(context, OtioNode(*json), items);
    reading.named = mediaNamedIn(OtioNode(*json), locator);
    if (!reading.document || reading.document->duration() > Kestra::Ticks(0))
        return;
    context.error(OtioNode(*json), "there is nothing on the timeline");
    reading.document = nullptr;
}

} // namespace

bool OtioReader::reads(const Kestra::ioPath& file) const {
    const std::string extension = extensionOf(file);
    return extension == ".otio" || extension == ".otiod" || OtioZipReader().reads(file);
}

Reading OtioReader::read(const Kestra::ioPath& file, const ReadingOptions& options) const {
    if (OtioZipReader().reads(file))
        return OtioZipReader().read(file, options);
    OtioContext context(options);
    std::string path = file.ToUtf8();
    std::error_code error;
    Reading reading;
    const bool isFolder = fs::is_directory(path, error);
    if (isFolder)
        path = (fs::path(path) / CONTENT).string();
    if (isFolder && !fs::exists(path, error))
        context.error(OtioNode(rapidjson::Value()), "there is no content.otio in it");
    else
        readFrom(context, path, reading);
    reading.findings = context.take();
    return reading;
}

} // namespace Timeline
