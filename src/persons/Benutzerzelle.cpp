#include "Benutzerzelle.h"

#include "UserTable.h"

namespace qvm {

void Benutzerzelle_Schreiben(Grid& users, int row, int column, std::string_view text) {
    const bool same = users.Text(row, column) == text;
    users.SetText(row, column, text);
    if (column != UserColumn::Name || text.empty()) {
        return;
    }
    if (users.Text(row, UserColumn::Group).empty()) {
        users.SetText(row, UserColumn::Group, "-");
    }
    if (users.Text(row, UserColumn::Right).empty()) {
        users.SetText(row, UserColumn::Right, Benutzerrechte.front());
    }
    if (same) {
        return; // a finger that is out of use is not to be in use because its user was looked at
    }
    const bool finger = !users.Text(row, UserColumn::FingerId).empty();
    users.SetPicture(row, UserColumn::Finger, finger ? FingerPicture::Standard : FingerPicture::None);
}

} // namespace qvm
