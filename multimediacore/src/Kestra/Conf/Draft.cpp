// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Draft.h"

namespace Kestra::Conf {

namespace {

constexpr const char* TAG_DRAFT = "draft";
constexpr const char* TAG_WHY_WHOLE = "whyWhole";

} // namespace

std::optional<Draft> Draft::Of(const IFormatCodecVideo& format) {
    if (!format.GetProperty().ChildExists(TAG_DRAFT))
        return std::nullopt;
    const Core::Property& tree = format.GetProperty()[TAG_DRAFT];
    return Draft{static_cast<std::uint32_t>(tree[IFormatCodecVideo::TAG_WIDTH].GetInt64()),
                 static_cast<std::uint32_t>(tree[IFormatCodecVideo::TAG_HEIGHT].GetInt64())};
}

void Draft::TellIn(IFormatCodecVideo& format, const std::optional<Draft>& draft) {
    Core::Property tree = format.GetProperty();
    if (draft) {
        Core::Property told(TAG_DRAFT);
        told.SetChild(IFormatCodecVideo::TAG_WIDTH, std::int64_t{draft->width});
        told.SetChild(IFormatCodecVideo::TAG_HEIGHT, std::int64_t{draft->height});
        tree.SetChild(told);
    } else {
        tree.RemoveChild(TAG_DRAFT);
    }
    format.SetProperty(tree);
}

std::string Draft::WhyWhole(const IFormatCodecVideo& format) {
    const Core::Property& tree = format.GetProperty();
    return tree.ChildExists(TAG_WHY_WHOLE) ? tree[TAG_WHY_WHOLE].GetString() : std::string();
}

void Draft::TellWhyWhole(IFormatCodecVideo& format, const std::string& sentence) {
    Core::Property tree = format.GetProperty();
    if (sentence.empty())
        tree.RemoveChild(TAG_WHY_WHOLE);
    else
        tree.SetChild(TAG_WHY_WHOLE, sentence);
    format.SetProperty(tree);
}

} // namespace Kestra::Conf
