// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::LastChoice: remembers tag and preset for the next start.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include <QObject>
#include <memory>
#include <string>

namespace Dialog {

/// Away from the event loop: what is remembered is brought to the disk before it counts as remembered, and a disk that
/// an export is being written to may take seconds for that.
class LastChoice : public QObject {
    Q_OBJECT
public:
    explicit LastChoice(QObject* parent = nullptr);
    /// Waits until the last one is remembered, some seconds at most.
    ~LastChoice() override;

    /// In a while; of several the last one counts. What is remembered already is not written again.
    void keep(const std::string& tag, const std::string& presetId);

private:
    struct Wish;
    class Wishes;

    void begin();

    /// The thread's too.
    const std::shared_ptr<Wishes> wishes;
    std::unique_ptr<ExportCore::BackgroundTask> writing;
};

} // namespace Dialog
