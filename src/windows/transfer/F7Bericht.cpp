// What is handed over: the lines that the window shows.

#include "Berichte.h"
#include "F7.h"
#include "Stelle.h"

namespace qvm {

void F7::F7_Bericht_Click(ReportKind kind, ReportWay way) {
    if (Fenster.Enabled) {
        Berichte.Ausgeben(kind, way);
    }
}

std::optional<Report> F7::Bericht_Erstellen() const {
    std::vector<ReportEvent> events;
    events.reserve(At(lines_));
    for (int row = 1; row <= lines_; ++row) {
        events.push_back({FGV.Text(row, F7Column::Name), FGV.Text(row, F7Column::Date), FGV.Text(row, F7Column::Time),
                          FGV.Text(row, F7Column::Event)});
    }
    std::string about = file_;
    if (total_ > events.size()) {
        about += "   " + kern.Zeile(Line::Lines) + " ";
        about += std::to_string(events.size()) + " / " + std::to_string(total_);
    }
    return Bericht_Ereignisse(kern, about, events);
}

} // namespace qvm
