// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/SweepApplication.h"
#include <QTemporaryDir>
#include <glog/logging.h>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Of its own, so that what is left there can be counted.
    const QTemporaryDir scratch;
    qputenv("TMPDIR", scratch.path().toLocal8Bit());
    FLAGS_minloglevel = google::GLOG_FATAL; // thousands of failures are logged on purpose
    ::testing::InitGoogleTest(&argc, argv);
    const Sweep::SweepApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
