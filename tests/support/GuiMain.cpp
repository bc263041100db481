// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // test discovery runs this at build time, with no display
    ::testing::InitGoogleTest(&argc, argv);
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
