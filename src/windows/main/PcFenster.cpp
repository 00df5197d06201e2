#include "PcFenster.h"

#include "AdapterScan.h"
#include "AutoRegister.h"
#include "Pictures.h"
#include "PortFault.h"
#include "Text.h"
#include "Zeit.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

/// Milliseconds between two steps, in which the window is drawn; and between two looks whether a search has ended.
constexpr int NextStep = 10, SearchEnds = 200;

int Bild(Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return VerdictPicture::Good;
    case Verdict::Note:
        return VerdictPicture::Note;
    case Verdict::Fault:
        return VerdictPicture::Fault;
    case Verdict::Untold:
        break;
    }
    return VerdictPicture::Untold;
}

} // namespace

PcFenster::PcFenster(Link& serialLink, AdapterListe& adapters)
    : link(serialLink), kern(serialLink.kern), Adapter(adapters), takt_(kern.Welt, NextStep) {
    kern.Windows.Open["Pc"] = [this] { Pc_Laden(); };
    takt_.Ticked = [this] { Weiter(); };
    Auswahl.Moved = [this] { Auswahl_Zeigen(); };
}

void PcFenster::Pc_Laden() {
    if (fragt_) {
        return;
    }
    schliesst_ = false;
    Pruefen();
    Fenster.Visible = true;
}

void PcFenster::Schliessen() {
    takt_.Stop();
    if (fragt_) {
        schliesst_ = true;
        Suche_Abbrechen(link, Adapter);
        return;
    }
    schritt_ = Schritt::Done;
    Fenster.Visible = false;
    kern.Windows.BackToMain();
}

void PcFenster::Erneut_Click() {
    if (schritt_ == Schritt::Done) {
        Pruefen();
    }
}

void PcFenster::Pruefen() {
    ports_.clear();
    pc_.clear();
    files_.clear();
    schritt_ = Schritt::Ports;
    Texte_Setzen();
    Auswahl.None();
    takt_.Start(NextStep);
}

void PcFenster::Weiter() {
    takt_.Stop();
    switch (schritt_) {
    case Schritt::Ports:
        Ansehen();
        Lesen(Schritt::Ports);
        schritt_ = Schritt::Pc;
        break;
    case Schritt::Pc:
        Lesen(Schritt::Pc);
        schritt_ = Schritt::Files;
        break;
    case Schritt::Files:
        Lesen(Schritt::Files);
        schritt_ = Schritt::Ask;
        break;
    case Schritt::Ask:
        Fragen();
        return;
    case Schritt::Done:
        return;
    }
    Zeigen();
    takt_.Start(NextStep);
}

void PcFenster::Ansehen() {
    const Konfiguration& config = kern.Config;
    const std::vector<int> ports =
        config.AdapterModus() ? kern.Welt.AdapterPorts() : std::vector<int>{config.PortNummer};
    facts_ = Haken.Ansehen ? Haken.Ansehen(ports) : PcFacts{.Now = kern.Welt.Now()};
    const bool busy = Haken.Belegt && Haken.Belegt();
    for (PortFacts& port : facts_.Ports) {
        port.Own = kern.Welt.Port.IsOpen() && link.PortNummer == port.Number;
        port.Busy = busy;
        port.Opened = port.Own;
        if (port.Own) {
            port.Holder.clear(); // this program itself
        }
    }
    const bool asks = Fragbar();
    for (PortFacts& port : facts_.Ports) {
        port.Asking = asks && port.Right && port.Holder.empty();
    }
}

/// There is a port to ask, and nobody works with it.
bool PcFenster::Fragbar() const {
    return std::any_of(facts_.Ports.begin(), facts_.Ports.end(), [](const PortFacts& port) {
        return port.Serial && port.Right && port.Holder.empty() && !port.Busy;
    });
}

void PcFenster::Fragen() {
    if (Adapter.SucheLaeuft) { // of the main window, which began before
        takt_.Start(SearchEnds);
        return;
    }
    if ((Haken.Belegt && Haken.Belegt()) || !Fragbar()) {
        Ansehen();
        for (PortFacts& port : facts_.Ports) {
            port.Asking = false;
        }
        Abschluss();
        return;
    }
    if (kern.Config.AdapterModus()) {
        Ports_Ermitteln(kern, Adapter);
    }
    std::vector<int> asked;
    Adapter.Suche_Zeigen = [&asked](const SuchSchritt& step) { asked.push_back(step.Port); };
    fragt_ = true;
    const bool answered = Adapter_Suchen(link, Adapter);
    fragt_ = false;
    Adapter.Suche_Zeigen = {};
    if (schliesst_) {
        Schliessen();
    } else if (Fenster.Visible) {
        Antworten_Uebernehmen(answered, asked);
        Abschluss();
    }
}

