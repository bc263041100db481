// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/SequenceMuxer.h"

#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/FF/Av/Error.h"

namespace Kestra::FF {

using Proc::TranscodingError;

SequenceMuxer::SequenceMuxer(const Conf::Container& container, const Conf::IFormatFile& format,
                             const Core::IDataOutput& output)
    : OneTrackMuxer(container) {
    const std::string path = output.GetPath().ToUtf8();
    const std::size_t slash = path.rfind('/');
    folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const auto parsed = Conf::NumberedName::Parse(path.substr(folder.size()));
    if (!parsed)
        Fail(TranscodingError::MuxerRefused,
             "The pictures of \"" + path + "\" need numbers: the name has to hold one place for them, as %05d");
    name = *parsed;
    if (!OptionsOf(format).Get().empty())
        Fail(TranscodingError::MuxerRefused, "The container " + Name() + " has no options");
}

void SequenceMuxer::Put(const Proc::IDataRaw& packet) {
    const auto file = Core::DataOutputFF::Create(ioPath(folder + name.NameOf(next)));
    file->Open();
    file->Write(packet.GetBytes(), packet.GetSize());
    file->Close();
    ++next;
}

} // namespace Kestra::FF
