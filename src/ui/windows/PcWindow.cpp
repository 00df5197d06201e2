#include "PcWindow.h"

#include "GridView.h"
#include "TextEdge.h"
#include "WrappingLabel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int LeastWidth = 720, LeastHeight = 380, ChecksWidth = 880, ChecksHeight = 430;
constexpr int DetailLines = 4;

QString controlName(const char* name) {
    return QStringLiteral("Pc.") + QLatin1String(name);
}

} // namespace

PcWindow::PcWindow(PcFenster& model, QWidget* main)
    : WindowBase(model, QStringLiteral("Pc"), Stand::OverMain, main), model_(model) {
    auto* stand = new QLabel(this);
    bind(model_.Stand, stand, controlName("Stand"));
    content()->addWidget(stand);
    grid_ = new GridView(model_.FGK, this);
    nameWidget(grid_, controlName("FGK"));
    grid_->gridModel().setPictures(PictureSet::Verdict);
    grid_->setBlocks(model_.Auswahl);
    content()->addWidget(grid_, 1);
    auto* detail = new WrappingLabel(DetailLines, this);
    bind(model_.Einzelheit, detail, controlName("Einzelheit"));
    content()->addWidget(detail);
    const auto button = [this](Button& key, const char* name, std::function<void()> onClick) {
        auto* widget = new QPushButton(this);
        ui::bind(key, widget, controlName(name), std::move(onClick));
        return widget;
    };
    QPushButton* again = button(model_.Erneut, "Erneut", [this] { model_.Erneut_Click(); });
    QPushButton* copy = button(model_.Kopieren, "Kopieren", [this] { copyReport(); });
    QPushButton* mend = button(model_.Beheben, "Beheben", [this] { model_.Beheben_Click(); });
    QPushButton* back = button(model_.Zurueck, "Zurueck", [this] { model_.Schliessen(); });
    content()->addLayout(buttonRow({again, copy, mend, back}));
    setLeastSize(LeastWidth, LeastHeight);
    resize(ChecksWidth, ChecksHeight);
    setFirst(grid_);
    finish([this] { model_.Schliessen(); });
}

void PcWindow::copyReport() {
    QGuiApplication::clipboard()->setText(toQt(model_.Bericht()));
    model_.Kopiert();
}

void PcWindow::setWords() {
    grid_->setAccessibleName(toQt(model_.FGK.Text(0, PcColumn::Check)));
    grid_->setColumns(columnWidths(model_.FGK, PcFenster::Breite), PcColumn::Finding);
}

} // namespace qvm::ui
