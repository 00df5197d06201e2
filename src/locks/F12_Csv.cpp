#include "F12_Csv.h"

#include "Csv.h"
#include "Kern.h"
#include "LockTable.h"

#include <string_view>

namespace qvm {
namespace {

constexpr int LastRow = LockGrid::LastRow - 1;
constexpr std::string_view LineEnd = "\r\n";

std::string Kopfzeile(const Kern& kern) {
    std::string line;
    const auto add = [&line](std::string_view text) { line += Csv_Feld(text) + ";"; };
    add(kern.Zeile(Line::LockName));
    add(kern.Zeile(Line::SerialNumber));
    add("-");
    for (const int name : {Line::PersonGroups, Line::CalendarsReleased, Line::LockClockActive, Line::TimeControl,
                           Line::ClockSetting, Line::Priority}) {
        add(kern.Zeile(name));
    }
    add("EMI");
    add("QVM");
    add(kern.Zeile(Line::Object));
    add(kern.Zeile(Line::CardError));
    return line;
}

bool Ist_Bild(int column) {
    return LockColumn::IstSchalter(column) || column == LockColumn::Emi;
}

} // namespace

std::string F12_CsvText(const Kern& kern, const Grid& locks) {
    std::string text = Kopfzeile(kern);
    text += LineEnd;
    for (int row = LockGrid::FirstRow; row <= LastRow; ++row) {
        for (int column = LockColumn::Name; column <= LockColumn::UnitType; ++column) {
            const Cell& cell = locks.At(row, column);
            text += Ist_Bild(column) ? (cell.Picture == LockPicture::On ? "X" : " ") : Csv_Feld(cell.Text);
            text += ";";
        }
        text += LineEnd;
    }
    return text;
}

} // namespace qvm
