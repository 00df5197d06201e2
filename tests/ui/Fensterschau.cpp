#include "Fensterschau.h"

#include "F5_Marken.h"
#include "ListMark.h"
#include "MonthView.h"
#include "Pictures.h"
#include "TextSlots.h"
#include "Words.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <string>
#include <string_view>
#include <utility>

namespace qvm::test {
namespace {

constexpr const char* History = "/q/HIST/H_3_050326_Serverraum.HST";
constexpr int Lock = 3; ///< that is programmed

/// Files as a run names them, more than the menu shows.
void storeHistories(VirtualPlatform& world) {
    for (int day = 10; day < 22; ++day) {
        const char* lock = day % 2 == 0 ? "Serverraum" : "Haupteingang Süd";
        world.Disk.Files["/q/HIST/H_202602" + std::to_string(day) + "_171200_" + lock + ".HST"] = "";
    }
}

/// Events as a lock's memory gives them, newest first.
std::string historyBytes() {
    std::string bytes = "01.50.0C.10\r\n";
    for (int n = 0; n < 40; ++n) {
        bytes += (n % 3 == 0   ? "Baumann J\xF6rg\t"
                  : n % 3 == 1 ? "Conrad Lea\t"
                               : "Mei\xDF"
                                 "ner Ute\t");
        bytes += (n < 24 ? "05.03.2026\t" : "04.03.2026\t") + std::string(n % 2 == 0 ? "17:12\t" : "08:41\t");
        bytes += n % 4 == 0 ? "Code\r\n" : "E-Key\r\n";
    }
    return bytes;
}

} // namespace

Fensterschau::Fensterschau(VirtualPlatform& world, std::string_view language) : world_(world) {
    world_.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = std::string(language) + "\r\n1\r\nUSB-Port1\r\n5\r\n";
    world_.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "SET\r\n";
    world_.Disk.Files[History] = historyBytes();
    storeHistories(world_);
    world_.World.PrintPages = [](const ReportPages&) { return PrintResult::Cancelled; };
    programm_ = std::make_unique<Programm>(world_.World, "/q");
    Programm_Start(*programm_, true);
    boxes_.setWords(programm_->kern);
    programm_->Main->F1.CipherText = "AES-128 (OpenSSL 3)";
    windows_ = std::make_unique<ui::Oberflaeche>(*programm_);
}

void Fensterschau::run(Look look) {
    look_ = std::move(look);
    mainWindow();
    menus();
    settings();
    locks();
    progress();
    list();
    history();
    users();
    lockSettings();
    calendars();
    guestTimes();
    clocks();
    guestCards();
    codeChange();
    pcCheck();
    virtualBuilding();
    others();
    messageBoxes();
    programm_->Main->F2.Beenden();
}

void Fensterschau::runMain(Look look) {
    look_ = std::move(look);
    mainWindow();
    virtualBuilding();
    programm_->Main->F2.Beenden();
}

void Fensterschau::take(QWidget& window, const char* name) {
    QApplication::setActiveWindow(&window);
    QTest::qWait(50); // a combo box has its width 20 ms behind its entries
    look_(window, name);
    const std::string_view state = name;
    taken_.emplace(state.substr(0, state.find('-')));
}

void Fensterschau::others() {
    for (const auto& [name, open] : programm_->kern.Windows.Open) {
        if (taken_.contains(name) || name.starts_with("F2_")) {
            continue;
        }
        open();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QString::fromStdString(name)) {
                take(*window, name.c_str());
                window->close();
            }
        }
    }
}

void Fensterschau::mainWindow() {
    F2& f2 = programm_->Main->F2;
    f2.F2_Laden();
    f2.Timer2.Stop();
    f2.Label1.ForeColor = Lampe::Rot;
    // The longest of the reasons.
    f2.Meldezeile.Text = PortFault_Text(programm_->kern, {PortFault::Kind::NoRight, "/dev/ttyUSB15", "dialout"});
    take(windows_->Main.f2, "F2-red");
    f2.Label1.ForeColor = Lampe::Gelb;
    f2.Meldezeile.Text = std::string();
    f2.Warten_Zeigen(true);
    take(windows_->Main.f2, "F2-yellow");
    f2.Warten_Zeigen(false);
    f2.Label1.ForeColor = Lampe::Gruen;
    adapters();
    programm_->Adapter.ProgAdresse = "/46/108/1/2";
    f2.Uebersicht_Lesen();
    f2.Verbunden = 1;
    f2.AdapterVersion = 12;
    f2.Label7.Visible = true;
    f2.Picture1.Visible = true;
    take(windows_->Main.f2, "F2");
}

