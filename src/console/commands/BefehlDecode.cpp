#include "Befehle.h"
#include "Protokoll.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

bool Vom_Pc(const Mitschnitt& frame) {
    return frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw;
}

Json Rahmen_Json(const Mitschnitt& frame) {
    const DecodedTelegram telegram = Dekodieren(frame);
    Json fields = Json::array();
    for (const DecodedField& field : telegram.Fields) {
        fields.push_back({{"name", field.Name}, {"value", field.Text}});
    }
    return {{"line", frame.Line},    {"direction", Vom_Pc(frame) ? "sent" : "received"},
            {"code", telegram.Code}, {"name", telegram.Name},
            {"fields", fields},      {"remarks", telegram.Remarks}};
}

} // namespace

ExitCode Befehl_Decode(const Umgebung& world, const Console& console, const std::string& file) {
    std::string bytes;
    if (const std::string why = Eingabe_Lesen(world, file.empty() ? "-" : file, bytes); !why.empty()) {
        return console.Fehlschlag("decode", {why});
    }
    const TraceText trace = Protokoll_Lesen(bytes);
    Json frames = Json::array();
    for (const Mitschnitt& frame : trace.Frames) {
        if (console.Json) {
            frames.push_back(Rahmen_Json(frame));
        } else {
            console.Out << (Vom_Pc(frame) ? "> " : "< ") << Telegramm_Text(Dekodieren(frame)) << "\n";
        }
    }
    Json errors = Json::array();
    for (const TraceError& error : trace.Errors) {
        console.Meldung("line " + std::to_string(error.Line) + ": " + error.Text);
        errors.push_back({{"line", error.Line}, {"text", error.Text}});
    }
    const bool good = trace.Errors.empty();
    if (console.Json) {
        console.Ergebnis({{"command", "decode"}, {"ok", good}, {"frames", frames}, {"errors", errors}});
    }
    return good ? ExitCode::Good : ExitCode::Fault;
}

} // namespace qvm
