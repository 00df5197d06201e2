// What a screen reader finds: the tree of every window in every language.

#include "FrozenView.h"
#include "GridView.h"
#include "MonthView.h"
#include "Tour.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <utility>

namespace qvm::test {
namespace {

constexpr std::pair<std::string_view, QAccessible::Role> TopLevels[] = {
    {"F1", QAccessible::Dialog},
    {"F2", QAccessible::Window},
    {"F2-red", QAccessible::Window},
    {"F2-building", QAccessible::Window},
    {"Gebaeude", QAccessible::Dialog},
    {"Pc", QAccessible::Dialog},
    {"F2-yellow", QAccessible::Window},
    {"F2-file", QAccessible::PopupMenu},
    {"F2-calendars", QAccessible::PopupMenu},
    {"F2-clocks", QAccessible::PopupMenu},
    {"F3", QAccessible::Window},
    {"F3-month", QAccessible::Window},
    {"F3-list", QAccessible::Window},
    {"F3-delete", QAccessible::PopupMenu},
    {"F10", QAccessible::Window},
    {"F10-month", QAccessible::Window},
    {"F42-delete", QAccessible::PopupMenu},
    {"F4", QAccessible::Window},
    {"F4-info", QAccessible::Window},
    {"F4-slots", QAccessible::Window},
    {"F4-days", QAccessible::Window},
    {"F4-time", QAccessible::Window},
    {"F4-delete", QAccessible::PopupMenu},
    {"F41", QAccessible::Window},
    {"F41-info", QAccessible::Window},
    {"F41-slots", QAccessible::Window},
    {"F60", QAccessible::Window},
    {"F60-object", QAccessible::Window},
    {"F5", QAccessible::Dialog},
    {"F5-block", QAccessible::Dialog},
    {"F5-editor", QAccessible::Dialog},
    {"F5-list", QAccessible::Dialog},
    {"F5-rights", QAccessible::Dialog},
    {"F5-scrolled", QAccessible::Dialog},
    {"F5-extras", QAccessible::PopupMenu},
    {"F5-marking", QAccessible::PopupMenu},
    {"F5-reports", QAccessible::PopupMenu},
    {"F5-delete", QAccessible::PopupMenu},
    {"F5-key", QAccessible::PopupMenu},
    {"F5-learn", QAccessible::PopupMenu},
    {"F5-search", QAccessible::PopupMenu},
    {"F5-finger", QAccessible::PopupMenu},
    {"F51", QAccessible::Dialog},
    {"F51-error", QAccessible::Dialog},
    {"F51-done", QAccessible::Dialog},
    {"F6", QAccessible::Dialog},
    {"F6-editor", QAccessible::Dialog},
    {"F6-manual", QAccessible::Dialog},
    {"F7", QAccessible::Window},
    {"F7-found", QAccessible::Window},
    {"F7-extras", QAccessible::PopupMenu},
    {"F8", QAccessible::Dialog},
    {"F9", QAccessible::Dialog},
    {"F9-finished", QAccessible::Dialog},
    {"F9-cancelled", QAccessible::Dialog},
    {"F9-list", QAccessible::Dialog},
    {"F11", QAccessible::Dialog},
    {"F11-list", QAccessible::Dialog},
    {"F11-month", QAccessible::Dialog},
    {"F12", QAccessible::Window},
    {"F12-block", QAccessible::Window},
    {"F12-editor", QAccessible::Window},
    {"F12-list", QAccessible::Window},
    {"F12-priority", QAccessible::Window},
    {"F12-serial", QAccessible::Window},
    {"F12-extras", QAccessible::PopupMenu},
    {"F12-reports", QAccessible::PopupMenu},
    {"F12-delete", QAccessible::PopupMenu},
    {"F12-read", QAccessible::PopupMenu},
    {"F13", QAccessible::Window},
    {"F13-marked", QAccessible::Window},
    {"F14", QAccessible::Dialog},
    {"F15", QAccessible::Dialog},
    {"F16", QAccessible::Dialog},
    {"F17", QAccessible::Dialog},
    {"F18", QAccessible::Dialog},
    {"F19", QAccessible::Dialog},
    {"F19-none", QAccessible::Dialog},
    {"F20", QAccessible::Dialog},
    {"F20-editor", QAccessible::Dialog},
    {"F20-serial", QAccessible::Dialog},
    {"F20-searching", QAccessible::Dialog},
    {"F20-delete", QAccessible::PopupMenu},
    {"F20-read", QAccessible::PopupMenu},
    {"F20-scan", QAccessible::PopupMenu},
    {"F20-moved", QAccessible::Dialog},
    {"F91", QAccessible::Window},
    {"F91-running", QAccessible::Window},
    {"F92", QAccessible::Dialog},
    {"MessageBox", QAccessible::AlertMessage},
    {"MessageBox-two-lines", QAccessible::AlertMessage},
    {"MessageBox-about", QAccessible::AlertMessage}};

/// NoRole: of a window that is not in the list, as it came later.
QAccessible::Role TopLevelRole(std::string_view window) {
    const auto* found = std::find_if(std::begin(TopLevels), std::end(TopLevels),
                                     [window](const auto& row) { return row.first == window; });
    return found == std::end(TopLevels) ? QAccessible::NoRole : found->second;
}

bool Listed(std::string_view window) {
    return TopLevelRole(window) != QAccessible::NoRole;
}

/// The role that a screen reader knows a control of this kind by; NoRole for what is no control.
QAccessible::Role ControlRole(const QObject* object) {
    if (qobject_cast<const QPushButton*>(object) != nullptr || qobject_cast<const QToolButton*>(object) != nullptr) {
        return QAccessible::Button;
    }
    return qobject_cast<const QCheckBox*>(object) != nullptr        ? QAccessible::CheckBox
           : qobject_cast<const QRadioButton*>(object) != nullptr   ? QAccessible::RadioButton
           : qobject_cast<const QComboBox*>(object) != nullptr      ? QAccessible::ComboBox
           : qobject_cast<const QLineEdit*>(object) != nullptr      ? QAccessible::EditableText
           : qobject_cast<const QPlainTextEdit*>(object) != nullptr ? QAccessible::EditableText
           : qobject_cast<const QListWidget*>(object) != nullptr    ? QAccessible::List
           : qobject_cast<const ui::GridView*>(object) != nullptr   ? QAccessible::Table
           : qobject_cast<const QProgressBar*>(object) != nullptr   ? QAccessible::ProgressBar
                                                                    : QAccessible::NoRole;
}

bool IsCode(const QString& control) {
    return control == QLatin1String("F11.Text1") || control.startsWith(QLatin1String("F17.Text"));
}

std::string NameOf(const QAccessibleInterface& node) {
    return node.text(QAccessible::Name).toStdString();
}

/// Calls `visit` for the node and all below it; of a grid for its headings, two rows and its editors.
void Walk(QAccessibleInterface& node, const std::function<void(QAccessibleInterface& node)>& visit) {
    visit(node);
    const bool grid = qobject_cast<ui::GridView*>(node.object()) != nullptr;
    const int columns = grid ? node.tableInterface()->columnCount() : 0;
    const int cells = grid ? columns * (node.tableInterface()->rowCount() + 1) : 0;
    for (int n = 0; n < node.childCount(); ++n) {
        if (grid && n >= 3 * columns && n < cells) {
            n = cells - 1;
            continue;
        }
        if (QAccessibleInterface* child = node.child(n)) {
            Walk(*child, visit);
        }
    }
}

struct TreeLook : TourLook {
    static constexpr Turn When = Turn::Reads;
    int Windows = 0;

