// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::isWithinLimits: how large pictures of a preset may be.
#pragma once

class Preset;

namespace ExportCore {

/// Whether the preset takes pictures of so many pixels. Its limits hold for pictures that lie and for those that stand.
bool isWithinLimits(double width, double height, const Preset& preset);

} // namespace ExportCore
