#include "BuildingWindow.h"

#include "Geometry.h"
#include "GridView.h"
#include "ListenTimeBox.h"
#include "TextEdge.h"
#include "Worttafel.h"
#include "WrappingLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int LeastWidth = 720, LeastHeight = 400, FirstWidth = 860, FirstHeight = 470, CodeWidth = 100;

QString controlName(const char* name) {
    return QStringLiteral("Gebaeude.") + QLatin1String(name);
}

} // namespace

BuildingWindow::BuildingWindow(GebaeudeFenster& model)
    : WindowBase(model, QStringLiteral("Gebaeude"), Stand::Dialog, nullptr), model_(model) {
    makeGrid();
    content()->addWidget(grid_, 1);
    content()->addLayout(makeDeviceRow());
    auto* groups = new QHBoxLayout;
    groups->addWidget(makeDoor(), 1);
    groups->addWidget(makeDesk(), 1);
    content()->addLayout(groups);
    content()->addLayout(makeAdapterRow());
    auto* says = new WrappingLabel(2, this);
    bind(model_.Ergebnis, says, controlName("Ergebnis"));
    content()->addWidget(says);
    setLeastSize(LeastWidth, LeastHeight);
    resize(FirstWidth, FirstHeight);
    setFirst(grid_);
    finish([this] { model_.Schliessen(); }, false);
}

QPushButton* BuildingWindow::button(Button& model, const char* name, std::function<void()> onClick) {
    auto* widget = new QPushButton(this);
    ui::bind(model, widget, controlName(name), std::move(onClick));
    return widget;
}

void BuildingWindow::makeGrid() {
    grid_ = new GridView(model_.FGK, this);
    nameWidget(grid_, controlName("FGK"));
    GridModel& cells = grid_->gridModel();
    for (const int column : {BuildingColumn::Channel, BuildingColumn::Users, BuildingColumn::Events}) {
        cells.setAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    grid_->setBlocks(model_.Auswahl);
}

QLayout* BuildingWindow::makeDeviceRow() {
    auto* caption = new QLabel(this);
    bind(model_.Uhrwort, caption, controlName("Uhrwort"));
    auto* clock = new QComboBox(this);
    bind(model_.Uhr, clock, controlName("Uhr"), [this](int entry) { model_.Uhr_Click(entry); });
    clock_ = clock;
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(clock);
    row->addStretch();
    row->addWidget(button(model_.Wegnehmen, "Wegnehmen", [this] { model_.Wegnehmen_Click(); }));
    return row;
}

QGroupBox* BuildingWindow::makeDoor() {
    QGroupBox* group = captionedFrame(model_.Tuer, controlName("Tuer"), this);
    auto* code = new QLineEdit(group);
    bind(model_.Code, code, controlName("Code"));
    code->setFixedWidth(CodeWidth);
    // A screen reader changes it, too, which counts as no edit.
    connect(code, &QLineEdit::textChanged, this, [this](const QString& text) { model_.Code_Change(fromQt(text)); });
    connect(code, &QLineEdit::returnPressed, this, [this] { model_.Eingeben_Click(); });
    code_ = code;
    auto* row = new QHBoxLayout(group);
    row->addWidget(code);
    row->addWidget(button(model_.Eingeben, "Eingeben", [this] { model_.Eingeben_Click(); }));
    row->addWidget(button(model_.Vorhalten, "Vorhalten", [this] { model_.Vorhalten_Click(); }));
    row->addStretch();
    return group;
}

QGroupBox* BuildingWindow::makeDesk() {
    QGroupBox* group = captionedFrame(model_.Tisch, controlName("Tisch"), this);
    auto* things = new QComboBox(group);
    bind(model_.Sachen, things, controlName("Sachen"));
    things->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    things_ = things;
    QPushButton* hold = button(model_.Auflegen, "Auflegen", [this] { model_.Auflegen_Click(); });
    auto* card = new QCheckBox(group);
    bind(model_.Karte, card, controlName("Karte"), [this](bool on) { model_.Karte_Click(on); });
    auto* row = new QHBoxLayout(group);
    row->addWidget(things);
    row->addWidget(hold);
    row->addStretch();
    row->addWidget(card);
    return group;
}

QLayout* BuildingWindow::makeAdapterRow() {
    auto* caption = new QLabel(this);
    bind(model_.Adapterwort, caption, controlName("Adapterwort"));
    auto* adapters = new QComboBox(this);
    bind(model_.Adapter, adapters, controlName("Adapter"), [this](int entry) { model_.Adapter_Click(entry); });
    adapters->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    adapters_ = adapters;
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(adapters);
    row->addStretch();
    row->addWidget(button(model_.Ziehen, "Ziehen", [this] { model_.Ziehen_Click(); }));
    return row;
}

/// In the corner where it covers least of the windows that it is used beside.
void BuildingWindow::showEvent(QShowEvent* event) {
    WindowBase::showEvent(event);
    if (!event->spontaneous()) {
        const QRect room = screen()->availableGeometry();
        move(withinRoom(room.bottomRight(), frameGeometry().size(), room));
    }
}

void BuildingWindow::setWords() {
    const std::string& language = model_.kern.Config.Sprache;
    grid_->setAccessibleName(toQt(model_.FGK.Text(0, BuildingColumn::Device)));
    grid_->setColumns(columnWidths(model_.FGK, GebaeudeFenster::Breite), BuildingColumn::State);
    code_->setAccessibleName(word(Word::BuildingCode, language));
    clock_->setAccessibleName(toQt(model_.Uhrwort.Text()));
    things_->setAccessibleName(toQt(model_.Tisch.Text()));
    adapters_->setAccessibleName(toQt(model_.Adapterwort.Text()));
}

} // namespace qvm::ui
