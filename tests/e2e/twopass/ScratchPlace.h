// SPDX-License-Identifier: GPL-3.0-or-later
// Where exports put what they need on the way.
#pragma once

#include "support/FileHelpers.h"
#include "support/FlashBeep.h"

namespace TestExport {

/// Scratch directories go into a folder that a test can look into.
class ScratchPlace {
public:
    ScratchPlace() { qputenv("TMPDIR", QByteArray::fromStdString(folder / "")); }
    ~ScratchPlace() { before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before) != 0; }
    ScratchPlace(const ScratchPlace&) = delete;
    ScratchPlace& operator=(const ScratchPlace&) = delete;

    QStringList names() const { return TestFiles::namesIn(folder / ""); }

private:
    const TestMedia::Folder folder;
    const QByteArray before = qgetenv("TMPDIR");
};

} // namespace TestExport
