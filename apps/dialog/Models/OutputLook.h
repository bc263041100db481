// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::OutputLook: what stands where a file is to be put.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCore/FileMark.h"
#include "ExportCore/SequenceName.h"
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Dialog {

/// Where something is to be put. A value.
struct OutputPlace {
    QString path;
    std::optional<ExportCore::SequenceName> sequence{}; ///< where each picture is a file of its own
    QStringList inputs{};                               ///< of what is put there
    std::vector<ExportCore::FileMark> marks{};          ///< of these, as they were read; empty: nobody cares
};

/// A value.
struct OutputState {
    QString path;
    QString place{};                   ///< the path, or the first picture's, with links resolved as far as it is there
    bool exists = false;               ///< of pictures one that is called as they are
    bool isFolder = false;             ///< where a file is to be
    bool isInput = false;              ///< what stands there is one of the inputs, through links too
    bool isReadOnly = false;           ///< its folder is there and takes no files
    bool haveInputsChanged = false;    ///< since their marks were taken
    QString name{};                    ///< of what stands there, where something does
    std::optional<qint64> freeBytes{}; ///< nothing where the folder is not there, or does not tell
    bool isKnown = true;               ///< false: the folder did not answer, and no more is told
};

/// Looks on another thread: a folder may not answer. The last question counts, and has one answer.
class OutputLook : public QObject {
    Q_OBJECT
public:
    using Way = std::function<OutputState(const OutputPlace&)>;

    explicit OutputLook(QObject* parent = nullptr);
    ~OutputLook() override;

    void look(const OutputPlace& place);
    /// What was asked last has no answer.
    void forget();
    /// How long a folder has for its answer: five seconds, unless told otherwise.
    void setLimit(std::chrono::milliseconds limit) { timer.setInterval(limit); }
    /// Looks in another way, on the other thread: for tests.
    void setWay(const Way& other) { way = other; }

Q_SIGNALS:
    void looked(const Dialog::OutputState& state);

private:
    Way way;
    QTimer timer{this};
    QString wanted;
    std::unique_ptr<ExportCore::BackgroundTask> looking;
};

} // namespace Dialog

Q_DECLARE_METATYPE(Dialog::OutputState)
