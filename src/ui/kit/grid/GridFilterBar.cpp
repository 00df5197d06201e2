#include "GridFilterBar.h"

#include "Bind.h"
#include "TextEdge.h"
#include "Theme.h"
#include "Words.h"
#include "Worttafel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>

namespace qvm::ui {
namespace {

constexpr int LeastLine = 130, WidestLine = 320;

} // namespace

GridFilterBar::GridFilterBar(GridFilter& filter, const QString& name, QWidget* parent)
    : QWidget(parent), filter_(filter), line_(new QLineEdit(this)), row_(new QHBoxLayout(this)) {
    bind(filter.Line, line_, name + QStringLiteral(".Filter"));
    connect(line_, &QLineEdit::textChanged, this, [this](const QString& text) { filter_.Set(fromQt(text)); });
    line_->addAction(ownIcon(QStringLiteral("search"), QPalette::Text), QLineEdit::LeadingPosition);
    line_->setClearButtonEnabled(true);
    line_->setMinimumWidth(LeastLine);
    line_->setMaximumWidth(WidestLine);
    line_->installEventFilter(this);
    auto* count = new QLabel(this);
    bind(filter.Count, count, name + QStringLiteral(".Count"));
    row_->setContentsMargins(0, 0, 0, 0);
    row_->addWidget(line_, 1);
    row_->addWidget(count);
    const auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, line_, [this] {
        line_->setFocus(Qt::ShortcutFocusReason);
        line_->selectAll();
    });
}

void GridFilterBar::setWords(const QString& hint, std::string_view language) {
    const QString key = QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText);
    line_->setAccessibleName(word(Word::FilterLine, language));
    line_->setPlaceholderText(hint);
    line_->setToolTip(word(Word::FilterTip, language).arg(key));
}

void GridFilterBar::addWidget(QWidget* widget, int stretch) {
    row_->addWidget(widget, stretch);
}

bool GridFilterBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == line_ && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Escape:
            filter_.Set({});
            [[fallthrough]];
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            if (grid_ != nullptr) {
                grid_->setFocus(Qt::OtherFocusReason);
            }
            return true;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace qvm::ui
