#include "F9Window.h"

#include "Mnemonics.h"
#include "TextEdge.h"
#include "Worttafel.h"
#include "WrappingLabel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace qvm::ui {
namespace {

constexpr int StatePictureSize = 32, SignSize = 26;

} // namespace

F9Window::F9Window(F9& f9, QWidget* owner, QWidget* list)
    : WindowBase(f9, QStringLiteral("F9"), Stand::Centred, owner), f9_(f9) {
    setBeside(list);
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(12);
    makeHead();
    makeStatus();
    makeProgress();
    makeBoxes();
    content()->addSpacing(6);
    content()->addStretch();
    makeButtons();
    setLeastSize(500);
    // In a list the list's window has the keyboard, at every row. No window manager gives it to a window that takes
    // none.
    watch(f9_.InListe, this, [this] {
        setAttribute(Qt::WA_ShowWithoutActivating, f9_.InListe);
        if (windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus) != f9_.InListe()) {
            setWindowFlag(Qt::WindowDoesNotAcceptFocus, f9_.InListe);
        }
    });
    // A run under way is cancelled first; the window stays until the run has ended.
    finish([this] { f9_.Command2.Enabled ? f9_.Command2_Click() : f9_.Command1_Click(); });
}

void F9Window::setWords() {
    telegrams_->setAccessibleName(word(Word::Progress, f9_.kern.Config.Sprache));
    activity_->setAccessibleName(word(Word::Activity, f9_.kern.Config.Sprache));
}

void F9Window::makeHead() {
    auto* name = new QLabel(this);
    bind(f9_.NameLabel, name, QStringLiteral("F9.NameLabel"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    name->setFont(large);
    auto* picture = new QLabel(this);
    bind(f9_.Zustandsbild, picture, QStringLiteral("F9.Zustandsbild"), PictureSet::State, StatePictureSize);
    auto* state = new QLabel(this);
    bind(f9_.Label15, state, QStringLiteral("F9.Label15"));
    keepRoom(state);
    auto* row = new QHBoxLayout;
    row->addWidget(name, 1);
    row->addWidget(picture);
    row->addWidget(state);
    content()->addLayout(row);
}

void F9Window::makeStatus() {
    auto* sign = new QLabel(this);
    bind(f9_.Zeichen, sign, QStringLiteral("F9.Zeichen"), PictureSet::RunEnd, SignSize);
    auto* status = new WrappingLabel(1, this);
    bind(f9_.StatusLabel, status, QStringLiteral("F9.StatusLabel"));
    status->setAlignment(Qt::AlignLeft | Qt::AlignVCenter); // beside the middle of the sign
    auto* outcome = new WrappingLabel(2, this);
    bind(f9_.FolgeLabel, outcome, QStringLiteral("F9.FolgeLabel"));
    auto* row = new QGridLayout;
    row->setColumnStretch(1, 1);
    row->setVerticalSpacing(2);
    row->addWidget(sign, 0, 0, Qt::AlignVCenter);
    row->addWidget(status, 0, 1);
    row->addWidget(outcome, 1, 1);
    content()->addLayout(row);
}

void F9Window::makeProgress() {
    telegrams_ = new QProgressBar(this);
    bind(f9_.Balken1, telegrams_, QStringLiteral("F9.Balken1"));
    activity_ = new QProgressBar(this);
    bind(f9_.Balken2, activity_, QStringLiteral("F9.Balken2"));
    activity_->setFixedHeight(8);
    for (QProgressBar* bar : {telegrams_, activity_}) {
        bar->setTextVisible(false);
        keepRoom(bar);
        content()->addWidget(bar);
    }
    auto* step = new WrappingLabel(1, this);
    bind(f9_.SchrittLabel, step, QStringLiteral("F9.SchrittLabel"));
    content()->addWidget(step);
    auto* date = new QLabel(this);
    bind(f9_.DatumLabel, date, QStringLiteral("F9.DatumLabel"));
    auto* time = new QLabel(this);
    bind(f9_.ZeitLabel, time, QStringLiteral("F9.ZeitLabel"));
    auto* silence = new QLabel(this);
    bind(f9_.StilleLabel, silence, QStringLiteral("F9.StilleLabel"));
    keepRoom(silence);
    auto* row = new QHBoxLayout;
    row->setSpacing(24);
    row->addWidget(date);
    row->addWidget(time);
    row->addStretch();
    row->addWidget(silence);
    content()->addLayout(row);
}

void F9Window::makeBoxes() {
    auto* boxes = new QGridLayout;
    boxes->setHorizontalSpacing(24);
    boxes->setVerticalSpacing(6);
    for (int n = 0; n < static_cast<int>(f9_.Check.size()); ++n) {
        CheckBox& model = f9_.Check[static_cast<std::size_t>(n)];
        auto* box = new QCheckBox(this);
        bindDisplay(model, box, QStringLiteral("F9.Check%1").arg(n + 1));
        keepRoom(box);
        // Only the lock and the units that there are.
        watch(model.Text, box, [&model, box] {
            box->setText(captionOf(model.Text()));
            box->setAccessibleName(toQt(model.Text()));
            box->setVisible(!model.Text().empty());
        });
        boxes->addWidget(box, n % 3, n / 3);
    }
    content()->addLayout(boxes);
}

void F9Window::makeButtons() {
    auto* cancel = new QPushButton(this);
    bind(f9_.Command1, cancel, QStringLiteral("F9.Command1"), [this] { f9_.Command1_Click(); });
    auto* close = new QPushButton(this);
    bind(f9_.Command2, close, QStringLiteral("F9.Command2"), [this] { f9_.Command2_Click(); });
    content()->addLayout(buttonRow({cancel, close}));
    // The key that began the run may be pressed twice: no button is to hear the second time.
    cancel->setFocusPolicy(Qt::NoFocus);
    firstLetterMnemonic(f9_.Command1, cancel);
    firstLetterMnemonic(f9_.Command2, close);
    watch(f9_.Beendet, close, [this, close] {
        close->setFocusPolicy(f9_.Beendet ? Qt::StrongFocus : Qt::NoFocus);
        // What a screen reader says of the button that it comes to is the result of the run.
        const QStringList result{toQt(f9_.Zeichen.Name()), toQt(f9_.StatusLabel.Text()), toQt(f9_.FolgeLabel.Text())};
        close->setAccessibleDescription(f9_.Beendet ? result.join(QLatin1Char('\n')).trimmed() : QString());
        if (f9_.Beendet) {
            close->setFocus(Qt::OtherFocusReason);
        } else {
            close->clearFocus();
        }
    });
}

} // namespace qvm::ui
