#include "F51Window.h"

#include "Worttafel.h"
#include "WrappingLabel.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <utility>

namespace qvm::ui {
namespace {

constexpr int PictureSize = 56;

} // namespace

F51Window::F51Window(F51& f51, QWidget* users)
    : WindowBase(f51, QStringLiteral("F51"), Stand::Centred, users), f51_(f51), bar_(new QProgressBar(this)) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->addLayout(makeStep());
    bind(f51.Balken, bar_, QStringLiteral("F51.Balken"));
    bar_->setTextVisible(false);
    content()->addWidget(bar_);
    auto* error = new WrappingLabel(2, this); // in another language than German it is said twice
    bind(f51.Fehler, error, QStringLiteral("F51.Fehler"));
    keepRoom(error);
    content()->addWidget(error);
    content()->addStretch();
    content()->addLayout(makeButtons());
    setLeastSize(500);
    finish([this] { f51_.Command1_Click(); });
}

void F51Window::setWords() {
    bar_->setAccessibleName(word(Word::Progress, f51_.kern.Config.Sprache));
}

/// The pictures lie in one place, as one at most is to be seen.
QLayout* F51Window::makeStep() {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(16);
    grid->setColumnMinimumWidth(0, PictureSize);
    for (const auto& [model, name] : {std::pair{&f51_.Arbeit, "F51.Arbeit"}, std::pair{&f51_.Fertig, "F51.Fertig"},
                                      std::pair{&f51_.Fehlbild, "F51.Fehlbild"}}) {
        auto* picture = new QLabel(this);
        bind(*model, picture, QLatin1String(name), PictureSet::Enrolment, PictureSize);
        grid->addWidget(picture, 0, 0, 2, 1, Qt::AlignCenter);
    }
    auto* advice = new WrappingLabel(2, this);
    bind(f51_.Anleitung, advice, QStringLiteral("F51.Anleitung"));
    QFont bold = advice->font();
    bold.setBold(true);
    advice->setFont(bold);
    auto* step = new QLabel(this);
    bind(f51_.Schritt, step, QStringLiteral("F51.Schritt"));
    grid->addWidget(advice, 0, 1, Qt::AlignVCenter);
    grid->addWidget(step, 1, 1);
    return grid;
}

QLayout* F51Window::makeButtons() {
    auto* cancel = new QPushButton(this);
    bind(f51_.Command1, cancel, QStringLiteral("F51.Command1"), [this] { f51_.Command1_Click(); });
    auto* back = new QPushButton(this);
    bind(f51_.Command2, back, QStringLiteral("F51.Command2"), [this] { f51_.Command2_Click(); });
    return buttonRow({cancel, back});
}

} // namespace qvm::ui
