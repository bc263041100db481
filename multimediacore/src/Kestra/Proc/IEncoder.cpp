// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/IEncoder.h"

namespace Kestra::Proc {

using Conf::IFormatCodec;

IEncoder::~IEncoder() = default;

Core::Property IEncoder::Settings2Property(const SettingsTwoPassEncoding& settings) {
    Core::Property tree;
    Core::Property& twoPass = tree.SetChild(IFormatCodec::TAG_TWO_PASS);
    twoPass.SetChild(IFormatCodec::TAG_TWO_PASS_LOG_FILE, settings.GetLogFile());
    twoPass.SetChild(IFormatCodec::TAG_TWO_PASS_FIRST, settings.firstPass);
    return tree;
}

} // namespace Kestra::Proc
