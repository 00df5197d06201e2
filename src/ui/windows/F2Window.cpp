#include "F2Window.h"

#include "Bind.h"
#include "ElidedLabel.h"
#include "F1.h"
#include "LabelDrawing.h"
#include "LabelInk.h"
#include "LinkCard.h"
#include "Mnemonics.h"
#include "OverviewCard.h"
#include "QuestionKey.h"
#include "TextEdge.h"
#include "Theme.h"
#include "WindowAccess.h"
#include "Worte.h"
#include "Worttafel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int BrandSize = 60, MainIconSize = 32, PageMargin = 18, StatusMargin = 8;
constexpr const char *CalendarMenu = "F2_Kalend", *ClockMenu = "F2_Schaltuhr";
constexpr int StripMargin = 2;
constexpr QRgb StripGround = qRgb(255, 176, 0); ///< amber, under black letters in all palettes
constexpr int WidestBar = 50;                   ///< in heights of a line: 800 points with letters of usual size
constexpr qreal SmallCaption = 0.85;            ///< of the font

QAction* addEntry(QMenu* menu, MenuEntry& entry, const char* name, std::function<void()> onClick) {
    return addMenuEntry(menu, entry, QStringLiteral("F2.") + QLatin1String(name), std::move(onClick));
}

void enlarge(QLabel* label, qreal factor, bool bold) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    label->setFont(font);
}

} // namespace

F2Window::F2Window(F2& model) : f2_(model) {
    describeWindows();
    setWindowIcon(programIcon());
    setContextMenuPolicy(Qt::PreventContextMenu);
    makeMenus();
    makePopups();
    makeToolBar();
    setCentralWidget(makePage());
    makeStatusBar();
    watch(f2_.Label1.ForeColor, this, [this] { card_->showLight(); });
    const auto showLine = [this] {
        const std::string& search = f2_.Suchzeile.Text;
        reason_->setFullText(toQt(search.empty() ? f2_.Meldezeile.Text() : search));
    };
    watch(f2_.Suchzeile.Text, this, showLine);
    watch(f2_.Meldezeile.Text, this, [this, showLine] {
        showLine();
        card_->showReason();
    });
    setWords();
    words_ = f2_.kern.Windows.WordsChanged.Listen([this] { setWords(); });
    f2_.kern.Windows.Open[CalendarMenu] = [this] { popUp(calendarMenu_, "636I259"); };
    f2_.kern.Windows.Open[ClockMenu] = [this] { popUp(clockMenu_, "Schaltuhr"); };
    f2_.Tasten_Freigeben();
    card_->setFocus();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    const auto close = [this] { f2_.Beenden(); };
    bind(f2_.Fenster, this, QStringLiteral("F2"), {.onClose = close, .onEscape = {}});
}

F2Window::~F2Window() {
    f2_.kern.Windows.Open.erase(CalendarMenu);
    f2_.kern.Windows.Open.erase(ClockMenu);
}

void F2Window::makeMenus() {
    QMenu* file = menuBar()->addMenu(QString());
    file->setObjectName(QStringLiteral("F2.Datei"));
    bind(f2_.F2_Datei, file->menuAction(), QStringLiteral("F2.F2_Datei"), {});
    addEntry(file, f2_.F2_Schnittstelle, "F2_Schnittstelle", [this] { f2_.F2_Schnittstelle_Click(); });
    addEntry(file, f2_.F2_Sprache, "F2_Sprache", [this] { f2_.F2_Sprache_Click(); });
    addHistories(file);
    file->addSeparator();
    QAction* quit = addEntry(file, f2_.F2_Ende, "F2_Ende", [this] { f2_.F2_Ende_Click(); });
    quit->setShortcut(Qt::CTRL | Qt::Key_Q);
    QMenu* help = menuBar()->addMenu(QStringLiteral("?"));
    help->setObjectName(QStringLiteral("F2.Hilfe"));
    QAction* manual = addEntry(help, f2_.F2_Help, "F2_Help", [this] { f2_.F2_Help_Click(); });
    manual->setShortcut(Qt::Key_F1);
    addQuestionKey(this, [this] { f2_.F2_Help_Click(); });
    addEntry(help, f2_.F2_Gebaeude, "F2_Gebaeude", [this] { f2_.F2_Gebaeude_Click(); });
    QAction* leave = addEntry(help, f2_.F2_Gebaeude_Ende, "F2_Gebaeude_Ende", [this] { f2_.F2_Gebaeude_Ende_Click(); });
    addEntry(help, f2_.F2_Pc, "F2_Pc", [this] { f2_.F2_Pc_Click(); });
    help->addSeparator();
    addEntry(help, f2_.F2_Version, "F2_Version", [this] { f2_.F2_Version_Click(); });
    connect(help, &QMenu::aboutToShow, leave,
            [this, leave] { leave->setVisible(!f2_.F2_Gebaeude_Ende.Text().empty()); });
    uniqueMnemonics(menuBar());
    uniqueMnemonics(file);
    uniqueMnemonics(help);
}