    virtual void look(QWidget& window, QAccessibleInterface& top, const char* name) = 0;

    void at(QWidget& window, const char* name) override {
        Windows += Listed(name) ? 1 : 0;
        QAccessibleInterface* top = QAccessible::queryAccessibleInterface(&window);
        ASSERT_NE(top, nullptr);
        look(window, *top, name);
    }
    void end() override { EXPECT_EQ(Windows, static_cast<int>(std::size(TopLevels))); }
};

struct Accessible_Tree : UiFixture, ::testing::WithParamInterface<std::string_view> {};

struct TitledTops : TreeLook {
    void look(QWidget& window, QAccessibleInterface& top, const char* name) override {
        EXPECT_EQ(top.role(), Listed(name)                        ? TopLevelRole(name)
                              : window.windowType() == Qt::Dialog ? QAccessible::Dialog
                                                                  : QAccessible::Window);
        if (top.role() != QAccessible::PopupMenu) {
            EXPECT_NE(NameOf(top), "");
        }
        if (!window.windowTitle().isEmpty()) {
            EXPECT_EQ(NameOf(top), window.windowTitle().toStdString());
        }
    }
};

TEST_P(Accessible_Tree, a_window_is_a_window_and_a_dialog_a_dialog_with_its_title) {
    take<TitledTops>(GetParam(), *this);
}

struct SpokenControls : TreeLook {
    void look(QWidget& window, QAccessibleInterface& top, const char* /*name*/) override {
        QStringList reached;
        Walk(top, [&](QAccessibleInterface& node) {
            auto* widget = qobject_cast<QWidget*>(node.object());
            // Parts of Qt's own that belong to a control, as the list of a combo box does, are not the program's.
            const bool own = widget != nullptr && !widget->objectName().isEmpty() &&
                             !widget->objectName().startsWith(QLatin1String("qt_"));
            const QAccessible::Role role = ControlRole(widget);
            if (!own || role == QAccessible::NoRole || !widget->isVisible()) {
                return;
            }
            SCOPED_TRACE(widget->objectName().toStdString());
            reached += widget->objectName();
            EXPECT_EQ(node.role(), role);
            EXPECT_NE(NameOf(node), "");
            EXPECT_NE(NameOf(node), widget->objectName().toStdString());
            const QAccessible::State state = node.state();
            EXPECT_EQ(static_cast<bool>(state.disabled), !widget->isEnabled());
            EXPECT_EQ(static_cast<bool>(state.focusable), widget->focusPolicy() != Qt::NoFocus);
            EXPECT_FALSE(state.invisible);
            EXPECT_EQ(static_cast<bool>(state.passwordEdit), IsCode(widget->objectName()));
            if (const auto* button = qobject_cast<QAbstractButton*>(widget)) {
                EXPECT_EQ(static_cast<bool>(state.checked), button->isChecked());
                EXPECT_EQ(static_cast<bool>(state.checkable), button->isCheckable());
            }
        });
        for (const QString& name : controlsOf(&window)) {
            if (!name.startsWith(QLatin1String("qt_")) && ControlRole(window.findChild<QWidget*>(name)) != 0) {
                EXPECT_EQ(reached.count(name), 1) << name.toStdString();
            }
        }
    }
};

TEST_P(Accessible_Tree, holds_every_control_by_its_role_name_and_state) {
    take<SpokenControls>(GetParam(), *this);
}

struct HiddenKeys : TreeLook {
    void look(QWidget& /*window*/, QAccessibleInterface& top, const char* /*name*/) override {
        Walk(top, [](QAccessibleInterface& node) {
            const auto* button = qobject_cast<QAbstractButton*>(node.object());
            if (button != nullptr && button->isHidden() && !button->objectName().startsWith(QLatin1String("qt_"))) {
                EXPECT_EQ(NameOf(node), "") << button->objectName().toStdString();
            }
        });
    }
};

TEST_P(Accessible_Tree, has_no_name_for_a_key_that_is_hidden) {
    take<HiddenKeys>(GetParam(), *this);
}

int ColumnsOf(std::string_view window, const ui::GridView& grid) {
    const bool groups = grid.objectName().endsWith(QLatin1String(".FGK3"));
    return window == "Gebaeude"        ? 7
           : window == "Pc"            ? 4
           : window.starts_with("F5")  ? 208
           : window.starts_with("F12") ? 15
           : window.starts_with("F13") ? 8
           : window.starts_with("F19") ? 6
           : window.starts_with("F20") ? 3
           : window.starts_with("F3")  ? 4
           : window.starts_with("F60") ? 4
           : window.starts_with("F10") ? 4
           : window.starts_with("F42") ? 5
           : window.starts_with("F4")  ? (groups ? 3 : 4)
                                       : 5;
}

/// Of several grids of a window the one that it lies over has it.
bool HasEditor(std::string_view window, const QWidget& grid) {
    const std::string_view state = window.substr(window.find('-') + 1);
    if (window.starts_with("F42-")) {
        return grid.objectName() == QLatin1String("F42.FGK42") && state != "delete";
    }
    if (window.starts_with("F4-") || window.starts_with("F41-")) {
        return (grid.objectName().endsWith(QLatin1String(".FGK3")) && state == "slots") ||
               (grid.objectName().endsWith(QLatin1String(".FGK1")) && (state == "days" || state == "time"));
    }
    return state == "editor" || state == "list" || state == "rights" || state == "priority" || state == "serial" ||
           (state == "month" && !window.starts_with("F11"));
}

struct HeadedColumns : TreeLook {
    int Grids = 0;