void Fensterschau::menus() {
    for (const auto& [menu, name] : {std::pair{"F2.Datei", "F2-file"}, std::pair{"F2.F2_Kalend", "F2-calendars"},
                                     std::pair{"F2.F2_Schaltuhr", "F2-clocks"}}) {
        auto* popup = windows_->Main.f2.findChild<QMenu*>(QLatin1String(menu));
        popup->popup(windows_->Main.f2.mapToGlobal(QPoint(20, 20)));
        take(*popup, name);
        popup->close();
    }
}

void Fensterschau::settings() {
    programm_->Main->F2.F2_Version_Click();
    take(windows_->Main.f1, "F1");
    programm_->Main->F1.OK_Click();
    programm_->Main->F2.F2_Sprache_Click();
    take(windows_->Main.f15, "F15");
    programm_->Main->F15.Cancel_Click();
    programm_->Main->F6.F6_Laden();
    take(windows_->Main.f6, "F6");
    programm_->Main->F6.FGK6.SetText(1, F6Column::Address, "/46/108/1/2");
    programm_->Main->F6.FGK6.SetText(1, F6Column::Name, "PROGSTATION-1");
    programm_->Main->F6.FGK6.SetText(2, F6Column::Address, "/46/108/1/3");
    programm_->Main->F6.FGK6.SetText(2, F6Column::Name, "Keller");
    programm_->Main->F6.FGK6.SetText(2, F6Column::Port, "2");
    programm_->Main->F6.FGK6.SetText(2, F6Column::State, Wort(programm_->kern, Word::AdapterUnusable));
    programm_->Main->F6.FGK6.SetPicture(2, F6Column::State, AdapterPicture::Unusable);
    programm_->Main->F6.FGK6_Click(1, F6Column::Name);
    take(windows_->Main.f6, "F6-editor");
    programm_->Main->F6.Text3_KeyPress(Key::Escape);
    programm_->Main->F6.Check1_Click(false);
    windows_->Main.f6.setWords();
    take(windows_->Main.f6, "F6-manual");
    programm_->Main->F6.Check1_Click(true);
    windows_->Main.f6.setWords();
    programm_->Main->F6.Fenster.Visible = false;
    programm_->Main->F14.F14_Laden();
    take(windows_->Main.f14, "F14");
    programm_->Main->F14.Fenster.Visible = false;
}

void Fensterschau::adapters() {
    programm_->Adapter.Saetze.clear();
    for (const char* port : {"1", "2"}) {
        AdapterSatz adapter;
        adapter.Name = std::string("PROGSTATION-") + port;
        adapter.Adresse = std::string("/46/108/1/") + (*port == '1' ? "2" : "3");
        adapter.Port = port;
        programm_->Adapter.Saetze.push_back(adapter);
    }
}

void Fensterschau::locks() {
    adapters();
    programm_->Transfer->F13.F13_FormLaden();
    programm_->Transfer->F13.Timer1.Stop();
    programm_->Transfer->F13.Timer2.Stop();
    programm_->Transfer->F13.FGK13.SetText(Lock, F13Column::AdapterId, "/46/108/1/2");
    programm_->Transfer->F13.FGK13_Click(Lock, F13Column::Mark);
    take(windows_->Transfer.f13, "F13");
    markedLocks();
    programm_->link.Lauf.Order.What = RunTask::HistoryFirst;
    programm_->link.Lauf.Order.LockName = programm_->Transfer->F13.FGK13.Text(Lock, F13Column::Name);
    programm_->Transfer->F11.F11_Laden(F11Opener::F13, "/46/108/1/2");
    take(windows_->Transfer.f11, "F11");
    auto* month = windows_->Transfer.f11.findChild<ui::MonthView*>();
    windows_->Transfer.f11.findChild<QPushButton*>(QStringLiteral("F11.CutoffDate"))->click();
    take(*month, "F11-month");
    month->close();
    programm_->Transfer->F11.Fenster.Visible = false;
    programm_->Transfer->F18.F18_Zeigen();
    programm_->Transfer->F18.Balken.Value = 136;
    take(windows_->Transfer.f18, "F18");
    programm_->Transfer->F18.Suchstand_Zeigen(
        12, Wort(programm_->kern, Word::ScanFound, {"12", "11", "00.00.30.01", "11"}));
    take(windows_->Transfer.f18, "F18-searching");
    programm_->Transfer->F18.F18_Schliessen();
}

