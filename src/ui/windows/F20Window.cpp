#include "F20Window.h"

#include "ElidedLabel.h"
#include "GridMenu.h"
#include "GridView.h"
#include "Mnemonics.h"
#include "OverlayBoxes.h"
#include "OverlayEditor.h"
#include "TextEdge.h"
#include "WrappingLabel.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>

namespace qvm::ui {

F20Window::F20Window(F20& f20, QWidget* locks)
    : WindowBase(f20, QStringLiteral("F20"), Stand::Centred, locks), f20_(f20) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(12);
    content()->addWidget(newHeading(f20.Schloss, QStringLiteral("F20.Schloss"), this));
    content()->addLayout(makeMode());
    auto* settings = new QHBoxLayout;
    times_.emplace(f20, f20.Frame2, QStringLiteral("F20"), QStringLiteral(".Frame2"), this);
    settings->addWidget(times_->group());
    settings->addWidget(makeSignal());
    content()->addLayout(settings);
    makeGrid();
    makeEditors();
    makeMenus();
    addGrid(grid_, makeBottom());
    setLeastSize(560, 420);
    finish([this] { f20_.Command1_Click(); });
}

F20Window::~F20Window() {
    f20_.Menue_Zeigen = {};
}

void F20Window::setWords() {
    grid_->setAccessibleName(toQt(f20_.Schloss.Text()));
    grid_->fitColumns();
    const auto call = [this](const char* list, const std::string& name) {
        findChild<QComboBox*>(QLatin1String(list))->setAccessibleName(toQt(name));
    };
    call("F20.Combo1", f20_.Label1.Text());
    call("F20.Combo5", f20_.Label3.Text());
    findChild<QProgressBar*>(QStringLiteral("F20.F20Prg01"))
        ->setAccessibleName(toQt(f20_.kern.Zeile(Line::WirelessUnit)));
    times_->setWords();
}

QLayout* F20Window::makeMode() {
    auto* caption = new QLabel(this);
    bind(f20_.Label1, caption, QStringLiteral("F20.Label1"));
    auto* mode = new QComboBox(this);
    bind(f20_.Combo1, mode, QStringLiteral("F20.Combo1"), [this](int entry) { f20_.Combo1_Click(entry); });
    caption->setBuddy(mode);
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(mode, 1);
    return row;
}

QGroupBox* F20Window::makeSignal() {
    QGroupBox* group = captionedFrame(f20_.Frame1, QStringLiteral("F20.Frame1"), this);
    auto* caption = new QLabel(group);
    bind(f20_.Label3, caption, QStringLiteral("F20.Label3"));
    auto* level = new QComboBox(group);
    bind(f20_.Combo5, level, QStringLiteral("F20.Combo5"), [this](int entry) { f20_.Combo5_Click(entry); });
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(level);
    row->addStretch();
    auto* flag = new QCheckBox(group);
    bind(f20_.Check2, flag, QStringLiteral("F20.Check2"), [this](bool on) { f20_.Check2_Click(on); });
    auto* lines = new QVBoxLayout(group);
    lines->addLayout(row);
    lines->addWidget(flag);
    return group;
}

