#include "F17Window.h"

#include "KeyEdit.h"
#include "TextEdge.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qvm::ui {

F17Window::F17Window(F17& f17, QWidget* owner)
    : WindowBase(f17, QStringLiteral("F17"), Stand::Centred, owner), f17_(f17) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(12);
    content()->addWidget(newHeading(f17.Schloss, QStringLiteral("F17.Schloss"), this));
    auto* lines = new QGridLayout;
    lines->setColumnStretch(1, 1);
    addCode(lines, f17.Label1, f17.Text1, QStringLiteral("1"), [this](int key) { f17_.Text1_KeyPress(key); });
    addCode(lines, f17.Label2, f17.Text2, QStringLiteral("2"), [this](int key) { f17_.Text2_KeyPress(key); });
    addCode(lines, f17.Label3, f17.Text3, QStringLiteral("3"), [this](int key) { f17_.Text3_KeyPress(key); });
    content()->addLayout(lines);
    content()->addStretch();
    makeButtons();
    setLeastSize(380);
    finish([this] { f17_.Command2_Click(); });
}

void F17Window::addCode(QGridLayout* lines, Label& caption, TextBox& code, const QString& number,
                        const std::function<void(int key)>& onKey) {
    auto* label = new QLabel(this);
    bind(caption, label, QStringLiteral("F17.Label") + number);
    auto* box = new KeyEdit(code, QStringLiteral("F17.Text") + number, this);
    box->setEchoMode(QLineEdit::Password);
    box->onKey = onKey;
    label->setBuddy(box);
    // A screen reader says what the box is for, not what stands in it.
    watch(caption.Text, label, [&caption, label, box] {
        label->setText(toQt(caption.Text()));
        label->setAccessibleName(label->text());
        box->setAccessibleName(label->text());
    });
    const int row = lines->rowCount();
    lines->addWidget(label, row, 0);
    lines->addWidget(box, row, 1);
}

void F17Window::makeButtons() {
    auto* ok = new QPushButton(this);
    bind(f17_.Command1, ok, QStringLiteral("F17.Command1"), [this] { f17_.Command1_Click(); });
    auto* cancel = new QPushButton(this);
    bind(f17_.Command2, cancel, QStringLiteral("F17.Command2"), [this] { f17_.Command2_Click(); });
    content()->addSpacing(8);
    content()->addLayout(buttonRow({ok, cancel}));
    setDefaultButton(ok);
}

} // namespace qvm::ui
