#include "LinkCard.h"

#include "Bind.h"
#include "F6.h"
#include "LabelDrawing.h"
#include "Pictures.h"
#include "TextEdge.h"
#include "Theme.h"
#include "Worttafel.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int LampSize = 28, AdapterSize = 20, CardMargin = 16, ColumnGap = 12, ReasonGap = 6;
constexpr int ReasonLines = 3; ///< of the longest reason with a device and a name of usual length

/// A green light stays green while an adapter is silent; then it is not to be called ready.
Word lightWord(const F2& f2) {
    const Colour light = f2.Label1.ForeColor;
    if (light == Lampe::Gruen && f2.Verbunden == 0 && !f2.Meldezeile.Text().empty()) {
        return Word::LightRed;
    }
    return light == Lampe::Gruen ? Word::LightGreen : light == Lampe::Gelb ? Word::LightYellow : Word::LightRed;
}

} // namespace

LinkCard::LinkCard(F2& model, QWidget* parent)
    : QFrame(parent), f2_(model), lamp_(new QLabel(this)), state_(new QLabel(this)), reason_(new QLabel(this)) {
    setObjectName(QStringLiteral("F2.Card"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setBackgroundRole(QPalette::Window);
    setAutoFillBackground(true);
    lamp_->setObjectName(QStringLiteral("F2.Label1"));
    lamp_->setFixedSize(LampSize, LampSize);
    light_ = new LabelDrawing(lamp_, [this](qreal ratio) { return lampPixmap(f2_.Label1.ForeColor, LampSize, ratio); });
    state_->setObjectName(QStringLiteral("F2.State"));
    QFont font = state_->font();
    font.setPointSizeF(font.pointSizeF() * 1.15);
    font.setBold(true);
    state_->setFont(font);
    // The keyboard rests here when the program starts: no key does anything to it, and its words are spoken.
    state_->setFocusPolicy(Qt::TabFocus);
    setFocusProxy(state_);
    auto* picture = new QLabel(this);
    f2_.Picture1.Id = AdapterPicture::Present;
    bind(f2_.Picture1, picture, QStringLiteral("F2.Picture1"), PictureSet::Adapter, AdapterSize);
    auto* adapter = new QLabel(this);
    bind(f2_.Label7, adapter, QStringLiteral("F2.Label7"));
    makeReason();
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(CardMargin, CardMargin, CardMargin, CardMargin);
    grid->setHorizontalSpacing(ColumnGap);
    grid->setVerticalSpacing(ReasonGap);
    grid->setColumnStretch(1, 1);
    grid->addWidget(lamp_, 0, 0);
    grid->addWidget(state_, 0, 1);
    grid->addWidget(picture, 0, 2);
    grid->addWidget(adapter, 0, 3);
    grid->addWidget(reason_, 1, 1, 1, 3);
}

void LinkCard::makeReason() {
    reason_->setObjectName(QStringLiteral("F2.Reason"));
    reason_->setTextFormat(Qt::PlainText);
    reason_->setWordWrap(true);
    // It may hold a command to be typed elsewhere.
    reason_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    reason_->setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    reason_->setSizePolicy(policy);
    reason_->hide();
}

void LinkCard::showLight() {
    const QString state = word(lightWord(f2_), f2_.kern.Config.Sprache);
    const QString reason = toQt(f2_.Meldezeile.Text());
    light_->show();
    lamp_->setAccessibleName(state);
    lamp_->setToolTip(reason.isEmpty() ? state : state + QLatin1Char('\n') + reason);
    state_->setText(state);
}

void LinkCard::showReason() {
    reason_->setText(toQt(f2_.Meldezeile.Text()));
    reason_->setVisible(!reason_->text().isEmpty());
    fitReason();
    showLight();
}

void LinkCard::fitReason() {
    const int width = contentsRect().width() - 2 * CardMargin - LampSize - ColumnGap;
    reason_->setFixedHeight(std::max(fontMetrics().lineSpacing(), reason_->heightForWidth(std::max(width, 1))));
}

int LinkCard::fullHeight() const {
    return 2 * frameWidth() + 2 * CardMargin + std::max(LampSize, state_->fontMetrics().lineSpacing()) + ReasonGap +
           ReasonLines * reason_->fontMetrics().lineSpacing();
}

void LinkCard::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    fitReason();
}

} // namespace qvm::ui
