#include "AdapterKunde.h"
#include "Befehle.h"
#include "Probewelt.h"
#include "Protokoll.h"
#include "Telegramme.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <iomanip>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

/// A run in which nothing has happened for so long stands; the longest ordered wait is far shorter.
constexpr int StandstillMs = 60000;

struct SentTelegram {
    DecodedTelegram Decoded;
    std::size_t Bytes; ///< on the wire
};

/// What one run would send.
struct Probelauf {
    std::string Name, Serial;
    std::vector<SentTelegram> Telegrams;
    std::int64_t BytesOut = 0;
    std::int64_t BytesBack = 0;
    double Seconds = 0;
    std::vector<std::string> Messages;
    std::string Fault; ///< empty when the run went to its end
};

/// The header says the same in nearly every telegram: class and mode are left out, the address where it is the one of
/// the telegram before.
void Kopf_Kuerzen(std::vector<DecodedField>& fields, std::string& address) {
    std::erase_if(fields, [&](const DecodedField& field) {
        if (field.Name != Adresskopf::DeviceAddress.Name) {
            return field.Name == Adresskopf::DeviceClass.Name || field.Name == Adresskopf::Mode.Name;
        }
        const bool same = field.Text == address;
        address = field.Text;
        return same;
    });
}

SentTelegram Gesendet(const TraceFrame& frame, std::string& address) {
    std::vector<std::uint8_t> wire;
    Stopfen(frame.Bytes, wire);
    SentTelegram sent{.Decoded = Dekodieren(Festhalten(frame)), .Bytes = wire.size()};
    if (frame.Way == TraceFrame::Direction::Sent) {
        Kopf_Kuerzen(sent.Decoded.Fields, address);
    }
    return sent;
}

void Starten(Programm& program, int lock) {
    program.Transfer->F13.FGK13_Click(lock, F13Column::Program);
    if (program.Transfer->F11.Fenster.Visible) {
        // The code is hidden wherever a telegram is shown.
        for (int n = 0; n < F11::CodeLength; ++n) {
            program.Transfer->F11.Text1_KeyPress('0');
        }
        program.Transfer->F11.OK_Click();
    }
}

Probelauf Durchspielen(Probewelt& dry, Programm& program, int lock) {
    Probelauf run;
    Port_Festlegen(program);
    program.Transfer->F13.F13_FormLaden();
    program.Transfer->F13.Timer1.Stop();
    program.Transfer->F13.Timer2.Stop();
    run.Name = Anzeige_Aus_1252(program.Transfer->F13.FGK13.Text(lock, F13Column::Name));
    run.Serial = Anzeige_Aus_1252(program.Transfer->F13.FGK13.Text(lock, F13Column::Serial));
    std::string address;
    program.link.Protokoll = [&](const TraceFrame& frame) {
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            run.Telegrams.push_back(Gesendet(frame, address));
            dry.Beantworten(frame);
        }
    };
    Starten(program, lock);
    while (!program.Run.Gesamtende && Lauf_Stille(program.Run) < StandstillMs && dry.Schritt()) {
    }
    if (run.Serial.empty()) {
        run.Fault = "the lock has no serial number in the lock table";
    } else if (run.Telegrams.empty()) {
        run.Fault = "the dataset could not be built";
    } else if (program.Run.Bericht.End != RunOutcome::Done) {
        run.Fault = "the run did not come to its end";
    }
    for (const Message& message : dry.Shown) {
        if (message.Choice == Buttons::Ok) {
            run.Messages.push_back(Anzeige_Aus_1252(message.Text));
        }
    }
    run.BytesOut = dry.BytesOut;
    run.BytesBack = dry.BytesBack;
    run.Seconds = dry.Sekunden();
    return run;
}

double Leitungszeit(const Probelauf& run) {
    return static_cast<double>(run.BytesOut + run.BytesBack) / Probewelt::BytesPerSecond;
}

Json Lauf_Json(int lock, const Probelauf& run) {
    Json telegrams = Json::array();
    for (const SentTelegram& sent : run.Telegrams) {
        Json fields = Json::array();
        for (const DecodedField& field : sent.Decoded.Fields) {
            if (!field.Constant) {
                fields.push_back({{"name", field.Name}, {"value", field.Text}});
            }
        }
        telegrams.push_back(
            {{"code", sent.Decoded.Code}, {"name", sent.Decoded.Name}, {"bytes", sent.Bytes}, {"fields", fields}});
    }
    return {{"command", "dataset"},
            {"ok", run.Fault.empty()},
            {"lock", lock},
            {"name", run.Name},
            {"serial", run.Serial},
            {"count", run.Telegrams.size()},
            {"bytesSent", run.BytesOut},
            {"bytesReceived", run.BytesBack},
            {"lineSeconds", Leitungszeit(run)},
            {"totalSeconds", run.Seconds},
            {"fault", run.Fault},
            {"messages", run.Messages},
            {"telegrams", telegrams}};
}

void Lauf_Text(const Console& console, int lock, const Probelauf& run) {
    std::ostream& out = console.Out;
    out << "Lock " << lock << " \"" << run.Name << "\" " << run.Serial << "\n";
    int number = 0;
    for (const SentTelegram& sent : run.Telegrams) {
        out << std::setw(5) << ++number << std::setw(5) << sent.Bytes << " bytes  " << Telegramm_Text(sent.Decoded)
            << "\n";
    }
    out << run.Telegrams.size() << " telegrams, " << run.BytesOut << " bytes sent, " << run.BytesBack
        << " bytes of replies, " << std::fixed << std::setprecision(1) << Leitungszeit(run)
        << " s on the line at 19200 baud, " << run.Seconds << " s with the waits that the run orders\n";
}

} // namespace

ExitCode Befehl_Dataset(const Umgebung& world, const Console& console, int lock, bool force) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("dataset", {why});
    }
    std::optional<DataLock> reading(std::in_place, world.DatPfad(), DataLock::Use::Read);
    Sperre_Holen(*reading, console);
    Probewelt dry(world.Welt);
    Programm program(dry.Welt, world.AppPath);
    Programm_Start(program, false);
    if (!Dateien_Vorpruefen(console, "dataset", program, {lock}, true, force)) {
        return ExitCode::Fault;
    }
    const Probelauf run = Durchspielen(dry, program, lock);
    // A slow reader of the output keeps nobody from the files.
    reading.reset();
    for (const std::string& message : run.Messages) {
        console.Meldung(message);
    }
    if (!run.Fault.empty()) {
        console.Meldung("Lock " + std::to_string(lock) + ": " + run.Fault + ".");
    }
    if (console.Json) {
        console.Ergebnis(Lauf_Json(lock, run));
    } else if (!run.Telegrams.empty()) {
        Lauf_Text(console, lock, run);
    }
    return run.Fault.empty() ? ExitCode::Good : ExitCode::Fault;
}

} // namespace qvm