void Fensterschau::markedLocks() {
    F13& f13 = programm_->Transfer->F13;
    f13.Gescheiterte_Schloesser = [] { return std::vector<int>{1}; };
    f13.Command1.Visible = true;
    f13.Filter.Set("e");
    f13.Auswahl.Go(1, F13Column::Name);
    f13.Auswahl.All();
    f13.Auswahl_Markieren();
    f13.Filter.Set("in");
    f13.Auswahl.All();
    take(windows_->Transfer.f13, "F13-marked");
    f13.Filter.Set("");
    f13.Command1.Visible = false;
}

void Fensterschau::progress() {
    F9& f9 = programm_->Transfer->F9;
    programm_->Run.Daten.Units[0].Name = "Leser Serverraum";
    f9.F9_Vorbereiten(140);
    f9.F9_Zeigen();
    f9.Stille.Stop();
    programm_->Run.Gesamtende = false;
    programm_->Run.Konto = Konto_Anlegen(programm_->Run.link.Lauf, programm_->Run.Daten);
    for (std::size_t n = 0; n < 6; ++n) {
        programm_->Run.Konto.Items[n].Is = AccountItem::State::Acknowledged;
    }
    programm_->Run.Tempo.Since = programm_->kern.Welt.Milliseconds() - 5000;
    programm_->Run.link.Lauf.Progress.SecondProgress = 12;
    f9.Fortschritt();
    f9.StilleLabel.Text = programm_->kern.Zeile(274) + " 12 s";
    f9.StilleLabel.Visible = true;
    take(windows_->Transfer.f9, "F9");
    f9.Zustand_Zeigen(0x20, programm_->kern.Zeile(114));
    f9.Ankreuzen(1);
    programm_->Run.Gesamtende = true;
    programm_->Run.Bericht.End = RunOutcome::Cancelled;
    programm_->Run.Bericht.Lock = LockData::Incomplete;
    f9.Fertig(82);
    take(windows_->Transfer.f9, "F9-cancelled");
    for (AccountItem& item : programm_->Run.Konto.Items) {
        item.Is = AccountItem::State::Acknowledged;
    }
    programm_->Run.Bericht.End = RunOutcome::Done;
    f9.Fertig(110);
    take(windows_->Transfer.f9, "F9-finished");
    f9.Fenster.Visible = false;
    programm_->Transfer->F13.Fenster.Visible = false;
}

void Fensterschau::list() {
    F91& f91 = programm_->Transfer->F91;
    for (int row = 1; row <= 5; ++row) {
        f91.Listenzeile_Uebernehmen(programm_->Transfer->F13.FGK13, row, row);
    }
    programm_->Run.link.Lauf.List.RunRows = 5;
    programm_->Transfer->F11.F11_Laden(F11Opener::F13, "/46/108/1/2");
    take(windows_->Transfer.f11, "F11-list");
    programm_->Transfer->F11.Fenster.Visible = false;
    f91.F91_FormLaden(false);
    f91.FGK91.SetText(1, F91Column::Mark, ListMark::Programmed);
    f91.FGK91.SetText(2, F91Column::Mark, ListMark::Failed);
    f91.FGK91.SetText(2, F91Column::StateText, programm_->kern.Zeile(70) + "  /  " + programm_->kern.Zeile(66));
    f91.FGK91.SetPicture(2, F91Column::StateText, ListPicture::Failed);
    for (const int column : {F91Column::Mark, F91Column::StateText}) {
        f91.FGK91.SetBackColor(2, column, F91::FailedColour);
    }
    f91.FGK91.SetText(3, F91Column::Mark, ListMark::Waiting);
    take(windows_->Transfer.f91, "F91");
    f91.StatusLabel.Text = programm_->kern.Zeile(114);
    f91.StandLabel.Text = Wort(programm_->kern, Word::ListPosition, {"3", "5"}) + "   " +
                          Wort(programm_->kern, Word::ListCounts, {"1", "1"}) + "   " +
                          Wort(programm_->kern, Word::ListTimeLeft, {"4"});
    f91.Balken.Visible = true;
    f91.Balken.Value = f91.Balken.Maximum() / 3;
    for (const int column : {F91Column::Number, F91Column::Name, F91Column::Serial}) {
        f91.FGK91.SetBackColor(3, column, F91::UnderWayColour);
    }
    f91.Zeile_Zeigen(3);
    take(windows_->Transfer.f91, "F91-running");
    besideList();
    programm_->Transfer->F92.F92_Laden();
    take(windows_->Transfer.f92, "F92");
    programm_->Transfer->F92.Fenster.Visible = false;
    f91.Fenster.Visible = false;
}

