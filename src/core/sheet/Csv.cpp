#include "Csv.h"

namespace qvm {

std::string Csv_Feld(std::string_view text) {
    const bool formula =
        !text.empty() && text != "-" && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
    std::string field = (formula ? "'" : "") + std::string(text);
    if (field.find_first_of(";\"\r\n") == std::string::npos) {
        return field;
    }
    std::string quoted = "\"";
    for (const char character : field) {
        quoted += character == '"' ? "\"\"" : std::string(1, character);
    }
    return quoted + "\"";
}

} // namespace qvm
