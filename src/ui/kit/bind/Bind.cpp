#include "Bind.h"

#include "ComboChoice.h"
#include "ElidedLabel.h"
#include "LabelDrawing.h"
#include "LabelInk.h"
#include "TextEdge.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>

namespace qvm::ui {
namespace {

template <class Model>
void watchState(Model& model, QWidget* widget) {
    watch(model.Visible, widget, [&model, widget] { widget->setVisible(model.Visible); });
    watch(model.Enabled, widget, [&model, widget] { widget->setEnabled(model.Enabled); });
}

void watchInk(Label& model, QLabel* widget) {
    watch(model.ForeColor, widget, [&model, widget] {
        if (auto* ink = widget->findChild<LabelInk*>()) {
            ink->show();
        } else if (model.ForeColor != Black) {
            new LabelInk(widget, [&model](const QColor& text, const QColor& ground) {
                return labelForeground(model.ForeColor, text, ground);
            });
        }
    });
}

template <class Model>
void bindPressed(Model& model, QAbstractButton* widget, const QString& name, std::function<void()> onClick) {
    nameWidget(widget, name);
    // A screen reader that lists the window would find a hidden button by its name.
    const auto show = [&model, widget] {
        const std::string text = model.Visible ? model.Text() : std::string();
        widget->setText(captionOf(text));
        widget->setAccessibleName(toQt(text));
        widget->setVisible(model.Visible);
    };
    watch(model.Text, widget, show);
    watch(model.Visible, widget, show);
    QObject::connect(widget, &QAbstractButton::clicked, widget, [click = std::move(onClick)] {
        if (click) {
            click();
        }
    });
    watch(model.Enabled, widget, [&model, widget] { widget->setEnabled(model.Enabled); });
}

QStringList entriesOf(const ListBox& model) {
    QStringList entries;
    for (const std::string& entry : model.Entries()) {
        entries += toQt(entry);
    }
    return entries;
}

} // namespace

void nameWidget(QWidget* widget, const QString& name, const QString& accessibleName) {
    widget->setObjectName(name);
    if (!accessibleName.isEmpty()) {
        widget->setAccessibleName(accessibleName);
    }
}

void bind(Label& model, QLabel* widget, const QString& name) {
    nameWidget(widget, name);
    widget->setTextFormat(Qt::PlainText);
    watch(model.Text, widget, [&model, widget] {
        widget->setText(toQt(model.Text()));
        widget->setAccessibleName(widget->text());
    });
    watchInk(model, widget);
    watchState(model, widget);
}

void bind(Label& model, ElidedLabel* widget, const QString& name) {
    nameWidget(widget, name);
    watch(model.Text, widget, [&model, widget] { widget->setFullText(toQt(model.Text())); });
    watchInk(model, widget);
    watchState(model, widget);
}

void bind(TextBox& model, QLineEdit* widget, const QString& name) {
    nameWidget(widget, name);
    if (model.MaxLength > 0) {
        widget->setMaxLength(model.MaxLength);
    }
    watch(model.Text, widget, [&model, widget] {
        const QString text = toQt(model.Text());
        if (widget->text() != text) {
            const QSignalBlocker quiet(widget);
            widget->setText(text);
        }
    });
    watch(model.Caret, widget, [&model, widget] { widget->setCursorPosition(model.Caret); });
    QObject::connect(widget, &QLineEdit::textEdited, widget,
                     [&model](const QString& text) { model.Text = fromQt(text); });
    model.SetFocus = [widget] { widget->setFocus(Qt::OtherFocusReason); };
    QObject::connect(widget, &QObject::destroyed, [&model] { model.SetFocus = {}; });
    watchState(model, widget);
}

void bind(Label& model, QAbstractButton* widget, const QString& name, std::function<void()> onClick) {
    bindPressed(model, widget, name, std::move(onClick));
}

void bind(Button& model, QAbstractButton* widget, const QString& name, std::function<void()> onClick) {
    bindPressed(model, widget, name, std::move(onClick));
}

void bind(CheckBox& model, QCheckBox* widget, const QString& name, std::function<void(bool)> onClick) {
    nameWidget(widget, name);
    watch(model.Text, widget, [&model, widget] {
        widget->setText(captionOf(model.Text()));
        widget->setAccessibleName(toQt(model.Text()));
    });
    watch(model.Checked, widget, [&model, widget] { widget->setChecked(model.Checked); });
    QObject::connect(widget, &QCheckBox::clicked, widget, [&model, widget, click = std::move(onClick)](bool on) {
        if (click) {
            click(on);
        } else {
            model.Checked = on;
        }
        widget->setChecked(model.Checked);
    });
    watchState(model, widget);
}

void bindOption(CheckBox& model, QRadioButton* widget, const QString& name, std::function<void()> onClick) {
    nameWidget(widget, name);
    watch(model.Text, widget, [&model, widget] {
        widget->setText(captionOf(model.Text()));
        widget->setAccessibleName(toQt(model.Text()));
    });
    watch(model.Checked, widget, [&model, widget] {
        widget->setFocusPolicy(model.Checked ? Qt::StrongFocus : Qt::ClickFocus);
        if (model.Checked) {
            widget->setChecked(true);
        }
    });
    QObject::connect(widget, &QRadioButton::clicked, widget, std::move(onClick));
}

void bindDisplay(CheckBox& model, QCheckBox* widget, const QString& name) {
    bind(model, widget, name);
    widget->setFocusPolicy(Qt::NoFocus);
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void bind(ProgressBar& model, QProgressBar* widget, const QString& name) {
    nameWidget(widget, name);
    const auto show = [&model, widget] {
        widget->setRange(model.Minimum, model.Maximum);
        // Beyond its range Qt would drop the value instead of holding it at the end.
        widget->setValue(std::clamp<int>(model.Value, widget->minimum(), widget->maximum()));
    };
    watch(model.Minimum, widget, show);
    watch(model.Maximum, widget, show);
    watch(model.Value, widget, show);
    watch(model.Visible, widget, [&model, widget] { widget->setVisible(model.Visible); });
}

void bind(ListBox& model, QComboBox* widget, const QString& name, std::function<void(int)> onSelect) {
    nameWidget(widget, name);
    widget->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    chooseThroughTree(widget);
    watch(model.Entries, widget, [&model, widget] {
        const QSignalBlocker quiet(widget);
        widget->clear();
        widget->addItems(entriesOf(model));
        // The box would keep the least width of its first entries.
        widget->setMinimumWidth(std::max(widget->minimumWidth(), widget->sizeHint().width()));
        widget->setCurrentIndex(model.Selected);
    });
    watch(model.Selected, widget, [&model, widget] {
        const QSignalBlocker quiet(widget);
        widget->setCurrentIndex(model.Selected);
    });
    QObject::connect(widget, &QComboBox::activated, widget, [&model, widget, select = std::move(onSelect)](int index) {
        if (select) {
            select(index);
        } else {
            model.Selected = index;
        }
        const QSignalBlocker quiet(widget);
        widget->setCurrentIndex(model.Selected);
    });
    watchState(model, widget);
}

void bind(ListBox& model, QListWidget* widget, const QString& name, std::function<void(int)> onSelect) {
    nameWidget(widget, name);
    watch(model.Entries, widget, [&model, widget] {
        const QSignalBlocker quiet(widget);
        widget->clear();
        widget->addItems(entriesOf(model));
        widget->setCurrentRow(model.Selected);
    });
    watch(model.Selected, widget, [&model, widget] {
        const QSignalBlocker quiet(widget);
        widget->setCurrentRow(model.Selected);
    });
    QObject::connect(widget, &QListWidget::currentRowChanged, widget,
                     [&model, widget, select = std::move(onSelect)](int row) {
                         if (select) {
                             select(row);
                         } else {
                             model.Selected = row;
                         }
                         const QSignalBlocker quiet(widget);
                         widget->setCurrentRow(model.Selected);
                     });
    watchState(model, widget);
}

void bind(Picture& model, QLabel* widget, const QString& name, PictureSet set, int size) {
    nameWidget(widget, name);
    widget->setFixedSize(size, size);
    auto* drawing = new LabelDrawing(widget, [&model, set, size](qreal ratio) {
        const QIcon icon = pictureIcon(set, model.Id);
        return icon.isNull() ? QPixmap() : icon.pixmap(QSize(size, size), ratio);
    });
    watch(model.Id, widget, [drawing] { drawing->show(); });
    watch(model.Name, widget, [&model, widget] {
        const QString said = toQt(model.Name());
        if (said != widget->accessibleName()) {
            widget->setAccessibleName(said);
            widget->setToolTip(said);
        }
    });
    watch(model.Visible, widget, [&model, widget] { widget->setVisible(model.Visible); });
}

namespace {

/// False when none was open.
bool closePopups() {
    QWidget* popup = QApplication::activePopupWidget();
    const bool any = popup != nullptr;
    while (popup != nullptr && popup->close()) {
        popup = QApplication::activePopupWidget();
    }
    return any;
}

} // namespace

void bind(MenuEntry& model, QAction* action, const QString& name, std::function<void()> onClick) {
    action->setObjectName(name);
    watch(model.Text, action, [&model, action] {
        action->setText(captionOf(model.Text()));
        action->setVisible(!model.Text().empty());
    });
    watch(model.Enabled, action, [&model, action] { action->setEnabled(model.Enabled); });
    if (!onClick) {
        return;
    }
    // Mouse and keys have closed the menu before. A screen reader chooses from it while it is open, and waits for the
    // end of its call, which must not be that of a box.
    QObject::connect(action, &QAction::triggered, action, [action, click = std::move(onClick)] {
        if (closePopups()) {
            QMetaObject::invokeMethod(action, click, Qt::QueuedConnection);
        } else {
            click();
        }
    });
}

QAction* addMenuEntry(QMenu* menu, MenuEntry& model, const QString& name, std::function<void()> onClick) {
    QAction* action = menu->addAction(QString());
    bind(model, action, name, std::move(onClick));
    return action;
}

namespace {

QMenu* entitled(QMenu* menu, MenuEntry& model, const QString& name) {
    menu->setObjectName(name + QStringLiteral(".Menu"));
    bind(model, menu->menuAction(), name, {});
    return menu;
}

} // namespace

QMenu* addMenu(QMenu* menu, MenuEntry& model, const QString& name) {
    return entitled(menu->addMenu(QString()), model, name);
}

QMenu* addMenu(QMenuBar* bar, MenuEntry& model, const QString& name) {
    return entitled(bar->addMenu(QString()), model, name);
}

} // namespace qvm::ui
