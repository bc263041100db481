// SPDX-License-Identifier: GPL-3.0-or-later
// EditorFakes::TestCatalogue: a small preset catalogue and empty settings, in place of the user's.
#pragma once

#include <QTemporaryDir>

namespace EditorFakes {

/// Presets of the tag "test", in this order: "av" (automatic bitrate), "sound", "pictures", "fixed" (1 200 000 bit/s),
/// "two-pass" (automatic bitrate). Alive before the preset provider is made and after it is gone.
class TestCatalogue {
public:
    TestCatalogue();
    ~TestCatalogue();
    TestCatalogue(const TestCatalogue&) = delete;
    TestCatalogue& operator=(const TestCatalogue&) = delete;

private:
    QTemporaryDir folder;
};

} // namespace EditorFakes
