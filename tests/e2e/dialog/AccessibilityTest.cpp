// The window for those who do not see it, or have no mouse.
#include "WindowFixture.h"
#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QScrollBar>
#include <QSet>

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

TEST_F(Accessibility, NoLetterMeansTwoThings) {
    show();
    openClip();
    find<QGroupBox>("customGroup").setChecked(true);
    QHash<QChar, QString> letters;
    const auto count = [&letters](const QString& label, const QWidget* widget) {
        const int sign = label.indexOf(QLatin1Char('&'));
        if (sign < 0 || sign + 1 >= label.size())
            return;
        const QChar letter = label[sign + 1].toLower();
        EXPECT_FALSE(letters.contains(letter)) << label.toStdString() << " and " << letters.value(letter).toStdString();
        letters.insert(letter, widget->objectName());
    };
    for (const QWidget* const widget : window->findChildren<QWidget*>()) {
        if (const auto* const label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            count(label->text(), widget);
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            count(button->text(), widget);
        if (const auto* const group = qobject_cast<const QGroupBox*>(widget))
            count(group->title(), widget);
    }
    EXPECT_GT(letters.size(), 20);
}

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
