#include "F7Window.h"

#include "ElidedLabel.h"
#include "GridDelegate.h"
#include "GridView.h"
#include "Mnemonics.h"
#include "ReportMenu.h"
#include "TextEdge.h"
#include "Theme.h"
#include "Worttafel.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace qvm::ui {
namespace {

constexpr int HitLines = 5; ///< of the text of hits that are in sight

/// Shows selected rows, too: neutral cells take a tint, while bands and hits keep their exact colour between two lines.
class RowDelegate : public GridDelegate {
public:
    using GridDelegate::GridDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        GridDelegate::paint(painter, option, index);
        if ((option.state & QStyle::State_Selected) == 0) {
            return;
        }
        QColor tint = option.palette.color(QPalette::Active, QPalette::Highlight);
        if (cellTone(index.data(GridModel::BackColourRole).value<Colour>()) == CellTone::Exact) {
            painter->fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 2)), tint);
            painter->fillRect(option.rect.adjusted(0, option.rect.height() - 2, 0, 0), tint);
        } else {
            tint.setAlphaF(0.3F);
            painter->fillRect(option.rect, tint);
        }
    }
};

} // namespace

F7Window::F7Window(F7& f7, QWidget* main) : WindowBase(f7, QStringLiteral("F7"), Stand::InPlaceOfMain, main), f7_(f7) {
    QMenuBar* menus = addMenuBar();
    addReports(addMenu(menus, f7.F7_Extras, QStringLiteral("F7.F7_Extras")), f7.Berichte, QStringLiteral("F7"),
               [this](ReportKind kind, ReportWay way) { f7_.F7_Bericht_Click(kind, way); });
    uniqueMnemonics(menus);
    QToolBar* bar = addToolBar();
    for (ToolButton& button : f7.Toolbar1) {
        addToolButton(button, bar, [this](std::string_view key) { f7_.Toolbar1_ButtonClick(key); });
    }
    makeGrid();
    makeHits();
    makeStatus();
    makeShortcuts();
    setLeastSize(480, 360);
    grid_->setFocus();
    finish([this] { f7_.Toolbar1_ButtonClick("W95MBX01"); });
}

F7Window::~F7Window() {
    f7_.Zelle_Zeigen = {};
}

void F7Window::makeGrid() {
    grid_ = new GridView(f7_.FGV, this);
    nameWidget(grid_, QStringLiteral("F7.FGV"));
    connect(this, &QWidget::windowTitleChanged, grid_, &QWidget::setAccessibleName);
    grid_->setItemDelegate(new RowDelegate(*grid_, grid_));
    grid_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    GridModel& model = grid_->gridModel();
    model.setAlignment(F7Column::Number, Qt::AlignRight | Qt::AlignVCenter);
    model.setAlignment(F7Column::Date, Qt::AlignCenter);
    model.setAlignment(F7Column::Time, Qt::AlignCenter);
    grid_->setColumns({800, 3500, 2000, 2000, 3500}, F7Column::Event);
    f7_.Zelle_Zeigen = [this](int row, int column) { showCell(row, column); };
    content()->addWidget(grid_, 1);
}

void F7Window::makeHits() {
    auto* hits = new QPlainTextEdit(this);
    hits_ = hits;
    nameWidget(hits, QStringLiteral("F7.Text1"));
    hits->setReadOnly(true);
    hits->setTabChangesFocus(true);
    hits->setLineWrapMode(QPlainTextEdit::NoWrap);
    hits->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Blanks are all that separates the columns.
    hits->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // Whole lines: it scrolls by lines, and there is a margin above the first.
    const int margin = qRound(hits->document()->documentMargin());
    hits->setFixedHeight(hits->fontMetrics().lineSpacing() * HitLines + 2 * hits->frameWidth() + margin);
    watch(f7_.Text1.Text, hits, [this, hits] {
        hits->setPlainText(toQt(f7_.Text1.Text()));
        hits->setAccessibleName(toQt(f7_.Toolbar1[1].Tip()));
    });
    watch(f7_.Text1.Visible, hits, [this, hits] { hits->setVisible(f7_.Text1.Visible); });
    content()->addWidget(hits);
}

void F7Window::makeStatus() {
    auto* status = new ElidedLabel(this);
    nameWidget(status, QStringLiteral("F7.Meldezeile"));
    watch(f7_.Meldezeile.Text, status, [this, status] { status->setFullText(toQt(f7_.Meldezeile.Text())); });
    content()->addWidget(status);
}

void F7Window::makeShortcuts() {
    const auto press = [this](std::size_t key) {
        if (f7_.Fenster.Enabled) {
            f7_.Toolbar1_ButtonClick(f7_.Toolbar1[key].Key);
        }
    };
    connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this, [press] { press(0); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [press] { press(1); });
    connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, [this] { f7_.Naechster_Treffer(); });
    connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, this,
            [this] { f7_.Voriger_Treffer(); });
    auto* copy = new QShortcut(QKeySequence::Copy, grid_);
    copy->setContext(Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] { copyRows(); });
}

void F7Window::setWords() {
    const QString keys = word(Word::HitKeys, f7_.kern.Config.Sprache);
    hits_->setToolTip(keys);
    hits_->setAccessibleDescription(keys);
}

void F7Window::showCell(int row, int column) {
    // The list of hits may have come or gone just now: the grid must have its new height before it scrolls.
    layout()->activate();
    const QModelIndex index = grid_->gridModel().index(row - 1, column);
    grid_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::Clear);
    grid_->scrollTo(index);
    grid_->setFocus(Qt::OtherFocusReason);
}

void F7Window::copyRows() {
    std::vector<int> rows;
    for (const QModelIndex& index : grid_->selectionModel()->selectedRows()) {
        rows.push_back(index.row() + 1);
    }
    if (rows.empty()) {
        rows.push_back(f7_.FGV.Row);
    }
    std::sort(rows.begin(), rows.end());
    QApplication::clipboard()->setText(toQt(f7_.Zeilen_Text(rows)));
}

} // namespace qvm::ui
