#pragma once

#include "Controls.h"
#include "F5.h"

#include <array>
#include <string_view>

namespace qvm {

/// Where a key was found.
struct KeyFund {
    int Row = 0;          ///< of the user who has it, the last of several; 0: nobody
    bool Unsaved = false; ///< the channel of one of them could not be recorded
};

/// Window F16: finds a user by name, code or designation. It is also the end of the search for an E-Key that a device
/// has read, and of its synchronising; then the window itself does not open.
struct F16 {
    explicit F16(F5& table);

    static constexpr Colour HitGround = 0x00FFFF;

    F5& f5;
    Kern& kern;

    Window Fenster;
    std::array<CheckBox, 3> Option; ///< one of them is checked: name, code, designation
    TextBox Text1;                  ///< what is looked for
    Button Command1, Command2;      ///< search; back

    /// Opens over F5, which waits, with an empty text.
    void F16_Laden();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    void Option_Click(int index);
    /// Return searches, Escape leads back.
    void Text1_KeyPress(int key);
    /// Searches the column of the option for the text, and closes.
    void Command1_Click();
    /// Closes without a search.
    void Command2_Click();

    /// Finds the first user whose column holds `wanted`, upper and lower case alike; blanks around it and behind the
    /// cell's text do not count. F5 is there and free again, with the hit tinted and current. In the column of the keys
    /// the hit is told, too. Without a hit no cell is current. Without a text only a message is shown. Gives the row of
    /// the hit, 0 for none.
    int F16_Suchen(int column, std::string_view wanted);
    /// The same without a message at the hit. With `synchronise` every user with this key has its channel confirmed,
    /// each with a message, and the last one becomes the current one.
    KeyFund F16_EkeySuchen(int column, std::string_view wanted, bool synchronise);

private:
    bool Gesucht_Wird(std::string_view wanted);
    bool Ist_Treffer(int row, int column, std::string_view wanted) const;
    int Ersten_Treffer(int column, std::string_view wanted);
    KeyFund Synchronisieren(int column, std::string_view wanted);
    void Zu_F5();
    void Zeigen(int row, int column);

    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
