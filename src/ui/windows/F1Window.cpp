#include "F1Window.h"

#include "LabelDrawing.h"
#include "LabelInk.h"
#include "Theme.h"
#include "Worttafel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int AboutBrandSize = 64;

} // namespace

F1Window::F1Window(F1& model, QWidget* owner)
    : WindowBase(model, QStringLiteral("F1"), Stand::Centred, owner), f1_(model) {
    setWindowModality(Qt::WindowModal);
    content()->setSpacing(18);
    content()->addLayout(makeHead());
    content()->addLayout(makeFacts());
    content()->addStretch();
    content()->addLayout(makeButtons());
    content()->setSizeConstraint(QLayout::SetMinimumSize);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    setFirst(ok_);
    finish([this] { f1_.OK_Click(); }, false);
}

QLayout* F1Window::makeHead() {
    auto* picture = new QLabel(this);
    new LabelDrawing(picture, programIcon(), AboutBrandSize);
    auto* version = new QLabel(this);
    bind(f1_.VersionLabel, version, QStringLiteral("F1.VersionLabel"));
    QFont font = version->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    font.setBold(true);
    version->setFont(font);
    auto* adapter = new QLabel(this);
    bind(f1_.AdapterLabel, adapter, QStringLiteral("F1.AdapterLabel"));
    auto* texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(version);
    texts->addWidget(adapter);
    texts->addStretch();
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(picture);
    row->addLayout(texts, 1);
    return row;
}

QLayout* F1Window::makeFacts() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    const auto add = [&](int row, Label& model, const char* name) {
        auto* caption = new QLabel(this);
        makeWeak(caption);
        auto* value = new QLabel(this);
        bind(model, value, QStringLiteral("F1.") + QLatin1String(name));
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(caption, row, 0, Qt::AlignTop);
        grid->addWidget(value, row, 1, Qt::AlignTop);
        return caption;
    };
    cipherCaption_ = add(0, f1_.CipherLabel, "CipherLabel");
    directoryCaption_ = add(1, f1_.DirectoryLabel, "DirectoryLabel");
    licenceCaption_ = add(2, f1_.LicenceLabel, "LicenceLabel");
    licenceTexts_ = new QLabel(this);
    licenceTexts_->setObjectName(QStringLiteral("F1.LicenceTexts"));
    grid->addWidget(licenceTexts_, 3, 1);
    return grid;
}

QLayout* F1Window::makeButtons() {
    auto* web = new QPushButton(this);
    bind(f1_.Web, web, QStringLiteral("F1.Web"), [this] { f1_.Web_Click(); });
    web->setToolTip(QString::fromStdString(f1_.SupportPage));
    ok_ = new QPushButton(this);
    bind(f1_.OK, ok_, QStringLiteral("F1.OK"), [this] { f1_.OK_Click(); });
    setDefaultButton(ok_);
    auto* row = new QHBoxLayout;
    row->addWidget(web);
    row->addStretch();
    row->addWidget(ok_);
    return row;
}

void F1Window::setWords() {
    const std::string& language = f1_.kern.Config.Sprache;
    cipherCaption_->setText(word(Word::Cipher, language));
    directoryCaption_->setText(word(Word::DataDirectory, language));
    licenceCaption_->setText(word(Word::Libraries, language));
    licenceTexts_->setText(word(Word::LicenceTexts, language));
}

} // namespace qvm::ui