    void look(QWidget& window, QAccessibleInterface& /*top*/, const char* name) override {
        for (ui::GridView* grid : window.findChildren<ui::GridView*>()) {
            if (!grid->isVisible()) {
                continue;
            }
            Grids += Listed(name) ? 1 : 0;
            QAccessibleInterface* node = QAccessible::queryAccessibleInterface(grid);
            QAccessibleTableInterface* table = node->tableInterface();
            const int columns = table->columnCount();
            const int rows = table->rowCount();
            EXPECT_EQ(rows, grid->gridModel().rowCount());
            EXPECT_TRUE(columns == ColumnsOf(name, *grid) || !Listed(name)) << columns;
            // A grid's own editor follows its cells.
            const int editors = HasEditor(name, *grid) ? 1 : 0;
            ASSERT_EQ(node->childCount(), columns * (rows + 1) + editors);
            for (int n = 0; n < columns; ++n) {
                EXPECT_EQ(node->child(n)->role(), QAccessible::ColumnHeader);
                EXPECT_NE(NameOf(*node->child(n)), "") << n;
            }
            const int step = std::max(node->childCount() / 1000, 1); // of tens of thousands a sample
            for (int n = 0; n < node->childCount(); n += step) {
                ASSERT_EQ(node->indexOfChild(node->child(n)), n);
                ASSERT_EQ(node->child(n)->parent(), node);
            }
            EXPECT_EQ(node->child(-1), nullptr);
            EXPECT_EQ(node->child(node->childCount()), nullptr);
            EXPECT_EQ(table->cellAt(rows, 0), nullptr);
            EXPECT_EQ(table->cellAt(0, columns), nullptr);
            EXPECT_EQ(table->cellAt(-1, -1), nullptr);
            EXPECT_EQ(table->cellAt(0, 1), node->child(columns + 1));
            EXPECT_EQ(node->child(columns + 1)->tableCellInterface()->columnIndex(), 1);
            EXPECT_EQ(node->child(columns + 1)->tableCellInterface()->columnHeaderCells().value(0), node->child(1));
        }
    }
    void end() override {
        TreeLook::end();
        // F4 five and F41 three times two grids, once each a third one; F5 and F12 six times, F20 five times, F3 three
        // times, F10, F19, F6 with and without its editor, F7, F13, F60 and F91 twice, the virtual
        // building, the check of the PC; none where F6 shows its ports alone
        EXPECT_EQ(Grids, 54);
    }
};

TEST_P(Accessible_Tree, holds_of_a_grid_only_the_columns_that_have_a_heading) {
    take<HeadedColumns>(GetParam(), *this);
}

struct MonthBelowDialog : TreeLook {
    static constexpr Turn When = Turn::Closes;
    int Months = 0;

