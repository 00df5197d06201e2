#include "F13.h"
#include "LockRecords.h"
#include "Pictures.h"
#include "Schloss.h"
#include "Text.h"
#include "UserRecords.h"
#include "Words.h"

namespace qvm {
namespace {

constexpr int RowFontSize = 12;

} // namespace

/// Loads a file of the grid; one that cannot be read is noted.
void F13::Lesen(RecordFile& file) {
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        unread_.push_back({.File = std::string(file.Layout().File), .Fault = Lesefehler(kern.Welt.Files)});
    }
}

void F13::F13_FormLaden() {
    unread_.clear();
    Fenster.Enabled = true;
    Timer1.Start(10);
    Timer2.Start(800);
    Aufrufer = CallerCode;
    hoverRow_ = hoverColumn_ = -1;
    run.link.Lauf.List = {};
    Listentasten_Freigeben();
    TuerInfo_laden();
    Adapter_Spalten_Laden();
    RFk_IconLoad();
    listRows_.clear();
    Sprung.Forget();
    Filter.Set("");
    Marken_Zurueckholen();
    Command1.Visible = !Gescheiterte_Zeilen().empty();
    // Shown last, so that the window's first size goes by its contents.
    Fenster.Visible = true;
    if (!unread_.empty()) {
        kern.Meldung(Wort(kern, Word::FileNotRead, {Dateimaengel_Text(kern, unread_)}), Buttons::Ok, Icon::Exclamation);
    }
}

void F13::Listentasten_Freigeben() {
    const bool list = static_cast<bool>(Listenzeile_Uebernehmen);
    Toolbar1[1].Enabled = list;
    Toolbar1[2].Enabled = list;
}

void F13::Del_FGK13_ICON(int row, int column) {
    for (int c = column; c < column + 4; ++c) {
        Cell blank;
        blank.FontSize = FGK13.At(row, c).FontSize;
        FGK13.Set(row, c, blank);
    }
}

void F13::Zeile_Fuellen(int row) {
    for (int c = F13Column::Program; c <= F13Column::Status; ++c) {
        if (c != F13Column::Code || F17_Oeffnen) {
            FGK13.SetBackColor(row, c, CellColour::Action);
        }
    }
    FGK13.SetBackColor(row, F13Column::Mark, CellColour::Action);
}

void F13::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::ProgramLocks));
    FGK13.SetText(0, F13Column::Number, kern.Zeile(Line::Number));
    FGK13.SetText(0, F13Column::Name, kern.Zeile(Line::DoorLock));
    FGK13.SetText(0, F13Column::Serial, kern.Zeile(Line::RadioAddress));
    FGK13.SetText(0, F13Column::Program, kern.Zeile(Line::Program));
    FGK13.SetText(0, F13Column::History, kern.Zeile(Line::History));
    FGK13.SetText(0, F13Column::Code, kern.Zeile(Line::ChangeCode));
    FGK13.SetText(0, F13Column::Status, kern.Zeile(Line::RadioChannel));
    FGK13.SetText(0, F13Column::Mark, "Prg.");
    Toolbar1[0].Tip = kern.Zeile(Line::Back);
    Toolbar1[1].Tip = kern.Zeile(Line::ProgramMarked);
    Toolbar1[2].Tip = kern.Zeile(Line::History);
    Command1.Text = Wort(kern, Word::MarkUnfinished);
}

void F13::TuerInfo_laden() {
    FGK13.ClearRows(0);
    Texte_Setzen();
    RecordFile locks(LockRecord::Record);
    Lesen(locks);
    for (int row = 1; row < FGK13.Rows(); ++row) {
        const LockInfo lock = Schloss_Lesen(locks, row);
        FGK13.SetText(row, F13Column::Number, Ziffern(row));
        FGK13.SetText(row, F13Column::Name, lock.Name);
        FGK13.SetText(row, F13Column::Serial, lock.Serial);
        FGK13.SetText(row, F13Column::Offset, lock.OffsetId);
        for (int n = 0; n < 5; ++n) {
            FGK13.SetText(row, F13Column::PersonTimers + n, lock.Switches[static_cast<std::size_t>(n)]);
        }
        for (int c = 0; c < F13Column::Count; ++c) {
            FGK13.SetFontSize(row, c, RowFontSize);
        }
        if (lock.Serial.empty()) {
            Del_FGK13_ICON(row, F13Column::Program);
        } else {
            Zeile_Fuellen(row);
        }
    }
}

void F13::Adapter_Spalten_Laden() {
    RecordFile adapters(LockAdapterRecord::Record);
    const bool one = Adapter.AdapterAnzahl() == 1;
    if (Adapter.AdapterAnzahl() > 1) {
        Lesen(adapters);
    }
    for (int row = 1; row < FGK13.Rows(); ++row) {
        if (FGK13.Text(row, F13Column::Serial).empty()) {
            continue;
        }
        FGK13.SetText(row, F13Column::AdapterId,
                      one ? Adapter.Saetze.front().Adresse : adapters.Text(row, LockAdapterRecord::AdapterId));
        FGK13.SetText(row, F13Column::AdapterName,
                      one ? Adapter.Saetze.front().Name : adapters.Text(row, LockAdapterRecord::AdapterName));
    }
}

void F13::RFk_IconLoad() {
    RecordFile channels(ChannelRecord::Record);
    Lesen(channels);
    for (int row = 1; row < FGK13.Rows(); ++row) {
        const bool pending = channels.Text(row, ChannelRecord::LockChange) == "1";
        FGK13.SetPicture(row, F13Column::Status, pending ? ChannelPicture::Image7 : ChannelPicture::Image8);
    }
}

void F13::Maus_Verfolgen() {
    int row = -1;
    int column = -1;
    if (!Maus_Zelle || !Maus_Zelle(row, column) || (row == hoverRow_ && column == hoverColumn_)) {
        return;
    }
    if (hoverRow_ > 0 && FGK13.At(hoverRow_, hoverColumn_).BackColor == CellColour::Hover) {
        FGK13.SetBackColor(hoverRow_, hoverColumn_, CellColour::Action);
    }
    hoverRow_ = hoverColumn_ = -1;
    // Only cells that can be clicked light up; a white cell must stay white, as that is what makes it dead.
    if (row > 0 && FGK13.At(row, column).BackColor == CellColour::Action) {
        FGK13.SetBackColor(row, column, CellColour::Hover);
        hoverRow_ = row;
        hoverColumn_ = column;
    }
}

} // namespace qvm