void F2Window::addHistories(QMenu* menu) {
    histories_ = menu->addSection(QString());
    histories_->setVisible(false);
    for (std::size_t n = 0; n < f2_.Historien.size(); ++n) {
        const std::string name = "Historie" + std::to_string(n + 1);
        addEntry(menu, f2_.Historien[n], name.c_str(), [this, n] { f2_.Historie_Click(n); });
    }
    connect(menu, &QMenu::aboutToShow, this, [this] {
        f2_.Historien_Lesen();
        histories_->setVisible(!f2_.Historien.front().Text().empty());
    });
}

void F2Window::makePopups() {
    calendarMenu_ = new QMenu(this);
    calendarMenu_->setObjectName(QStringLiteral("F2.F2_Kalend"));
    addEntry(calendarMenu_, f2_.F2_Einzel, "F2_Einzel", [this] { f2_.F2_Einzel_Click(); });
    addEntry(calendarMenu_, f2_.F2_Perm, "F2_Perm", [this] { f2_.F2_Perm_Click(); });
    clockMenu_ = new QMenu(this);
    clockMenu_->setObjectName(QStringLiteral("F2.F2_Schaltuhr"));
    addEntry(clockMenu_, f2_.F2_PersonB, "F2_PersonB", [this] { f2_.F2_PersonB_Click(); });
    addEntry(clockMenu_, f2_.F2_SchlossB, "F2_SchlossB", [this] { f2_.F2_SchlossB_Click(); });
    addEntry(clockMenu_, f2_.F2_Gasttimer, "F2_Gasttimer", [this] { f2_.F2_Gasttimer_Click(); });
    uniqueMnemonics(calendarMenu_);
    uniqueMnemonics(clockMenu_);
}

void F2Window::makeToolBar() {
    bar_ = addToolBar(QString());
    nameWidget(bar_, QStringLiteral("F2.Toolbar1"));
    bar_->setMovable(false);
    bar_->setIconSize(QSize(MainIconSize, MainIconSize));
    bar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar_->setContextMenuPolicy(Qt::PreventContextMenu);
    for (ToolButton& button : f2_.Toolbar1) {
        addToolButton(button, bar_, [this](std::string_view key) { f2_.Toolbar1_ButtonClick(key); });
    }
}

QWidget* F2Window::makePage() {
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("F2.Page"));
    page->setBackgroundRole(QPalette::Base);
    page->setAutoFillBackground(true);
    auto* rows = new QVBoxLayout(page);
    rows->setContentsMargins(PageMargin, PageMargin, PageMargin, PageMargin);
    rows->setSpacing(PageMargin);
    auto* picture = new QLabel(page);
    new LabelDrawing(picture, programIcon(), BrandSize);
    auto* name = new QLabel(toQt(SystemTitle), page);
    nameWidget(name, QStringLiteral("F2.Name"), name->text());
    enlarge(name, 1.8, true);
    version_ = new QLabel(page);
    version_->setObjectName(QStringLiteral("F2.Version"));
    makeWeak(version_);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addStretch();
    texts->addWidget(name);
    texts->addWidget(version_);
    texts->addWidget(makeStrip()); // in its place: a small screen has no room for both
    texts->addStretch();
    auto* brand = new QHBoxLayout;
    brand->setSpacing(PageMargin * 2 / 3);
    brand->addWidget(picture);
    brand->addLayout(texts, 1);
    rows->addLayout(brand);
    rows->addWidget(new OverviewCard(f2_, page));
    rows->addLayout(makeLinkRow());
    return page;
}