    void look(QWidget& window, QAccessibleInterface& top, const char* name) override {
        if (std::string_view(name) != "F11-month") {
            return;
        }
        ++Months;
        QAccessibleInterface* dialog = QAccessible::queryAccessibleInterface(window.parentWidget());
        ASSERT_EQ(top.parent(), dialog);
        EXPECT_EQ(dialog->child(dialog->indexOfChild(&top)), &top);
        window.close();
        EXPECT_EQ(dialog->indexOfChild(&top), -1);
        EXPECT_EQ(dialog->child(dialog->childCount()), nullptr);
    }
    void end() override {
        TreeLook::end();
        EXPECT_EQ(Months, 1);
    }
};

TEST_P(Accessible_Tree, finds_the_month_of_the_start_dialog_below_the_dialog) {
    take<MonthBelowDialog>(GetParam(), *this);
}

INSTANTIATE_TEST_SUITE_P(Languages, Accessible_Tree, ::testing::ValuesIn(Languages));

/// Names as a screen reader says them.
struct SpokenNames {
    std::string Language, Locks, List, Code, Count, Date, Month, Progress, Hours;
};

void PrintTo(const SpokenNames& names, std::ostream* out) {
    *out << names.Language;
}

struct SaidNames : TourLook {
    static constexpr Turn When = Turn::Types;
    std::map<std::string, std::string>
        Said; ///< by name of the control; with "?" what describes it, with "=" what it holds