void F20Window::makeGrid() {
    grid_ = new GridView(f20_.FGK20, this);
    nameWidget(grid_, QStringLiteral("F20.FGK20"));
    grid_->gridModel().setAlignment(UnitColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    grid_->setColumns(columnWidths(f20_.FGK20, F20::Breite), UnitColumn::Name);
    grid_->setBlocks(f20_.Auswahl);
    grid_->onKey = [this](int key) { f20_.FGK20_KeyPress(key); };
    grid_->takesAnyText = [](int column) { return column == UnitColumn::Name; };
    grid_->onMenuKey = [this] { f20_.FGK20_Kontext(); };
    grid_->onDoubleClick = [this](int row, int column) { f20_.FGK20_DblClick(row, column); };
    grid_->onMouseUp = [this](MouseButton button, int row, int column) { f20_.FGK20_MouseUp(button, row, column); };
    grid_->mayWrite = [this](int row, int column) { return f20_.Beschreibbar(row, column); };
    grid_->onWrite = [this](int row, int column, const std::string& text) { f20_.FGK20_Eintragen(row, column, text); };
}

void F20Window::makeEditors() {
    auto* name = new OverlayEditor(f20_.Text1, *grid_, QStringLiteral("F20.Text1"));
    name->onText = [this](const std::string& text) { f20_.Text1_Change(text); };
    name->onKey = [this](int key) { f20_.Text1_KeyPress(key); };
    name->onLostFocus = [this] { f20_.Text1_LostFocus(); };
    auto* serial = new OverlayBoxes(f20_.Serie.Boxes, f20_.Serie.Visible, *grid_,
                                    {QStringLiteral("F20.Text3"), QStringLiteral("F20.Text4"),
                                     QStringLiteral("F20.Text5"), QStringLiteral("F20.Text6")});
    serial->onText = [this](std::size_t box, const std::string& text) { f20_.Serie_Change(box, text); };
    serial->onKey = [this](std::size_t box, int key) { f20_.Serie_KeyPress(box, key); };
    serial->onEntered = [this](std::size_t box) { f20_.Serie.Betreten(box); };
    serial->onLostFocus = [this] { f20_.Serie_LostFocus(); };
}

void F20Window::makeMenus() {
    const auto add = [](QMenu* menu, MenuEntry& entry, const char* name, std::function<void()> onClick) {
        addMenuEntry(menu, entry, QLatin1String(name), std::move(onClick));
    };
    rowMenu_ = new QMenu(this);
    rowMenu_->setObjectName(QStringLiteral("F20.F20_Loe"));
    add(rowMenu_, f20_.F20_deleate, "F20.F20_deleate", [this] { f20_.F20_deleate_Click(); });
    addUndoEntries(
        rowMenu_, this, QStringLiteral("F20.F20"), f20_.F20_Undo, f20_.F20_Redo, [this] { f20_.F20_Undo_Click(); },
        [this] { f20_.F20_Redo_Click(); });
    serialMenu_ = new QMenu(this);
    serialMenu_->setObjectName(QStringLiteral("F20.FGK20PopUP"));
    QMenu* scan = addMenu(serialMenu_, f20_.SN_Asave, QStringLiteral("F20.SN_Asave"));
    add(scan, f20_.F20_Keypad, "F20.F20_Keypad", [this] { f20_.F20_Keypad_Click(); });
    add(scan, f20_.F20_Readunit, "F20.F20_Readunit", [this] { f20_.F20_Readunit_Click(); });
    add(serialMenu_, f20_.SN_Msave, "F20.SN_Msave", [this] { f20_.SN_Msave_Click(); });
    add(serialMenu_, f20_.SN_Codechange, "F20.SN_Codechange", [this] { f20_.SN_Codechange_Click(); });
    for (QMenu* menu : {rowMenu_, serialMenu_, scan}) {
        uniqueMnemonics(menu);
    }
    f20_.Menue_Zeigen = [this](F20Menu which) { popUp(which); };
}

void F20Window::popUp(F20Menu which) {
    popUpAtCell(*(which == F20Menu::F20_Loe ? rowMenu_ : serialMenu_), *grid_);
}

QLayout* F20Window::makeBottom() {
    auto* scan = new QProgressBar(this);
    bind(f20_.F20Prg01, scan, QStringLiteral("F20.F20Prg01"));
    keepRoom(scan);
    scan->setTextVisible(false);              // the line below says more
    auto* state = new WrappingLabel(2, this); // so long is what it says when something was found
    bind(f20_.Suchstand, state, QStringLiteral("F20.Suchstand"));
    auto* note = new ElidedLabel(this);
    bind(f20_.Hinweis, note, QStringLiteral("F20.Hinweis"));
    auto* accept = new QPushButton(this);
    bind(f20_.Command2, accept, QStringLiteral("F20.Command2"), [this] { f20_.Command2_Click(); });
    auto* cancel = new QPushButton(this);
    bind(f20_.Command1, cancel, QStringLiteral("F20.Command1"), [this] { f20_.Command1_Click(); });
    setDefaultButton(accept);
    auto* lines = new QVBoxLayout;
    lines->addWidget(scan);
    lines->addWidget(state);
    lines->addWidget(note);
    lines->addLayout(buttonRow({accept, cancel}));
    return lines;
}

} // namespace qvm::ui
