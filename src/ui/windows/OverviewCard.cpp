#include "OverviewCard.h"

#include "Bind.h"
#include "ElidedLabel.h"
#include "TextEdge.h"

#include <QGridLayout>
#include <QLabel>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int TextMargin = 6, RowGap = 2, ValueGap = 10, HalfGap = 24;
constexpr int LeastCharacters = 8; ///< of a value, however narrow the window
constexpr int Columns = 5;         ///< caption, value, gap, caption, value

/// What the text stands for, and why nothing happens at present.
QString tipOf(const Fact& fact) {
    const QString tip = toQt(fact.Tip());
    const QString why = toQt(fact.Warum());
    return tip.isEmpty() || why.isEmpty() ? tip + why : tip + QLatin1Char('\n') + why;
}

} // namespace

FactButton::FactButton(QWidget* parent) : QToolButton(parent) {
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    pressByReturn(this);
}

QSize FactButton::sizeHint() const {
    return {fontMetrics().averageCharWidth() * LeastCharacters + 2 * TextMargin, fontMetrics().height() + TextMargin};
}

void FactButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QString whole = option.text;
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const QRect room = rect().adjusted(TextMargin, 0, -TextMargin, 0);
    if (!isWaiting(this) && (hasFocus() || (option.state & QStyle::State_MouseOver) != 0)) {
        QFont font = painter.font();
        font.setUnderline(true);
        painter.setFont(font);
    }
    const QString shown = fontMetrics().elidedText(whole, Qt::ElideRight, room.width());
    style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), !isWaiting(this), shown,
                          foregroundRole());
}

OverviewCard::OverviewCard(F2& model, QWidget* parent) : QWidget(parent), f2_(model) {
    setObjectName(QStringLiteral("F2.Uebersicht"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(RowGap);
    grid->setHorizontalSpacing(ValueGap);
    grid->setColumnMinimumWidth(2, HalfGap - 2 * ValueGap);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(Columns - 1, 1);
    using Angabe = F2::Angabe;
    addFact(grid, 0, 0, Angabe::Adapter, "Adapter");
    addFact(grid, 0, 3, Angabe::Personen, "Personen");
    addFact(grid, 1, 0, Angabe::Anschluss, "Anschluss");
    addFact(grid, 1, 3, Angabe::Schloesser, "Schloesser");
    addFact(grid, 2, 0, Angabe::Funkkanal, "Funkkanal");
    addFact(grid, 2, 3, Angabe::Kanalwechsel, "Kanalwechsel");
}

void OverviewCard::addFact(QGridLayout* grid, int row, int column, F2::Angabe which, const char* name) {
    Fact& fact = f2_.Zeile(which);
    const QString base = objectName() + QLatin1Char('.') + QLatin1String(name);
    auto* caption = new QLabel(this);
    caption->setObjectName(base + QStringLiteral(".Caption"));
    auto* text = new ElidedLabel(this);
    text->setObjectName(base + QStringLiteral(".Text"));
    text->setIndent(TextMargin);
    auto* button = new FactButton(this);
    button->setObjectName(base);
    connect(button, &QToolButton::clicked, this, [this, which] { f2_.Angabe_Click(which); });
    const auto show = [&fact, caption, text, button] {
        const QString title = toQt(fact.Caption());
        const QString value = toQt(fact.Text());
        const QString spoken = title + QStringLiteral(": ") + value;
        caption->setText(title);
        const QString tip = tipOf(fact);
        text->setFullText(value);
        // A screen reader that lists the window would find the one that is hidden by its name.
        button->setText(fact.Leads ? value : QString());
        setWaiting(button, toQt(fact.Warum()));
        text->setAccessibleName(fact.Leads ? QString() : spoken);
        button->setAccessibleName(fact.Leads ? spoken : QString());
        text->setAccessibleDescription(tip);
        button->setAccessibleDescription(tip);
        text->setTip(tip);
        button->setToolTip(tip.isEmpty() ? value : tip);
        text->setVisible(!fact.Leads);
        button->setVisible(fact.Leads);
    };
    watch(fact.Caption, button, show);
    watch(fact.Text, button, show);
    watch(fact.Tip, button, show);
    watch(fact.Warum, button, show);
    watch(fact.Leads, button, show);
    grid->addWidget(caption, row, column, Qt::AlignLeft | Qt::AlignVCenter);
    grid->addWidget(text, row, column + 1);
    grid->addWidget(button, row, column + 1);
}

} // namespace qvm::ui
