// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PresetPane: where a preset is chosen.
#pragma once

#include <QWidget>
#include <memory>

namespace Dialog {

namespace Ui {
class PresetPane;
}
class ExportForm;

class PresetPane : public QWidget {
    Q_OBJECT
public:
    explicit PresetPane(QWidget* parent = nullptr);
    ~PresetPane() override;

    /// Once. Borrowed; it may go before the pane, which then shows nothing new.
    void setForm(ExportForm& shown);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillTags();
    void showSelection();
    void scrollToSelection();
    void showHidden(bool isHidden);
    void showFacts();
    void search(const QString& text);

    const std::unique_ptr<Ui::PresetPane> ui;
    ExportForm* form = nullptr;
    bool following = false; ///< what the view does is not the user's choice
};

} // namespace Dialog
