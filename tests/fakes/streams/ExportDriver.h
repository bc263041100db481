// SPDX-License-Identifier: GPL-3.0-or-later
// What a processor does, on one thread: encoders into a muxer.
#pragma once

#include "Kestra/Core/IDataOutput.h"
#include "Kestra/Proc/IEncoder.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <string>
#include <vector>

namespace Fakes {

using Raw = boost::intrusive_ptr<Kestra::Proc::IStreamRaw>;

/// "name" is a CodecID's name; what else an encoder is told is in the tree.
Kestra::Core::Property Description(const std::string& codec);
/// The option tree within a description.
Kestra::Core::Property& Options(Kestra::Core::Property& description);

boost::intrusive_ptr<Kestra::Proc::IEncoder>
VideoEncoder(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& stream, const Kestra::Core::Property& description);
boost::intrusive_ptr<Kestra::Proc::IEncoder>
AudioEncoder(const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& stream, const Kestra::Core::Property& description);

/// All packets, after Prepare.
std::vector<boost::intrusive_ptr<Kestra::Proc::IDataRaw>> ReadAll(Kestra::Proc::IStreamRaw& stream);

/// Encodes and writes everything; what fails, throws.
void WriteFile(const boost::intrusive_ptr<Kestra::Core::IDataOutput>& output, const std::string& container,
               const std::vector<Raw>& streams, const Kestra::Core::Property& muxerOptions = Kestra::Core::Property());
void WriteFile(const std::string& path, const std::string& container, const std::vector<Raw>& streams,
               const Kestra::Core::Property& muxerOptions = Kestra::Core::Property());

} // namespace Fakes