    void at(QWidget& window, const char* name) override {
        if (std::string_view(name) == "F11") {
            QTest::keyClicks(window.findChild<QLineEdit*>(QStringLiteral("F11.Text1")), QStringLiteral("123"));
        } else if (std::string_view(name) == "F11-list") {
            return; // asks for another code
        }
        Walk(*QAccessible::queryAccessibleInterface(&window), [this](QAccessibleInterface& node) {
            if (node.object() != nullptr) {
                const std::string control = node.object()->objectName().toStdString();
                Said[control] = NameOf(node);
                Said[control + "?"] = node.text(QAccessible::Description).toStdString();
                Said[control + "="] = node.text(QAccessible::Value).toStdString();
            }
        });
    }
};

struct Spoken_Names : UiFixture, ::testing::WithParamInterface<SpokenNames> {};

TEST_P(Spoken_Names, are_words_of_the_language_in_use) {
    std::map<std::string, std::string> said = take<SaidNames>(GetParam().Language, *this).Said;
    const SpokenNames& names = GetParam();
    EXPECT_EQ(said["F13.FGK13"], names.Locks);
    EXPECT_EQ(said["F91.FGK91"], names.List);
    EXPECT_EQ(said["F11.Text1"], names.Code);
    EXPECT_EQ(said["F11.Text1?"], names.Count);
    EXPECT_EQ(said["F11.Text1="].find_first_of("0123456789"), std::string::npos);
    EXPECT_EQ(said["F11.Anzahl"], names.Count);
    EXPECT_EQ(said["F11.CutoffDate"], names.Date);
    EXPECT_EQ(said["F11.MonthView"], names.Month);
    EXPECT_EQ(said["F92.MonthView"], names.Month);
    EXPECT_EQ(said["F9.Balken1"], names.Progress);
    EXPECT_EQ(said["F92.Stunden"], names.Hours);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, Spoken_Names,
    ::testing::Values(SpokenNames{"Deutsch", "Schlösser", "Schlossliste", "Administrator-Code", "3 von 6",
                                  "Historie auslesen ab 13.02.2026", "Kalender", "Fortschritt", "Stunden"},
                      SpokenNames{"English", "Locks", "List of locks", "Administrator code", "3 of 6",
                                  "Read history from 13.02.2026", "Calendar", "Progress", "Hours"},
                      SpokenNames{"Francais", "Serrures", "Liste des serrures", "Code administrateur", "3 sur 6",
                                  "Lire l'historique depuis 13.02.2026", "Calendrier", "Progression", "Heures"},
                      SpokenNames{"Nederlands", "Sloten", "Lijst van sloten", "Beheerderscode", "3 van 6",
                                  "Historie lezen vanaf 13.02.2026", "Kalender", "Voortgang", "Uren"}));

} // namespace
} // namespace qvm::test