void PcFenster::Antworten_Uebernehmen(bool answered, const std::vector<int>& asked) {
    const PortFault fault = kern.Welt.Port.LastFault ? kern.Welt.Port.LastFault() : PortFault();
    Ansehen(); // behind the question, as the port was opened for it
    for (PortFacts& port : facts_.Ports) {
        port.Asking = false;
        port.Asked = std::find(asked.begin(), asked.end(), port.Number) != asked.end();
        port.Opened = port.Opened || port.Asked;
        if (answered && port.Asked && asked.front() == asked.back()) {
            port.Version = 0; // until its record says more
        }
        for (const std::vector<AdapterSatz>* found : {&Adapter.Saetze, &Adapter.Fremde}) {
            for (const AdapterSatz& adapter : *found) {
                if (answered && adapter.Port == Ziffern(port.Number)) {
                    port.Version = adapter.Version;
                    port.AdapterName = adapter.Name;
                }
            }
        }
        if (!port.Asked && facts_.Ports.size() == 1) { // of several, the fault may be another one's
            port.Held = fault.What == PortFault::Kind::Held || fault.What == PortFault::Kind::HeldByService;
            port.Refusal = NachUtf8(PortFault_Text(kern, fault));
        }
    }
}

void PcFenster::Lesen(Schritt step) {
    const DoctorWords say = Worte();
    if (step == Schritt::Ports) {
        ports_.clear();
        Port_Befragen(facts_, say, ports_);
    } else if (step == Schritt::Pc) {
        pc_.clear();
        Pc_Befragen(facts_, say, pc_);
    } else {
        files_.clear();
        Dateien_Befragen(facts_,
                         {.Files = kern.Welt.Files, .AppPath = kern.AppPath, .ProgramFiles = kern.Welt.ProgramFiles},
                         say, files_);
    }
}

void PcFenster::Abschluss() {
    Lesen(Schritt::Ports);
    schritt_ = Schritt::Done;
    Zeigen();
    Schlimmste_Waehlen();
}

/// The first fault, else what else is not good, unless the operator has chosen a line meanwhile.
void PcFenster::Schlimmste_Waehlen() {
    int worst = FirstRow;
    for (int row = FGK.Rows() - 1; row >= FirstRow; --row) {
        const int now = FGK.At(row, PcColumn::Verdict).Picture;
        const int before = FGK.At(worst, PcColumn::Verdict).Picture;
        const bool fault = now == VerdictPicture::Fault;
        if (fault || (now != VerdictPicture::Good && before != VerdictPicture::Fault)) {
            worst = row;
        }
    }
    if (FGK.Row < FirstRow) {
        Auswahl.Go(worst, PcColumn::Verdict);
    }
}

std::string PcFenster::Zeilenname(const DoctorLine& line) const {
    return AusUtf8(Pruefung_Text(Worte(), line.Check) + (line.About.empty() ? "" : " " + line.About));
}

void PcFenster::Zeigen() {
    int row = FirstRow;
    int faults = 0;
    int notes = 0;
    FGK.Resize(FirstRow + static_cast<int>(ports_.size() + pc_.size() + files_.size()), PcColumn::Count);
    for (const std::vector<DoctorLine>* lines : {&ports_, &pc_, &files_}) {
        for (const DoctorLine& line : *lines) {
            faults += line.Result == Verdict::Fault ? 1 : 0;
            notes += line.Result == Verdict::Note || line.Result == Verdict::Untold ? 1 : 0;
            Zeile_Zeigen(row, line);
            ++row;
        }
    }
    const bool done = schritt_ == Schritt::Done;
    Stand.Text = !done                       ? Wort(kern, Word::PcRunning)
                 : faults == 0 && notes == 0 ? Wort(kern, Word::PcAllGood)
                                             : Wort(kern, Word::PcSummary, {Ziffern(faults), Ziffern(notes)});
    Erneut.Enabled = done;
    Kopieren.Enabled = done;
    Beheben.Enabled = done && Behebbar();
    Auswahl_Zeigen();
}

void PcFenster::Zeile_Zeigen(int row, const DoctorLine& line) {
    FGK.SetText(row, PcColumn::Verdict, AusUtf8(Urteil_Text(Worte(), line.Result)));
    FGK.SetPicture(row, PcColumn::Verdict, Bild(line.Result));
    FGK.SetBold(row, PcColumn::Verdict, line.Result == Verdict::Fault);
    FGK.SetText(row, PcColumn::Check, Zeilenname(line));
    FGK.SetText(row, PcColumn::Finding, AusUtf8(line.Proof));
    FGK.SetText(row, PcColumn::ToDo, AusUtf8(line.ToDo));
}

