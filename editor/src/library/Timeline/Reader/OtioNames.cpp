// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioNames.h"

#include <optional>
#include <set>
#include <string>
#include <tuple>

namespace Timeline {
namespace {

using Wanted = MediaLocator::Wanted;

class Names {
public:
    explicit Names(const MediaLocator& locator)
        : locator(locator) {}

    // As deep as the parser lets values stand in each other.
    void look(const rapidjson::Value& value) {
        if (value.IsArray())
            for (const rapidjson::Value& one : value.GetArray())
                look(one);
        if (!value.IsObject())
            return;
        addThoseOf(OtioNode(value));
        for (const auto& member : value.GetObject())
            look(member.value);
    }
    std::vector<MediaTarget> take() { return std::move(found); }

private:
    void addThoseOf(const OtioNode& reference) {
        if (const std::string url = reference.text("target_url"); !url.empty())
            if (const auto path = newPlace({url, {}, {}}, Wanted::File))
                found.emplace_back(MediaFile{*path});
        if (!reference.has("target_url_base") && !reference.has("name_prefix"))
            return;
        const Name name{reference.text("target_url_base"), reference.text("name_prefix"),
                        reference.text("name_suffix")};
        if (const auto folder = newPlace(name, Wanted::Folder))
            found.emplace_back(ImageSequence{*folder, std::get<1>(name), std::get<2>(name)});
    }

    using Name = std::tuple<std::string, std::string, std::string>;

    /// Nothing where it is not there, or is known already.
    std::optional<Kestra::ioPath> newPlace(const Name& name, Wanted wanted) {
        if (!known.insert({wanted, name}).second)
            return std::nullopt;
        const std::string& url = std::get<0>(name);
        const auto result = locator.locate(url.empty() ? "." : url, wanted);
        const auto* const path = std::get_if<Kestra::ioPath>(&result);
        return path ? std::optional(*path) : std::nullopt;
    }

    const MediaLocator& locator;
    std::set<std::pair<Wanted, Name>> known;
    std::vector<MediaTarget> found;
};

} // namespace

std::vector<MediaTarget> mediaNamedIn(const OtioNode& root, const MediaLocator& locator) {
    Names names(locator);
    names.look(root.value());
    return names.take();
}

} // namespace Timeline
