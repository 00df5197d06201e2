#include "F91Window.h"

#include "ElidedLabel.h"
#include "GridFilterBar.h"
#include "GridView.h"
#include "TextEdge.h"
#include "Worttafel.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int FrozenListColumns = 2; ///< number and name

} // namespace

F91Window::F91Window(F91& f91, QWidget* main)
    : WindowBase(f91, QStringLiteral("F91"), Stand::InPlaceOfMain, main), f91_(f91) {
    content()->setContentsMargins(12, 12, 12, 12);
    content()->setSpacing(8);
    makeGrid();
    makeState();
    makeButtons();
    setLeastSize(520, 340);
    grid_->setFocus();
    // Escape leaves a list; it does not stop one whose row is under way.
    finish({.onClose = [this] { leave(); }, .onEscape = [this] { f91_.Escape(); }});
}

F91Window::~F91Window() {
    f91_.Zeile_Zeigen = {};
}

void F91Window::setWords() {
    const std::string& language = f91_.kern.Config.Sprache;
    grid_->setAccessibleName(word(Word::LockList, language));
    filter_->setWords(word(Word::FilterLocks, language), language);
    bar_->setAccessibleName(word(Word::Progress, language));
}

void F91Window::leave() {
    f91_.Command1.Enabled ? f91_.Command1_Click() : f91_.Command2_Click();
}

void F91Window::makeGrid() {
    filter_ = new GridFilterBar(f91_.Filter, QStringLiteral("F91.FGK91"), this);
    content()->addWidget(filter_);
    grid_ = new GridView(f91_.FGK91, this);
    nameWidget(grid_, QStringLiteral("F91.FGK91"));
    GridModel& model = grid_->gridModel();
    model.setAlignment(F91Column::Number, Qt::AlignRight | Qt::AlignVCenter);
    model.setAlignment(F91Column::Mark, Qt::AlignCenter);
    model.setPictures(PictureSet::List);
    model.setTip(F91Column::Mark, [this](int row) {
        return toQt(row == 0 ? Marken_Legende(f91_.kern)
                             : Marke_Erklaeren(f91_.kern, f91_.FGK91.Text(row, F91Column::Mark)));
    });
    grid_->setColumns({650, 3500, 2000, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 600, 7800}, F91Column::StateText);
    grid_->setFrozenColumns(FrozenListColumns);
    f91_.Zeile_Zeigen = [this](int row) { grid_->scrollToRow(row); };
    grid_->setBlocks(f91_.Auswahl);
    grid_->setFilter(f91_.Filter);
    filter_->leadTo(grid_);
    content()->addWidget(grid_, 1);
}

void F91Window::makeState() {
    auto* status = new ElidedLabel(this);
    bind(f91_.StatusLabel, status, QStringLiteral("F91.StatusLabel"));
    QFont bold = status->font();
    bold.setBold(true);
    status->setFont(bold);
    status->setMinimumHeight(status->fontMetrics().lineSpacing() + 2);
    keepRoom(status);
    auto* progress = new QLabel(this);
    bind(f91_.StandLabel, progress, QStringLiteral("F91.StandLabel"));
    progress->setWordWrap(true);
    keepRoom(progress);
    auto* hint = new QLabel(this);
    bind(f91_.Hinweis, hint, QStringLiteral("F91.Hinweis"));
    hint->setWordWrap(true);
    keepRoom(hint);
    bar_ = new QProgressBar(this);
    bind(f91_.Balken, bar_, QStringLiteral("F91.Balken"));
    bar_->setTextVisible(false);
    keepRoom(bar_);
    content()->addWidget(status);
    content()->addWidget(progress);
    content()->addWidget(hint);
    content()->addWidget(bar_);
    auto* times = new QHBoxLayout;
    times->setSpacing(24);
    const std::pair<Label*, const char*> labels[] = {
        {&f91_.StartLabel, "F91.StartLabel"}, {&f91_.JetztLabel, "F91.JetztLabel"}, {&f91_.RestLabel, "F91.RestLabel"}};
    for (const auto& [model, name] : labels) {
        auto* label = new ElidedLabel(this);
        label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        bind(*model, label, QString::fromLatin1(name));
        keepRoom(label);
        times->addWidget(label);
    }
    times->addStretch();
    content()->addLayout(times);
}

void F91Window::makeButtons() {
    auto* stop = new QPushButton(this);
    bind(f91_.Command2, stop, QStringLiteral("F91.Command2"), [this] { f91_.Command2_Click(); });
    auto* close = new QPushButton(this);
    bind(f91_.Command1, close, QStringLiteral("F91.Command1"), [this] { f91_.Command1_Click(); });
    content()->addLayout(buttonRow({stop, close}));
}

} // namespace qvm::ui