void PcFenster::Auswahl_Zeigen() {
    const int row = FGK.Row;
    const bool line = row >= FirstRow && row < FGK.Rows();
    const std::string& todo = FGK.Text(row, PcColumn::ToDo);
    Einzelheit.Text = !line          ? std::string()
                      : todo.empty() ? FGK.Text(row, PcColumn::Finding)
                                     : FGK.Text(row, PcColumn::Finding) + "\n" + todo;
}

void PcFenster::Texte_Setzen() {
    Fenster.Title = Fenstertitel(Wort(kern, Word::PcCheck));
    FGK.SetText(0, PcColumn::Verdict, Wort(kern, Word::PcVerdict));
    FGK.SetText(0, PcColumn::Check, Wort(kern, Word::PcWhat));
    FGK.SetText(0, PcColumn::Finding, Wort(kern, Word::PcFinding));
    FGK.SetText(0, PcColumn::ToDo, Wort(kern, Word::PcToDo));
    Erneut.Text = Wort(kern, Word::PcAgain);
    Kopieren.Text = Wort(kern, Word::PcCopy);
    Beheben.Text = Wort(kern, Word::PcMend);
    Zurueck.Text = kern.Zeile(Line::Back);
    if (schritt_ == Schritt::Done && !ports_.empty()) {
        Lesen(Schritt::Ports);
        Lesen(Schritt::Pc);
        Lesen(Schritt::Files);
    }
    Zeigen();
}

bool PcFenster::Behebbar() const {
    const auto any = [](const std::vector<DoctorLine>& lines) {
        return std::any_of(lines.begin(), lines.end(),
                           [](const DoctorLine& line) { return line.Fix.What != DoctorFix::Kind::None; });
    };
    return Haken.Beheben && (any(ports_) || any(pc_) || any(files_));
}

void PcFenster::Beheben_Click() {
    if (schritt_ != Schritt::Done || !Behebbar()) {
        return;
    }
    std::vector<DoctorLine> wanted;
    std::string question = Wort(kern, Word::PcAskMend) + "\r\n";
    for (const std::vector<DoctorLine>* lines : {&ports_, &pc_, &files_}) {
        for (const DoctorLine& line : *lines) {
            if (line.Fix.What != DoctorFix::Kind::None) {
                wanted.push_back(line);
                question.append("\r\n").append(Zeilenname(line)).append(": ").append(AusUtf8(line.Proof));
            }
        }
    }
    if (kern.Meldung(question, Buttons::YesNo, Icon::Question, Wort(kern, Word::PcCheck)) != Answer::Yes) {
        return;
    }
    std::string refused;
    for (const DoctorLine& line : wanted) {
        if (const std::string why = Haken.Beheben(line.Fix); !why.empty()) {
            refused.append("\r\n").append(Zeilenname(line)).append(": ").append(AusUtf8(why));
        }
    }
    if (!refused.empty()) {
        kern.Meldung(Wort(kern, Word::PcNotMended) + "\r\n" + refused, Buttons::Ok, Icon::Exclamation,
                     Wort(kern, Word::PcCheck));
    }
    Pruefen();
}

void PcFenster::Kopiert() {
    Stand.Text = Wort(kern, Word::PcCopied);
}

std::string PcFenster::Bericht() const {
    const DateTime& now = facts_.Now;
    std::string text = Fenstertitel(Wort(kern, Word::PcCheck)) + "  " + Datum_Text(Heute(now)) + "  " +
                       Uhrzeit_Text(now.Hour * 60 + now.Minute) + "\r\n\r\n";
    for (int row = FirstRow; row < FGK.Rows(); ++row) {
        text.append(FGK.Text(row, PcColumn::Verdict)).append("  ").append(FGK.Text(row, PcColumn::Check));
        text.append(": ").append(FGK.Text(row, PcColumn::Finding)).append("\r\n");
        if (const std::string& todo = FGK.Text(row, PcColumn::ToDo); !todo.empty()) {
            text.append("    > ").append(todo).append("\r\n");
        }
    }
    return text;
}

int PcFenster::Breite(int column) {
    constexpr std::array<int, PcColumn::Count> widths{1900, 3200, 4200, 3600};
    return column >= 0 && column < PcColumn::Count ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
