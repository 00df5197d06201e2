#include "Zeitworte.h"

#include "Zutritt.h"

#include <array>

namespace qvm {

std::string Tag_Wort(int selector) {
    constexpr std::array words{"off", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun", "Mon-Fri", "Sat-Sun", "Mon-Sun"};
    return selector >= 0 && static_cast<std::size_t>(selector) < words.size()
               ? words[static_cast<std::size_t>(selector)]
               : "?";
}

std::string Slot_Text(const TimerRow& row) {
    if (row[0] == 0) {
        return Tag_Wort(0);
    }
    return Tag_Wort(row[0]) + " " + Uhrzeit_Text(row[1] * HourMinutes + row[2]) + "-" +
           Uhrzeit_Text(row[3] * HourMinutes + row[4]);
}

std::string Tag_Text(const Datum& day) {
    return Tag_Wort(Wochentag(day)) + " " + Datum_Text(day);
}

} // namespace qvm
