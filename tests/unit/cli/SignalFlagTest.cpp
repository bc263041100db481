// SPDX-License-Identifier: GPL-3.0-or-later
#include "process/SignalStop.h"
#include <csignal>
#include <gtest/gtest.h>

namespace {

TEST(SignalFlag, LeavesIgnoredWhatTheCallerIgnored) {
    const auto before = std::signal(SIGHUP, SIG_IGN); // as nohup does
    { const Process::SignalFlag flag; }
    const auto after = std::signal(SIGHUP, before);
    EXPECT_EQ(after, SIG_IGN);
}

} // namespace