/// Seen at once, and by shape as well as by colour: whoever works in the virtual building must not take it for real.
QWidget* F2Window::makeStrip() {
    auto* strip = new QLabel(this);
    nameWidget(strip, QStringLiteral("F2.Gebaeudezeile"));
    watch(f2_.Gebaeudezeile.Text, strip, [this, strip] {
        strip->setText(toQt(f2_.Gebaeudezeile.Text()));
        strip->setAccessibleName(strip->text());
        strip->setVisible(!strip->text().isEmpty());
        version_->setVisible(strip->text().isEmpty());
    });
    strip->setAlignment(Qt::AlignCenter);
    strip->setBackgroundRole(QPalette::Window); // that of the page would stay its own
    strip->setAutoFillBackground(true);
    strip->setMargin(StripMargin);
    QPalette colours = strip->palette();
    colours.setColor(QPalette::Window, QColor::fromRgb(StripGround));
    colours.setColor(QPalette::WindowText, Qt::black);
    strip->setPalette(colours);
    enlarge(strip, 1, true);
    return strip;
}

QLayout* F2Window::makeLinkRow() {
    card_ = new LinkCard(f2_, this);
    auto* column = new QVBoxLayout;
    column->addWidget(card_);
    column->addStretch();
    // The room that a reason takes is there without one, so that the window keeps its size.
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addLayout(column, 1);
    row->addSpacerItem(new QSpacerItem(0, card_->fullHeight(), QSizePolicy::Fixed, QSizePolicy::Fixed));
    return row;
}

void F2Window::makeStatusBar() {
    statusBar()->setSizeGripEnabled(false);
    reason_ = new ElidedLabel(this);
    reason_->setObjectName(QStringLiteral("F2.Meldezeile"));
    statusBar()->setContentsMargins(StatusMargin, 0, StatusMargin, 0);
    statusBar()->addWidget(reason_, 1);
    for (const auto& [label, name] : {std::pair{&f2_.Label3, "F2.Label3"}, std::pair{&f2_.Label6, "F2.Label6"}}) {
        auto* counter = new QLabel(this);
        statusBar()->addPermanentWidget(counter);
        bind(*label, counter, QLatin1String(name));
    }
}

/// The captions of some languages are longer than a small screen is wide.
void F2Window::fitCaptions() {
    const auto write = [this](const QFont& font) {
        bar_->setFont(font);
        // Before they are shown, keys do not tell their layout that they have changed.
        bar_->layout()->invalidate();
        layout()->invalidate();
    };
    QFont font = this->font();
    write(font);
    if (bar_->sizeHint().width() > WidestBar * fontMetrics().height()) {
        font.setPointSizeF(font.pointSizeF() * SmallCaption);
        write(font);
    }
}

void F2Window::showEvent(QShowEvent* event) {
    fitCaptions();
    layout()->activate();
    QMainWindow::showEvent(event);
}

void F2Window::setWords() {
    const std::string& language = f2_.kern.Config.Sprache;
    version_->setText(toQt(Wort(f2_.kern, Line::Version, "Version")) + QLatin1Char(' ') + toQt(ProgrammVersion));
    bar_->setAccessibleName(word(Word::KeyBar, language));
    histories_->setText(word(Word::LatestHistories, language));
    card_->showLight();
    fitCaptions();
}

void F2Window::popUp(QMenu* menu, std::string_view key) {
    const auto* button = findChild<QToolButton*>(bar_->objectName() + QLatin1Char('.') + toQt(key));
    if (button != nullptr) {
        menu->exec(button->mapToGlobal(button->rect().bottomLeft()));
    }
}

} // namespace qvm::ui
