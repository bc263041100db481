// SPDX-License-Identifier: GPL-3.0-or-later
// A program that knows the module by its install tree alone.
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    Export::PresetProvider provider(nullptr);
    provider.load();
    std::printf("%zu tags, %zu presets\n", provider.tags().size(), provider.availablePresets().size());
    const int stopped = Export::Transcoder::staticMetaObject.indexOfSignal("stopped()");
    return provider.tags().empty() || provider.availablePresets().empty() || stopped < 0 ? 1 : 0;
}
