// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FileCheckTask: checks a finished file away from the event loop.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCore/ExpectedFile.h"
#include "Kestra/Base/ioPath.h"

namespace ExportCore {

/// One check. Finished without an error, the file is right; once interrupted, it ends soon with whatever result.
class FileCheckTask : public BackgroundTask {
    Q_OBJECT
public:
    using Last = std::function<void(const Kestra::Proc::CheckedFile& file)>;

    /// `path` is the folder, where pictures are expected. `last` is called on the worker thread after the file was
    /// found right; what it throws is the check's failure. It owns what it touches.
    FileCheckTask(const Kestra::ioPath& path, const ExpectedFile& expected, const Last& last,
                  QObject* parent = nullptr);
};

} // namespace ExportCore
