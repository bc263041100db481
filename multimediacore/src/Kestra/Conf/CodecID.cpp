// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/CodecID.h"

#include "Kestra/Conf/Codec.h"

namespace Kestra::Conf {

const char* CodecIDToString(CodecID id) {
    const Codec* const codec = Codec::Find(id);
    return codec ? codec->name : Codec().name;
}

CodecID CodecIDFromString(const std::string& name) {
    const Codec* const codec = Codec::Find(name);
    return codec ? codec->id : CodecID::None;
}

bool IsVideoCodec(CodecID id) {
    return Codec::FindVideo(id) != nullptr;
}

} // namespace Kestra::Conf
