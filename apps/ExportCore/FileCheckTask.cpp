#include "ExportCore/FileCheckTask.h"

#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Interrupted.h"

namespace ExportCore {

FileCheckTask::FileCheckTask(const Kestra::ioPath& path, const ExpectedFile& expected,
                             const std::function<void()>& last, QObject* parent)
    : FileCheckTask(std::make_shared<Kestra::Proc::CheckedFile>(), path, expected, last, parent) {}

FileCheckTask::FileCheckTask(const File& file, const Kestra::ioPath& path, const ExpectedFile& expected,
                             const std::function<void()>& last, QObject* parent)
    : BackgroundTask(
          "check-output",
          [=](const std::atomic<bool>& interrupted) {
              try {
                  *file = Kestra::Proc::CheckFile(path, interrupted);
              } catch (const Kestra::Proc::Interrupted&) {
                  return;
              }
              expected.require(*file);
              last();
          },
          parent)
    , file(file) {}

} // namespace ExportCore
