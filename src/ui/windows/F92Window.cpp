#include "F92Window.h"

#include "MonthView.h"
#include "Worttafel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace qvm::ui {
namespace {

constexpr int ListRows = 13, CaptionGap = 6;

} // namespace

F92Window::F92Window(F92& f92, QWidget* owner)
    : WindowBase(f92, QStringLiteral("F92"), Stand::Dialog, owner), f92_(f92) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(12);
    makeHead();
    makeChoice();
    makeButtons();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    setFirst(month_);
    finish([this] { f92_.Schliessen_Click(); }, false);
}

F92Window::~F92Window() {
    f92_.Tag_Geaendert = {};
}

void F92Window::setWords() {
    const std::string& language = f92_.kern.Config.Sprache;
    month_->setLanguage(language);
    hours_->setAccessibleName(word(Word::Hours, language));
    minutes_->setAccessibleName(word(Word::Minutes, language));
}

void F92Window::makeHead() {
    auto* head = new QLabel(this);
    bind(f92_.Kopf, head, QStringLiteral("F92.Kopf"));
    QFont large = head->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    head->setFont(large);
    head->setAlignment(Qt::AlignCenter);
    head->setMinimumWidth(head->fontMetrics().horizontalAdvance(QStringLiteral("00:00 / 00.00.0000")));
    content()->addWidget(head);
}

void F92Window::makeChoice() {
    month_ = new MonthView(QStringLiteral("F92.MonthView"), this);
    month_->onPick = [this](const Datum& day) { f92_.Tag_Waehlen(day); };
    // Arrow keys choose, too.
    connect(month_, &QCalendarWidget::selectionChanged, this, [this] { f92_.Tag_Waehlen(month_->day()); });
    f92_.Tag_Geaendert = [this] {
        month_->setFirstDay(f92_.Erster_Tag());
        month_->setDay(f92_.Tag);
    };
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(month_, 1);
    hours_ = addList(row, f92_.Stunden, "Stunden", "hh",
                     [this](int hour) { f92_.Zeit_Waehlen(hour, f92_.Minuten.Selected); });
    minutes_ = addList(row, f92_.Minuten, "Minuten", "mm",
                       [this](int minute) { f92_.Zeit_Waehlen(f92_.Stunden.Selected, minute); });
    content()->addLayout(row, 1);
}

QListWidget* F92Window::addList(QHBoxLayout* row, ListBox& model, const char* name, const char* caption,
                                std::function<void(int)> choose) {
    auto* list = new QListWidget(this);
    ui::bind(model, list, QStringLiteral("F92.") + QString::fromLatin1(name), std::move(choose));
    list->setFixedWidth(list->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
    // Whole rows, and as high as the month beside it.
    list->setFixedHeight(ListRows * list->sizeHintForRow(0) + 2 * list->frameWidth());
    auto* label = new QLabel(QString::fromLatin1(caption), this);
    label->setAlignment(Qt::AlignCenter);
    label->setBuddy(list);
    auto* column = new QVBoxLayout;
    column->setSpacing(CaptionGap);
    column->addWidget(label);
    column->addWidget(list);
    month_->setFixedHeight(column->sizeHint().height());
    row->addLayout(column);
    return list;
}

/// No key presses OK from elsewhere: the window comes with the present time in it, and a second Return behind the
/// question before it would start the list.
void F92Window::makeButtons() {
    auto* ok = new QPushButton(this);
    bind(f92_.OK, ok, QStringLiteral("F92.OK"), [this] { f92_.OK_Click(); });
    auto* cancel = new QPushButton(this);
    bind(f92_.Abbrechen, cancel, QStringLiteral("F92.Abbrechen"), [this] { f92_.Schliessen_Click(); });
    content()->addLayout(buttonRow({ok, cancel}));
}

} // namespace qvm::ui
