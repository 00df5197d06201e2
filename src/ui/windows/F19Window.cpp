#include "F19Window.h"

#include "ElidedLabel.h"
#include "GridView.h"
#include "Pictures.h"
#include "TextEdge.h"
#include "WrappingLabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qvm::ui {

F19Window::F19Window(F19& f19, QWidget* owner)
    : WindowBase(f19, QStringLiteral("F19"), Stand::Centred, owner), f19_(f19) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(12);
    makeGrid();
    content()->addWidget(grid_, 1);
    content()->addLayout(makeChosen());
    times_.emplace(f19, f19.Frame1, QStringLiteral("F19"), QStringLiteral(".Frame1"), this);
    content()->addWidget(times_->group());
    makeBottom();
    setLeastSize(700, 400);
    setFirst(grid_);
    finish([this] { f19_.Command1_Click(); });
}

void F19Window::makeGrid() {
    grid_ = new GridView(f19_.FGK19, this);
    nameWidget(grid_, QStringLiteral("F19.FGK19"));
    GridModel& model = grid_->gridModel();
    model.setPictures(PictureSet::RunEnd);
    model.setBar(ScanColumn::Bar);
    model.setAlignment(ScanColumn::Signal, Qt::AlignRight | Qt::AlignVCenter);
    for (const int column : {ScanColumn::Spare, ScanColumn::Bar}) {
        model.setTip(column, [this, column](int row) { return toQt(f19_.Tip(row, column)); });
    }
    grid_->setBlocks(f19_.Auswahl);
    grid_->onChoose = [this](int row, int /*column*/) { f19_.FGK19_DblClick(row); };
    grid_->onKey = [this](int key) { f19_.FGK19_KeyPress(key); };
}

void F19Window::setWords() {
    grid_->setAccessibleName(toQt(f19_.Label3.Text()));
    for (const int picture : {RunSign::Done, RunSign::Attention}) {
        grid_->gridModel().setPictureText(ScanColumn::Spare, picture, toQt(f19_.Bildtext(picture)));
    }
    grid_->setColumns(columnWidths(f19_.FGK19, F19::Breite), ScanColumn::Bar);
    times_->setWords();
}

QLayout* F19Window::makeChosen() {
    auto* caption = new QLabel(this);
    bind(f19_.Label3, caption, QStringLiteral("F19.Label3"));
    auto* chosen = new ElidedLabel(this);
    bind(f19_.Label1, chosen, QStringLiteral("F19.Label1"));
    auto* line = new QHBoxLayout;
    line->addWidget(caption);
    line->addWidget(chosen, 1);
    return line;
}

void F19Window::makeBottom() {
    auto* note = new WrappingLabel(2, this);
    bind(f19_.Hinweis, note, QStringLiteral("F19.Hinweis"));
    auto* accept = new QPushButton(this);
    bind(f19_.Command2, accept, QStringLiteral("F19.Command2"), [this] { f19_.Command2_Click(); });
    auto* cancel = new QPushButton(this);
    bind(f19_.Command1, cancel, QStringLiteral("F19.Command1"), [this] { f19_.Command1_Click(); });
    content()->addWidget(note);
    content()->addLayout(buttonRow({accept, cancel}));
    setDefaultButton(accept);
}

} // namespace qvm::ui
