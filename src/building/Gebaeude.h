#pragma once

#include "Gebaeudedateien.h"
#include "Gebaeudeleitung.h"
#include "LockDoor.h"
#include "VirtualSystem.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

struct Kern;

/// An installation to try things on, with its devices, both as JSON (UTF-8): what an import takes, and the devices.
struct Gebaeudevorlage {
    std::string Installation, World;
};

/// A world for the program in which nothing is real: a copy of the installation's files, or a demonstration in its
/// place, kept in memory, and virtual devices for it behind a port that is none. What the program asks the operator,
/// and what it shows, goes on to the real one.
class Gebaeude {
public:
    /// @param outside the real world, which must outlive this
    /// @param directory the program's, with a trailing separator
    /// @param demonstration what stands in the place of the installation; nothing: its copy does
    /// @param decipher the inverse of the world's block cipher
    Gebaeude(Platform& outside, const std::string& directory, std::optional<Gebaeudevorlage> demonstration,
             DecipherFunction decipher);
    Gebaeude(const Gebaeude&) = delete;
    Gebaeude& operator=(const Gebaeude&) = delete;

    /// What the program is to run in. Files cannot be saved outside of the installation: the dialog is not shown, and
    /// counts as cancelled.
    Platform& Welt() { return inside_; }
    /// In the place of a dialog for a file to be saved.
    std::function<void()> Kein_Sichern;
    /// Sets the devices up by what the files hold, once the program has loaded its configuration in that world.
    /// Nothing is reached before.
    void Einrichten(Kern& kern);

    /// The devices; not before Einrichten.
    VirtualSystem& System() { return *system_; }
    /// The devices' state may have changed.
    std::function<void()> Geaendert;

    /// What the clock of this lock shows: the PC's, and what it was set wrong by. A run that sends it the time puts it
    /// right.
    LockClock Uhr(std::size_t lock) const;
    int Uhr_Abweichung(std::size_t lock) const; ///< minutes, fast above 0
    void Uhr_Stellen(std::size_t lock, int minutes);

    DoorTry Code_Eingeben(std::size_t lock, std::string_view digits);
    DoorTry Key_Vorhalten(std::size_t lock, std::span<const std::uint8_t> id);

    void Auflegen(Credential credential);
    bool Karte_Liegt() const;
    /// Lays a card on the writer, the one that lay there last where there was one, or takes it away.
    void Karte_Legen(bool there);

    const std::vector<VirtualAdapter>& Adapter() const { return adapters_; }
    std::size_t Adapter_Gewaehlt() const { return adapter_; }
    bool Adapter_Steckt() const { return line_.Steckt(); }
    void Adapter_Ziehen();
    void Adapter_Stecken();
    /// Another adapter is plugged in, in the place of that one.
    void Adapter_Wechseln(std::size_t adapter);

private:
    struct Lockuhr {
        int Minutes = 0;
        std::optional<LockClock> Sent; ///< what the lock was told last
    };

    SimSurroundings Umgebung();
    /// Its tables, in the operator's language where he has chosen one, and with the adapter searched for.
    void Vorlage_Einspielen(const std::string& directory);
    void Sitzung_Zu();
    void Melden() const;

    Platform& outside_;
    std::optional<Gebaeudevorlage> demonstration_;
    DecipherFunction decipher_;
    Gebaeudedateien files_;
    Gebaeudeleitung line_;
    Platform inside_;
    std::unique_ptr<VirtualSystem> system_;
    std::vector<Lockuhr> clocks_;
    std::vector<VirtualAdapter> adapters_;
    std::size_t adapter_ = 0;
    std::optional<VirtualCard> card_; ///< that was taken away
};

} // namespace qvm
