#include "WidgetChecks.h"

#include "GridDelegate.h"
#include "WeekPicture.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QToolBar>

#include <algorithm>

namespace qvm::test {
namespace {

QString sentence(const QWidget* widget, const QString& text) {
    return widget->objectName() + QStringLiteral(": ") + text;
}

bool fits(const QLabel& label) {
    if (label.property("elides").toBool() || label.text().isEmpty()) {
        return true;
    }
    const QRect room = label.contentsRect().adjusted(label.margin(), label.margin(), -label.margin(), -label.margin());
    const QRect needed = label.fontMetrics().boundingRect(QRect(0, 0, room.width(), 10000),
                                                          label.wordWrap() ? Qt::TextWordWrap : 0, label.text());
    return needed.width() <= room.width() && needed.height() <= room.height();
}

bool fits(const QComboBox& box) {
    int widest = 0;
    for (int n = 0; n < box.count(); ++n) {
        widest = std::max(widest, box.fontMetrics().horizontalAdvance(box.itemText(n)));
    }
    constexpr int Arrow = 24;
    return box.count() == 0 || widest + Arrow <= box.width();
}

void checkHeader(const QTableView& view, QStringList& found) {
    const QHeaderView& header = *view.horizontalHeader();
    for (int column = 0; column < header.count(); ++column) {
        const QString text = view.model()->headerData(column, Qt::Horizontal).toString();
        if (!header.isSectionHidden(column) &&
            header.fontMetrics().horizontalAdvance(text) + 2 * ui::CellMargin > header.sectionSize(column)) {
            found += sentence(&view, text);
        }
    }
}

bool isControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr || qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(widget) != nullptr || qobject_cast<const QSpinBox*>(widget) != nullptr ||
           qobject_cast<const QLabel*>(widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
           qobject_cast<const ui::WeekPicture*>(widget) != nullptr;
}

/// Tab goes to the chosen one of a group, the arrow keys to the others.
bool reachedByArrows(const QWidget* widget) {
    const auto* option = qobject_cast<const QRadioButton*>(widget);
    return option != nullptr && !option->isChecked();
}

/// Qt's own names: parts of compound controls, which are controls of their own in a month view only.
bool isPart(const QWidget* widget) {
    return widget->objectName().startsWith(QLatin1String("qt_")) &&
           !widget->objectName().startsWith(QLatin1String("qt_calendar_"));
}

/// Those that belong to another control, as the list of a combo box does, have no name of ours.
QList<QWidget*> visibleControls(QWidget* window) {
    QList<QWidget*> found;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == window && isControl(widget) && !isPart(widget) &&
            (widget->focusPolicy() & Qt::TabFocus) != 0 &&
            qobject_cast<QComboBox*>(widget->parentWidget()) == nullptr) {
            found += widget;
        }
    }
    return found;
}

/// A label is heard by its text.
bool isNameless(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const QString name =
        label != nullptr && widget.accessibleName().isEmpty() ? label->text() : widget.accessibleName();
    return name.isEmpty() || name == widget.objectName() || name.contains(QLatin1String("7702"));
}

} // namespace

QStringList allTextsFit(QWidget* window) {
    QStringList found;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != window) {
            continue;
        }
        if (const auto* label = qobject_cast<const QLabel*>(widget); label != nullptr && !fits(*label)) {
            found += sentence(label, label->text());
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget);
                   button != nullptr && !button->text().isEmpty() &&
                   (button->width() < button->sizeHint().width() || button->height() < button->sizeHint().height())) {
            found += sentence(button, button->text());
        } else if (const auto* box = qobject_cast<const QComboBox*>(widget); box != nullptr && !fits(*box)) {
            found += sentence(box, box->currentText());
        } else if (const auto* view = qobject_cast<const QTableView*>(widget)) {
            checkHeader(*view, found);
        }
    }
    return found;
}

QStringList tabOrder(QWidget* window) {
    constexpr int Most = 200;
    window->activateWindow();
    QApplication::setActiveWindow(window);
    if (window->focusWidget() == nullptr) {
        QTest::keyClick(window, Qt::Key_Tab);
    }
    QStringList order;
    QList<const QWidget*> seen; // two months have parts of one name
    while (order.size() < Most && window->focusWidget() != nullptr && !seen.contains(window->focusWidget())) {
        seen += window->focusWidget();
        order += window->focusWidget()->objectName();
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    return order;
}

QStringList controlsOf(QWidget* window) {
    QStringList found;
    for (const QWidget* widget : visibleControls(window)) {
        if (widget->isEnabled() && !reachedByArrows(widget)) {
            found += widget->objectName();
        }
    }
    return found;
}

QStringList unnamedControls(QWidget* window) {
    QStringList found;
    for (const QWidget* widget : visibleControls(window)) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool iconOnly = button != nullptr && button->text().isEmpty() && !button->icon().isNull();
        if (widget->objectName().isEmpty() || isNameless(*widget) || (iconOnly && widget->toolTip().isEmpty())) {
            found += sentence(widget, QString::fromLatin1(widget->metaObject()->className()));
        }
    }
    for (const QProgressBar* bar : window->findChildren<QProgressBar*>()) {
        if (isNameless(*bar)) {
            found += sentence(bar, QStringLiteral("QProgressBar"));
        }
    }
    return found;
}

QStringList doubtfulMnemonics(const QWidget* menu) {
    QStringList found;
    QStringList seen;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator() || action->text().isEmpty()) {
            continue;
        }
        const QString key = QKeySequence::mnemonic(action->text()).toString();
        if (key.isEmpty() || seen.contains(key)) {
            found += action->text();
        }
        seen += key;
    }
    return found;
}

} // namespace qvm::test
