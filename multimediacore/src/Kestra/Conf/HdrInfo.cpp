// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/HdrInfo.h"
#include <algorithm>

namespace Kestra::Conf {

namespace {

constexpr const char* TAG_HDR = "hdr";
constexpr const char* TAG_WHITEST = "whitest";
constexpr const char* TAG_BLACKEST = "blackest";
constexpr const char* TAG_MAX_CLL = "maxCll";
constexpr const char* TAG_MAX_FALL = "maxFall";

std::string TagOfPlace(std::size_t index) {
    return "place" + std::to_string(index);
}

std::int64_t Highest(std::int64_t a, std::int64_t b) {
    return a == 0 || b == 0 ? 0 : std::max(a, b);
}

} // namespace

HdrInfo HdrInfo::Together(const HdrInfo& a, const HdrInfo& b) {
    HdrInfo result = b.whitest > a.whitest ? b : a;
    result.maxCll = Highest(a.maxCll, b.maxCll);
    result.maxFall = Highest(a.maxFall, b.maxFall);
    return result;
}

bool HdrInfo::IsTold(const IFormatCodecVideo& format) {
    return format.GetProperty().ChildExists(TAG_HDR);
}

HdrInfo HdrInfo::Of(const IFormatCodecVideo& format) {
    HdrInfo info;
    if (!IsTold(format))
        return info;
    const Core::Property& tree = format.GetProperty()[TAG_HDR];
    for (std::size_t index = 0; index < info.places.size(); ++index)
        info.places[index] = tree[TagOfPlace(index)].GetInt64();
    info.whitest = tree[TAG_WHITEST].GetInt64();
    info.blackest = tree[TAG_BLACKEST].GetInt64();
    info.maxCll = tree[TAG_MAX_CLL].GetInt64();
    info.maxFall = tree[TAG_MAX_FALL].GetInt64();
    return info;
}

void HdrInfo::TellIn(IFormatCodecVideo& format) const {
    Core::Property told(TAG_HDR);
    for (std::size_t index = 0; index < places.size(); ++index)
        told.SetChild(TagOfPlace(index), places[index]);
    told.SetChild(TAG_WHITEST, whitest);
    told.SetChild(TAG_BLACKEST, blackest);
    told.SetChild(TAG_MAX_CLL, maxCll);
    told.SetChild(TAG_MAX_FALL, maxFall);
    Core::Property tree = format.GetProperty();
    tree.SetChild(told);
    format.SetProperty(tree);
}

} // namespace Kestra::Conf
