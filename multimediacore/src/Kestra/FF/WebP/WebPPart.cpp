// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/WebP/WebPPart.h"

#include "Kestra/FF/WebP/WebPLayout.h"

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

namespace {

int Number(const std::uint8_t* place) {
    return static_cast<int>(AV_RL24(place));
}

std::string SizeText(int width, int height) {
    return std::to_string(width) + 'x' + std::to_string(height);
}

} // namespace

WebPPart WebPPart::Read(const std::uint8_t* bytes, std::size_t size, int width, int height) {
    WebPPart part;
    std::string& fault = part.picture.fault;
    if (size < WebPLayout::ANMF_HEAD) {
        fault = "nothing is there";
        return part;
    }
    part.picture = WebPPicture::InChunks(bytes + WebPLayout::ANMF_HEAD, size - WebPLayout::ANMF_HEAD);
    part.x = 2 * Number(bytes);
    part.y = 2 * Number(bytes + 3);
    part.milliseconds = Number(bytes + 12);
    if (!fault.empty())
        return part;
    const int ownWidth = part.picture.width, ownHeight = part.picture.height;
    if (Number(bytes + 6) + 1 != ownWidth || Number(bytes + 9) + 1 != ownHeight)
        fault = "the size is " + SizeText(ownWidth, ownHeight) + " and said to be " +
                SizeText(Number(bytes + 6) + 1, Number(bytes + 9) + 1);
    else if (part.x > width - ownWidth || part.y > height - ownHeight)
        fault = SizeText(ownWidth, ownHeight) + " at " + std::to_string(part.x) + ',' + std::to_string(part.y) +
                " do not lie within " + SizeText(width, height);
    else if (bytes[WebPLayout::ANMF_HEAD - 1] != WebPLayout::REPLACING)
        fault = "it does not replace the one before";
    return part;
}

std::size_t WebPPart::GetSize() const {
    return WebPLayout::ANMF_HEAD + picture.size;
}

void WebPPart::PutHeadInto(std::uint8_t* bytes) const {
    AV_WL24(bytes, x / 2);
    AV_WL24(bytes + 3, y / 2);
    AV_WL24(bytes + 6, picture.width - 1);
    AV_WL24(bytes + 9, picture.height - 1);
    AV_WL24(bytes + 12, milliseconds);
    bytes[WebPLayout::ANMF_HEAD - 1] = WebPLayout::REPLACING;
}

} // namespace Kestra::FF
