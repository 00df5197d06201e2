#include "Migration.h"

#include "Benutzer_Umstellen.h"
#include "Units_Umstellen.h"

namespace qvm {

bool Dateien_Umstellen(Kern& kern) {
    const bool users = Benutzer_Umstellen(kern);
    const bool units = Units_Umstellen(kern);
    return users && units;
}

} // namespace qvm
