// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FileCheckTask.h"

#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Interrupted.h"

namespace ExportCore {
namespace {

void check(const Kestra::ioPath& path, const ExpectedFile& expected, const FileCheckTask::Last& last,
           const std::atomic<bool>& interrupted) {
    Kestra::Proc::CheckedFile file;
    try {
        file = expected.pictures ? Kestra::Proc::CheckPictures(path, expected.pictures->name, interrupted)
                                 : Kestra::Proc::CheckFile(path, interrupted);
    } catch (const Kestra::Proc::Interrupted&) {
        return;
    }
    expected.require(file);
    last(file);
}

} // namespace

FileCheckTask::FileCheckTask(const Kestra::ioPath& path, const ExpectedFile& expected, const Last& last,
                             QObject* parent)
    : BackgroundTask(
          "check-output", [=](const std::atomic<bool>& interrupted) { check(path, expected, last, interrupted); },
          parent) {}

} // namespace ExportCore
