// SPDX-License-Identifier: GPL-3.0-or-later
// The export window over real media, driven as people drive it.
#pragma once

#include "ExportCore/EventLoopFailures.h"
#include "ExportCore/ExportApplication.h"
#include "dialog/Models/TimeForecast.h"
#include "dialog/Models/Translations.h"
#include "dialog/Widgets/ExportWindow.h"
#include "dialog/Widgets/PictureLabel.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace TestDialog {

/// The deadline is reached by a hang alone.
template <class Condition>
bool waitUntil(Condition condition) {
    constexpr int deadlineMilliseconds = 200'000;
    return TestSupport::waitUntil(condition, deadlineMilliseconds);
}

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// Keeps the user's configuration out of the tests, and theirs out of the user's.
class WindowTest : public ::testing::Test {
protected:
    WindowTest()
        : before(qgetenv("XDG_CONFIG_HOME")) {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(configuration.path()));
        TestMedia::FlashBeep media;
        media.frames = 50;
        TestMedia::makeFlashBeep(clip, media);
    }
    ~WindowTest() override {
        window.reset();
        qputenv("XDG_CONFIG_HOME", before);
    }

    void show() {
        auto& application = static_cast<ExportCore::ExportApplication<QApplication>&>(*qApp);
        window = std::make_unique<Dialog::ExportWindow>(application.failures());
        forecast().setPause(std::chrono::hours(24)); // nothing is tried unless a test wants it
        window->show();
        QApplication::setActiveWindow(window.get());
        ASSERT_TRUE(waitUntil([this] { return window->isVisible(); }));
    }
    Dialog::TimeForecast& forecast() const { return *window->findChild<Dialog::TimeForecast*>(); }
    /// Until it can be exported, or the window says why not.
    void open(const QStringList& files) {
        window->open(files);
        ASSERT_TRUE(waitUntil([this] { return find<QLabel>("sourceFacts").text() != text("Opening…"); }));
    }
    void openClip() { open({QString::fromStdString(clip)}); }
    /// The same clip so often that nobody waits for the end of its export.
    void openMuch() {
        QStringList files;
        for (int i = 0; i < 200; ++i)
            files << QString::fromStdString(clip);
        open(files);
    }

    template <class Widget>
    Widget& find(const char* name) const {
        auto* const widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("There is no %s", name);
        return *widget;
    }
    /// By its mnemonic, wherever the focus is.
    void press(char letter) const {
        if (!question()) // nobody gives the window back what a question took
            QApplication::setActiveWindow(window.get());
        QWidget* const target = QApplication::focusWidget() ? QApplication::focusWidget() : window.get();
        QTest::keyClick(target, letter, Qt::AltModifier);
    }
    /// A button, which shows that it is pressed before it acts.
    void pressButton(char letter, const char* name) const {
        press(letter);
        ASSERT_TRUE(waitUntil([&] { return find<QAbstractButton>(name).isChecked(); })) << name;
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const QString& what) { QTest::keyClicks(QApplication::focusWidget(), what); }
    /// Chooses by the keyboard alone.
    void choose(const QString& tag, const QString& search) {
        press('m');
        auto& tags = find<QComboBox>("tagBox");
        ASSERT_EQ(QApplication::focusWidget(), &tags);
        key(Qt::Key_Home);
        for (int i = 0; i < tags.count() && tags.currentText() != tag; ++i)
            key(Qt::Key_Down);
        ASSERT_EQ(tags.currentText(), tag);
        press('s');
        key(Qt::Key_A, Qt::ControlModifier);
        type(search);
        key(Qt::Key_Down);
        ASSERT_EQ(QApplication::focusWidget(), &find<QAbstractItemView>("presetList"));
        key(Qt::Key_Home);
    }
    void saveAs(const std::string& path) {
        press('l');
        key(Qt::Key_A, Qt::ControlModifier);
        type(QString::fromStdString(path));
    }
    /// Null when nothing is asked. One that has been answered goes only with the application's event loop.
    QMessageBox* question() const {
        for (QMessageBox* const box : window->findChildren<QMessageBox*>())
            if (box->isVisible())
                return box;
        return nullptr;
    }
    bool waitForQuestion() const {
        return waitUntil([this] { return question() != nullptr; });
    }
    void answer(QMessageBox::ButtonRole role) const {
        for (QAbstractButton* const button : question()->buttons())
            if (question() && question()->buttonRole(button) == role)
                return QTest::keyClick(button, Qt::Key_Space);
        FAIL() << "There is no such answer";
    }
    /// The end of the export that is shown.
    bool waitForEnd() const {
        return waitUntil([this] { return find<QWidget>("endPage").isVisible(); });
    }
    /// Texts of one line have room for it, those of several for all their lines.
    void expectNothingClipped() const {
        for (const QLabel* const label : window->findChildren<QLabel*>()) {
            const bool shrinks = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
            if (!label->isVisible() || label->text().isEmpty() || shrinks || !label->pixmap(Qt::ReturnByValue).isNull())
                continue;
            const bool fits = label->wordWrap() ? label->height() + 1 >= label->heightForWidth(label->width())
                                                : label->width() + 1 >= label->sizeHint().width();
            EXPECT_TRUE(fits) << label->objectName().toStdString() << ": " << label->text().toStdString();
        }
        for (const QAbstractButton* const button : window->findChildren<QAbstractButton*>()) {
            const bool isShown = button->isVisible() && !button->objectName().startsWith(text("qt_"));
            EXPECT_TRUE(!isShown || button->text().isEmpty() ||
                        button->width() + 1 >= button->minimumSizeHint().width())
                << button->objectName().toStdString();
        }
    }
    QString endTitle() const { return find<QLabel>("endTitle").text(); }

    const Dialog::Translations english{*qApp, QLocale(QLocale::English, QLocale::UnitedStates)};
    const QTemporaryDir configuration;
    const TestMedia::Folder place;
    const std::string clip = place / "clip.mov";
    std::unique_ptr<Dialog::ExportWindow> window;

private:
    const QByteArray before;
};

} // namespace TestDialog
