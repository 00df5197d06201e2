#pragma once

#include "Controls.h"
#include "Kern.h"
#include "Text.h"

#include <array>
#include <string>
#include <string_view>

namespace qvm {

/// Window F14: the radio channel of the system.
struct F14 {
    explicit F14(Kern& kernel);

    Kern& kern;
    Window Fenster;
    ListBox Combo1; ///< the twelve channels
    std::array<ToolButton, 2> Toolbar1{{{.Key = u8"Zurück"_w, .Number = 1}, {.Key = "Speichern", .Number = 3}}};
    bool Dirty = false;

    void F14_Laden();
    /// Words from the catalogue anew; the selection stays.
    void Texte_Setzen();
    /// A change of the selection, 0 to 11.
    void Combo1_Click(int index);
    /// "Zurück" or "Speichern".
    void Toolbar1_ButtonClick(std::string_view key);

private:
    void Speichern();

    std::string channelAtOpen_;
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
