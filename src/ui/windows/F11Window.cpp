#include "F11Window.h"

#include "KeyEdit.h"
#include "MonthView.h"
#include "TextEdge.h"
#include "Words.h"
#include "Worttafel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace qvm::ui {

F11Window::F11Window(F11& f11, QWidget* owner)
    : WindowBase(f11, QStringLiteral("F11"), Stand::Centred, owner), f11_(f11) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(12);
    makeCode();
    makeAdapters();
    makeCutoff();
    makePatience();
    auto* keep = new QCheckBox(this);
    bind(f11.Check1, keep, QStringLiteral("F11.Check1"));
    content()->addWidget(keep);
    content()->addStretch();
    makeButtons();
    setLeastSize(420);
    finish([this] { f11_.Cancel_Click(); });
}

void F11Window::setWords() {
    adapterCaption_->setText(word(Word::Adapter, f11_.kern.Config.Sprache));
    adapters_->setAccessibleName(adapterCaption_->text());
    month_->setLanguage(f11_.kern.Config.Sprache);
    tellCount();
    nameDate();
}

void F11Window::makeCode() {
    content()->addWidget(newHeading(f11_.Schloss, QStringLiteral("F11.Schloss"), this));
    auto* prompt = new QLabel(this);
    bind(f11_.Prompt, prompt, QStringLiteral("F11.Prompt"));
    auto* code = code_ = new KeyEdit(f11_.Text1, QStringLiteral("F11.Text1"), this);
    code->setEchoMode(QLineEdit::Password);
    code->onKey = [this](int key) { f11_.Text1_KeyPress(key); };
    QFont wide = code->font();
    wide.setPointSizeF(wide.pointSizeF() * 1.5);
    wide.setLetterSpacing(QFont::AbsoluteSpacing, 6);
    code->setFont(wide);
    code->setMinimumWidth(QFontMetrics(wide).horizontalAdvance(QStringLiteral("******")) + 60);
    prompt->setBuddy(code);
    auto* count = count_ = new QLabel(this);
    bind(f11_.Anzahl, count, QStringLiteral("F11.Anzahl"));
    watch(f11_.Anzahl.Text, count, [this] { tellCount(); });
    count->setMinimumWidth(count->fontMetrics().horizontalAdvance(QStringLiteral("00")));
    auto* row = new QHBoxLayout;
    row->addWidget(code, 1);
    row->addWidget(count);
    content()->addWidget(prompt);
    content()->addLayout(row);
    // A screen reader says what the box is for, not what stands in it.
    watch(f11_.Prompt.Text, prompt, [this, prompt, code] {
        prompt->setText(toQt(f11_.Prompt.Text()));
        code->setAccessibleName(prompt->text());
    });
}

void F11Window::makeCutoff() {
    auto* caption = new QLabel(this);
    bind(f11_.CutoffText, caption, QStringLiteral("F11.CutoffText"));
    date_ = new QPushButton(ownIcon(QStringLiteral("calendar")), QString(), this);
    bind(f11_.CutoffDate, date_, QStringLiteral("F11.CutoffDate"), [this] { pickDate(); });
    watch(f11_.CutoffDate.Text, date_, [this] { nameDate(); });
    month_ = new MonthView(QStringLiteral("F11.MonthView"), this);
    month_->hide();
    month_->makePopup();
    month_->onPick = [this](const Datum& day) {
        month_->close();
        f11_.Datum_Waehlen(day);
    };
    auto* row = new QHBoxLayout;
    row->addWidget(caption, 1);
    row->addWidget(date_);
    content()->addLayout(row);
}

/// The box shows nothing of the code; how much of it stands is said, too.
void F11Window::tellCount() {
    const std::string count = Wort(f11_.kern, Word::CodeCount, {f11_.Anzahl.Text(), std::to_string(F11::CodeLength)});
    count_->setText(toQt(f11_.Anzahl.Text()));
    count_->setAccessibleName(toQt(count));
    code_->setAccessibleDescription(toQt(count));
}

/// A date alone does not say what it is for.
void F11Window::nameDate() {
    date_->setText(captionOf(f11_.CutoffDate.Text()));
    date_->setAccessibleName(toQt(f11_.CutoffText.Text()) + QLatin1Char(' ') + toQt(f11_.CutoffDate.Text()));
}

void F11Window::makeAdapters() {
    adapterCaption_ = new QLabel(this);
    adapters_ = new QComboBox(this);
    bind(f11_.Combo1, adapters_, QStringLiteral("F11.Combo1"));
    adapterCaption_->setBuddy(adapters_);
    // There is none to choose unless the adapters are told apart.
    watch(f11_.Combo1.Visible, adapters_, [this] {
        adapterCaption_->setVisible(f11_.Combo1.Visible);
        adapters_->setVisible(f11_.Combo1.Visible);
    });
    auto* row = new QHBoxLayout;
    row->addWidget(adapterCaption_);
    row->addWidget(adapters_, 1);
    content()->addLayout(row);
}

void F11Window::makePatience() {
    auto* caption = new QLabel(this);
    bind(f11_.GeduldText, caption, QStringLiteral("F11.GeduldText"));
    auto* choice = new QComboBox(this);
    bind(f11_.Geduld, choice, QStringLiteral("F11.Geduld"));
    caption->setBuddy(choice);
    auto* row = new QHBoxLayout;
    row->addWidget(caption, 1);
    row->addWidget(choice);
    content()->addLayout(row);
    watch(f11_.GeduldText.Text, caption, [this, caption, choice] {
        caption->setText(toQt(f11_.GeduldText.Text()));
        choice->setAccessibleName(caption->text());
    });
}

void F11Window::makeButtons() {
    auto* ok = new QPushButton(this);
    bind(f11_.OK, ok, QStringLiteral("F11.OK"), [this] { f11_.OK_Click(); });
    auto* cancel = new QPushButton(this);
    bind(f11_.Cancel, cancel, QStringLiteral("F11.Cancel"), [this] { f11_.Cancel_Click(); });
    content()->addSpacing(8);
    content()->addLayout(buttonRow({ok, cancel}));
    setDefaultButton(ok);
}

void F11Window::pickDate() {
    month_->setLastDay(f11_.Letzter_Tag());
    if (const auto day = f11_.Stichtag()) {
        month_->setDay(*day);
    }
    month_->popUpUnder(date_);
}

} // namespace qvm::ui
