#include "Dataset.h"
#include "Seriennummer.h"
#include "Text.h"

namespace qvm {

std::string Einstellung_AEsn(std::string_view serialText, Address& address) {
    const auto bytes = Serie_Zerlegen(serialText);
    if (!bytes) {
        return std::string(SerialError);
    }
    address = *bytes;
    return HexText(Serie_Zahl(address), 8);
}

} // namespace qvm