void Fensterschau::besideList() {
    F9& f9 = programm_->Transfer->F9;
    programm_->link.Lauf.Order.LockName = programm_->Transfer->F91.FGK91.Text(Lock, F91Column::Name);
    f9.F9_Vorbereiten(140);
    f9.F9_Zeigen();
    f9.Stille.Stop();
    f9.Balken1.Value = f9.Balken1.Maximum() / 3;
    take(windows_->Transfer.f9, "F9-list");
    f9.Fenster.Visible = false;
}

void Fensterschau::history() {
    programm_->History->F7.F7_Oeffnen(History);
    take(windows_->History.f7, "F7");
    auto* extras = windows_->History.f7.findChild<QMenu*>(QStringLiteral("F7.F7_Extras.Menu"));
    extras->popup(windows_->History.f7.mapToGlobal(QPoint(20, 20)));
    take(*extras, "F7-extras");
    extras->close();
    programm_->History->F7.Toolbar1_ButtonClick("Suchen");
    windows_->History.f8.findChild<QLineEdit*>(QStringLiteral("F8.Text1"))->setText(QStringLiteral("Conrad Lea"));
    programm_->History->F8.Text1.Text = std::string("Conrad Lea");
    take(windows_->History.f8, "F8");
    programm_->History->F8.Command1_Click();
    take(windows_->History.f7, "F7-found");
    programm_->History->F7.Fenster.Visible = false;
}

/// Three users of the house, unless there are some already.
void Fensterschau::userTable() {
    F5& f5 = programm_->Persons->F5;
    f5.F5_FormLaden();
    f5.Timer1.Stop();
    f5.Timer2.Stop();
    if (!f5.FGK4.Text(UserGrid::FirstRow, UserColumn::Name).empty()) {
        return;
    }
    int row = UserGrid::FirstRow;
    for (const char* name : {"Baumann J\xF6rg", "Conrad Lea", "Mei\xDFner Ute"}) {
        f5.FGK4.SetText(row, UserColumn::Name, name);
        f5.FGK4.SetText(row, UserColumn::Group, "-");
        f5.FGK4.SetText(row, UserColumn::Right, "1");
        f5.FGK4.SetText(row, UserColumn::Code, "40506" + std::to_string(row));
        f5.FGK4.SetText(row, UserColumn::KeyLabel, "E-Key " + std::to_string(row));
        f5.FGK4.SetText(row, UserColumn::KeyId, "12 : 34 : 56 : " + std::to_string(row));
        f5.FGK4.SetText(row, UserColumn::FingerId, "8123");
        f5.FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::None + row - 1);
        Marke_Setzen(f5.FGK4, row, UserGrid::ColumnOf(1), 'X');
        Marke_Setzen(f5.FGK4, row, UserGrid::ColumnOf(row - 1), 'F');
        ++row;
    }
    f5.FGK4.SetForeColor(UserGrid::FirstRow, UserColumn::KeyId, UserLook::KeyOutOfStep);
    f5.Auswahl.Go(UserGrid::FirstRow + 1, UserGrid::ColumnOf(1));
}

