// Dialog::OutputLook: what stands where a file is to be put.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCore/SequenceName.h"
#include <QMetaType>
#include <QObject>
#include <QString>
#include <memory>
#include <optional>

namespace Dialog {

/// A value.
struct OutputState {
    QString path;
    bool exists = false;               ///< of pictures one that is called as they are
    QString name{};                    ///< of what stands there, where something does
    std::optional<qint64> freeBytes{}; ///< nothing where the folder is not there, or does not tell
};

/// Looks on another thread: a folder may not answer. The last question counts, and has one answer.
class OutputLook : public QObject {
    Q_OBJECT
public:
    explicit OutputLook(QObject* parent = nullptr);
    ~OutputLook() override;

    void look(const QString& path, const std::optional<ExportCore::SequenceName>& sequence);

Q_SIGNALS:
    void looked(const Dialog::OutputState& state);

private:
    std::unique_ptr<ExportCore::BackgroundTask> looking;
};

} // namespace Dialog

Q_DECLARE_METATYPE(Dialog::OutputState)
