// SPDX-License-Identifier: GPL-3.0-or-later
// What the drivers of several encoders set alike.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Av/Wording.h"
#include <cstdint>
#include <string>

namespace Kestra::FF {

/// More threads than this only cost memory, whether they share out slices, frames or tiles.
constexpr int MOST_SLICE_THREADS = 16;

int Processors();

/// Throws ProcException (CodecRefused): "ENCODER refuses WHAT".
[[noreturn]] void RefuseSetting(const AVCodecContext& context, const std::string& what,
                                SourcePlace place = SourcePlace::Here());

/// Throws ProcException (CodecRefused): "ENCODER cannot encode sound of N channels (LAYOUT): REASON", with a way out.
[[noreturn]] void RefuseLayout(const AVCodec& codec, std::uint32_t wanted, const std::string& reason,
                               SourcePlace place = SourcePlace::Here());

/// An option of the encoder's own; nothing where it has none of that name.
bool HasPrivateOption(const AVCodecContext& context, const char* name);
void SetPrivate(AVCodecContext& context, const char* name, std::int64_t value);

/// Parameters that an encoder takes in one list, by the option of that name ("x264-params"). Setting adds to those that
/// are there. Both throw ProcException (CodecRefused).
bool HasListedParameter(const AVCodecContext& context, const char* list, const char* name);
void SetListedParameter(AVCodecContext& context, const char* list, const char* name, const char* value);

/// Whether the text of an option ("x264opts"), parameters with colons between them, has one of that name. Throws
/// ProcException (CodecRefused).
bool HasParameterInText(const AVCodecContext& context, const char* option, const std::string& name);

/// Constant quality by the option "crf".
void SetCrf(AVCodecContext& context, double quality);

/// Threads of encoders that make the same of any number of them, but something else of one alone: two at least, so that
/// no output depends on the machine.
int ThreadsBesideOthers();

/// Tiles, and threads that share out their rows, of encoders that have both. The width alone decides about tiles.
void SetTileThreads(AVCodecContext& context);

} // namespace Kestra::FF
