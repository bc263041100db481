// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::SettingsPane: what is exported, how, and where to.
#pragma once

#include "ExportCore/OutputEstimate.h"
#include "dialog/Models/OutputLook.h"
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

class QComboBox;

namespace ExportCore {
class Thumbnails;
}

namespace Dialog {

namespace Ui {
class SettingsPane;
}
class ExportForm;
struct CustomSettings;

class SettingsPane : public QWidget {
    Q_OBJECT
public:
    explicit SettingsPane(QWidget* parent = nullptr);
    ~SettingsPane() override;

    /// Once. Borrowed; it may go before the pane, which then shows nothing new.
    void setForm(ExportForm& shown);
    /// Something may have changed on the disk.
    void lookAgain() { lookTimer.start(); }
    /// Nobody writes on in the file's name.
    void completeOutput();
    /// What is known of how long the chosen export takes; empty while nothing is.
    /// Of the export that is chosen: how long it takes, empty while that is unknown, and how large it becomes, where
    /// that is known better than by the form.
    void setForecast(const QString& time, const std::optional<ExportCore::OutputEstimate>& size);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectQuality();
    void connectCustom();
    void connectRange();
    void connectOutput();
    void fillFixedLists();
    void fillForPreset();
    void fillForSource();
    void fillControls();
    void fillFirstPass();
    void fillSound();
    void fillChannels();
    void showForm();
    void showQuality();
    int titleHeight() const;
    void showCustom();
    void showControl(const CustomSettings& custom);
    void showRange();
    void showOutput();
    void showEstimate();
    CustomSettings customFromWidgets() const;
    void onCustomEdited();
    void makeThumbnails();
    void browse();

    const std::unique_ptr<Ui::SettingsPane> ui;
    ExportForm* form = nullptr;
    bool showing = false; ///< what the widgets tell is not the user's doing
    OutputLook look{this};
    OutputState lookedAt;
    QTimer lookTimer{this};
    QTimer thumbnailTimer{this};
    QString timeText;
    std::optional<ExportCore::OutputEstimate> triedSize;
    std::unique_ptr<ExportCore::Thumbnails> thumbnails;
};

} // namespace Dialog
