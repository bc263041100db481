// SPDX-License-Identifier: GPL-3.0-or-later
// The window for those who do not see it, or have no mouse.
#include "WindowFixture.h"
#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QMultiHash>
#include <QScrollBar>
#include <QSet>
#include <QStackedWidget>
#include <QToolButton>

namespace TestDialog {
namespace {

class Accessibility : public WindowTest {
protected:
    /// What the keyboard can reach, scroll bars and the inner parts of other controls left out.
    QList<QWidget*> controls() const {
        QList<QWidget*> found;
        for (QWidget* const widget : window->findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            const bool isOwn = !name.isEmpty() && !name.startsWith(text("qt_"));
            if (isOwn && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !qobject_cast<QScrollBar*>(widget))
                found << widget;
        }
        return found;
    }
    static QString nameOf(QWidget* widget) {
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
        return accessible ? accessible->text(QAccessible::Name) : QString();
    }
};

TEST_F(Accessibility, EveryControlHasAName) {
    show();
    openClip();
    pressButton('a', "cutButton");
    ASSERT_GT(controls().size(), 30);
    for (QWidget* const control : controls())
        EXPECT_FALSE(nameOf(control).isEmpty()) << control->objectName().toStdString();
}

TEST_F(Accessibility, EveryControlIsReachedByTab) {
    show();
    openClip();
    pressButton('a', "cutButton");
    find<QGroupBox>("customGroup").setChecked(true);
    QSet<QWidget*> reached;
    find<QPushButton>("openButton").setFocus();
    for (int i = 0; i < 200 && !reached.contains(QApplication::focusWidget()); ++i) {
        reached << QApplication::focusWidget();
        key(Qt::Key_Tab);
    }
    for (QWidget* const control : controls()) {
        const bool isOneOfMany = control->inherits("QRadioButton"); // those are one stop, and arrows go on
        if (control->isVisible() && control->isEnabled() && !control->focusProxy() && !isOneOfMany) {
            EXPECT_TRUE(reached.contains(control)) << control->objectName().toStdString();
        }
    }
}

TEST_F(Accessibility, EveryLabelOfAControlLeadsToIt) {
    show();
    for (const QLabel* const label : window->findChildren<QLabel*>()) {
        const bool hasLetter = label->text().endsWith(QLatin1Char(':')) && label->text().contains(QLatin1Char('&'));
        EXPECT_TRUE(!hasLetter || label->buddy()) << label->objectName().toStdString();
    }
}

class Letters : public Accessibility, public ::testing::WithParamInterface<const char*> {
protected:
    /// Of what is shown: what each letter means.
    QMultiHash<QChar, QString> shown() const {
        QMultiHash<QChar, QString> letters;
        const auto add = [&letters](const QString& label) {
            const int sign = label.indexOf(QLatin1Char('&'));
            if (sign >= 0 && sign + 1 < label.size())
                letters.insert(label[sign + 1].toLower(), label);
        };
        for (const QWidget* const widget : window->findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<const QLabel*>(widget);
            const auto* const button = qobject_cast<const QAbstractButton*>(widget);
            const auto* const group = qobject_cast<const QGroupBox*>(widget);
            if (widget->isVisible())
                add(label && label->buddy() ? label->text()
                    : button                ? button->text()
                    : group                 ? group->title()
                                            : QString());
        }
        return letters;
    }
};

TEST_P(Letters, MeanOneThingInEveryLanguage) {
    const Dialog::Translations translations(*qApp, QLocale(text(GetParam())));
    show();
    window->resize(1180, 820);
    window->open({QString::fromStdString(clip)});
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("exportButton").isEnabled(); }));
    find<QGroupBox>("customGroup").setChecked(true);
    find<QPushButton>("addButton").click();
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("jobPane").isVisible(); }));
    for (const char* const page : {"cutPage", "markersPage"}) {
        find<QStackedWidget>("partStack").setCurrentWidget(&find<QWidget>(page));
        TestSupport::turnEventLoop();
        const auto letters = shown();
        EXPECT_EQ(letters.size(), 24) << "as many as there are in English";
        for (const QChar letter : letters.uniqueKeys())
            EXPECT_EQ(letters.count(letter), 1)
                << QStringList(letters.values(letter)).join(text(" and ")).toStdString();
        expectNothingClipped();
    }
}

/// What an export says while it runs and when it has ended.
TEST_P(Letters, LeaveRoomForWhatIsSaidOfAnExport) {
    const Dialog::Translations translations(*qApp, QLocale(text(GetParam())));
    show();
    window->resize(1180, 820);
    openMuch();
    find<QLineEdit>("outputEdit").setText(QString::fromStdString(place / "film.mp4"));
    ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("exportButton").isEnabled(); }));
    find<QPushButton>("exportButton").click();
    ASSERT_TRUE(waitUntil([&] { return find<QLabel>("progressLabel").text().count(text("·")) == 2; }));
    TestSupport::turnEventLoop();
    expectNothingClipped();
    find<QPushButton>("stopButton").click();
    ASSERT_TRUE(waitForQuestion());
    answer(QMessageBox::AcceptRole);
    ASSERT_TRUE(waitForEnd());
    TestSupport::turnEventLoop();
    expectNothingClipped();
    const QString stopped = endTitle();
    find<QLineEdit>("outputEdit").setText(QString::fromStdString(place / "nowhere/film.mp4"));
    find<QPushButton>("exportButton").click();
    ASSERT_TRUE(waitUntil([&] { return find<QWidget>("endPage").isVisible() && endTitle() != stopped; }));
    find<QToolButton>("detailsButton").setChecked(true);
    TestSupport::turnEventLoop();
    expectNothingClipped();
    EXPECT_FALSE(find<QLabel>("endAdvice").text().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, Letters, ::testing::Values("en_US", "de_DE", "es_ES", "ja_JP", "zh_CN"));

TEST_F(Accessibility, TheRangeTellsWhereItIs) {
    show();
    openClip();
    pressButton('a', "cutButton");
    auto& strip = find<QWidget>("strip");
    strip.setFocus();
    key(Qt::Key_Right);
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&strip);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Description), text("From 0:00.040 to 0:02.000"));
}

} // namespace
} // namespace TestDialog