void Fensterschau::users() {
    F5& f5 = programm_->Persons->F5;
    ui::F5Window& window = windows_->Persons.f5;
    userTable();
    take(window, "F5");
    f5.Auswahl.Extend(UserGrid::FirstRow + 3, UserGrid::ColumnOf(3));
    take(window, "F5-block");
    for (const auto& [column, name] :
         {std::pair{UserColumn::Code, "F5-editor"}, std::pair{UserColumn::Group, "F5-list"},
          std::pair{UserColumn::Right, "F5-rights"}}) {
        f5.FGK4_DblClick(UserGrid::FirstRow + 1, column);
        take(window, name);
        f5.Editor_KeyPress(Key::Escape);
    }
    f5.Treffer_Zeigen(UserGrid::FirstRow + 1, UserColumn::Name, F16::HitGround);
    f5.Auswahl.Go(UserGrid::FirstRow, UserGrid::ColumnOf(150));
    take(window, "F5-scrolled");
    f5.Auswahl.Go(UserGrid::FirstRow, UserColumn::Name);
    f5.F5_Sort_Click();
    f5.FGK4_MouseUp(MouseButton::Left, UserGrid::FirstRow, UserGrid::ColumnOf(2));
    userMenus();
    f5.F5_Search_Click();
    take(windows_->Persons.f16, "F16");
    programm_->Persons->F16.Command2_Click();
    enrolment();
    f5.Tabelle.UserDirty = false;
    f5.F5_Schliessen();
}

void Fensterschau::enrolment() {
    F51& f51 = programm_->Persons->F51;
    f51.F51_FormLaden();
    f51.Wache.Stop();
    f51.Schritt_Zeigen(FingerStep::Third);
    take(windows_->Persons.f51, "F51");
    f51.Schritt_Zeigen(FingerStep::OffCentre);
    f51.Timer2.Stop();
    take(windows_->Persons.f51, "F51-error");
    f51.Schritt_Zeigen(FingerStep::Done);
    f51.Timer1.Stop();
    take(windows_->Persons.f51, "F51-done");
    f51.Command2_Click();
    programm_->Persons->F5.Fenster.Enabled = true;
}

void Fensterschau::userMenus() {
    ui::F5Window& window = windows_->Persons.f5;
    for (const auto& [menu, name] :
         {std::pair{"F5.F5_Extras.Menu", "F5-extras"}, std::pair{"F5.F5_Markierung.Menu", "F5-marking"},
          std::pair{"F5.Sichern.Menu", "F5-reports"}, std::pair{"F5.M_FGK4", "F5-delete"},
          std::pair{"F5.F5_E_Key", "F5-key"}, std::pair{"F5.key_anlernen.Menu", "F5-learn"},
          std::pair{"F5.key_suchen.Menu", "F5-search"}, std::pair{"F5.F5_Fingerscan", "F5-finger"}}) {
        auto* popup = window.findChild<QMenu*>(QLatin1String(menu));
        popup->popup(window.mapToGlobal(QPoint(20, 20)));
        take(*popup, name);
        popup->close();
    }
}

void Fensterschau::codeChange() {
    F17& f17 = programm_->Transfer->F17;
    f17.F17_FormLoad();
    for (const char digit : {'1', '2', '3', '4'}) {
        f17.Text1_KeyPress(digit);
    }
    take(windows_->Transfer.f17, "F17");
    f17.Command2_Click();
    programm_->Transfer->F13.Fenster.Visible = false;
}

void Fensterschau::messageBoxes() {
    const Kern& kern = programm_->kern;
    showBox({.Text = kern.Zeile(63),
             .Title = kern.Zeile(90),
             .Choice = Buttons::YesNoCancel,
             .Sign = Icon::Question,
             .DefaultButton = 2},
            "MessageBox");
    showBox({.Text = kern.Zeile(180) + "\n\r" + kern.Zeile(181),
             .Title = std::string(SystemTitle),
             .Sign = Icon::Information},
            "MessageBox-two-lines");
    showBox({.Text = kern.Zeile(66),
             .Title = std::string(SystemTitle),
             .Sign = Icon::Exclamation,
             .About = Wort(kern, Word::LockLine, {"3", "Serverraum"}) + "\r\n" + Wort(kern, Word::LockIncomplete)},
            "MessageBox-about");
}

void Fensterschau::showBox(const Message& message, const char* name) {
    QMessageBox box;
    boxes_.fill(box, message);
    box.show();
    take(box, name);
}

} // namespace qvm::test
