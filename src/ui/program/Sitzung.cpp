#include "Sitzung.h"

#include "BuildingWindow.h"
#include "Geometry.h"
#include "MainWindows.h"
#include "Oberflaeche.h"
#include "PcLook.h"
#include "SimCipher.h"
#include "Text.h"
#include "Words.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <cstdlib>
#include <vector>

namespace qvm::ui {
namespace {

/// The end of the program, also out of a wait for an adapter: it would hold the process for seconds, and with it the
/// claim to be the only instance. By then all is saved and the port is closed.
void EndSoon() {
    constexpr int Milliseconds = 200;
    QCoreApplication::exit(0);
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [] { std::_Exit(0); });
    timer->start(Milliseconds);
}

std::string Beigabe(const QString& name) {
    QFile file(QStringLiteral(":/demonstration/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

} // namespace

Sitzung::Sitzung(QtPlatform& platform, MessageBoxes& boxes, const std::string& directory, Danach which)
    : platform_(platform), boxes_(boxes), which_(which) {
    Platform* world = &platform.World();
    if (which != Danach::Wirklich) {
        std::optional<Gebaeudevorlage> demonstration;
        if (which == Danach::Vorfuehrung) {
            demonstration = {.Installation = Beigabe(QStringLiteral("installation.json")),
                             .World = Beigabe(QStringLiteral("world.json"))};
        }
        building_ = std::make_unique<Gebaeude>(*world, directory, std::move(demonstration), SimDecipher);
        world = &building_->Welt();
    }
    programm_ = std::make_unique<Programm>(*world, directory);
    programm_->kern.ImGebaeude = building_ != nullptr;
    boxes_.setWords(programm_->kern);
}

Sitzung::~Sitzung() = default;

StartResult Sitzung::Starten(bool claim) {
    return Programm_Start(*programm_, claim);
}

void Sitzung::Haken_Setzen() {
    F2Hooks& hooks = programm_->Main->F2.Hooks;
    hooks.Ende = [this] {
        next_ = wanted_;
        next_ == Danach::Ende ? EndSoon() : QCoreApplication::exit(0);
    };
    hooks.Gebaeude = [this](bool demonstration) {
        Wechseln(building_ ? Danach::Wirklich : demonstration ? Danach::Vorfuehrung : Danach::Gebaeude);
    };
    if (building_) {
        hooks.Ende_Erlaubt = {}; // nothing of it is kept in any case
        hooks.Gebaeude_Zeigen = [this] { buildingModel_->FormLaden(); };
    } else {
        const Kern& kern = programm_->kern;
        PcHaken& pc = programm_->Main->Pc.Haken;
        pc.Ansehen = [&kern](const std::vector<int>& ports) { return PcFacts_Look(kern.AppPath, std::nullopt, ports); };
        pc.Beheben = [&kern](const DoctorFix& fix) { return Pc_Mend(kern.AppPath, kern.Welt.Files, fix); };
    }
}

/// The end may be refused, for the sake of something that was not saved.
void Sitzung::Wechseln(Danach next) {
    wanted_ = next;
    programm_->Main->F2.Beenden();
    wanted_ = Danach::Ende;
}

void Sitzung::Gebaeude_Oeffnen() {
    building_->Einrichten(programm_->kern);
    building_->Kein_Sichern = [this] {
        programm_->kern.Meldung(Wort(programm_->kern, Word::BuildingNoSave), Buttons::Ok, Icon::Information);
    };
    buildingModel_ = std::make_unique<GebaeudeFenster>(programm_->kern, *building_);
    buildingWindow_ = std::make_unique<BuildingWindow>(*buildingModel_);
}

Danach Sitzung::Laufen() {
    keepGeometry(!building_);
    programm_->Main->F1.CipherText = AusUtf8(platform_.CipherText());
    programm_->Main->F1.SupportPage = QVM_SUPPORT_PAGE;
    if (building_) {
        Gebaeude_Oeffnen();
    }
    windows_ = std::make_unique<Oberflaeche>(*programm_);
    Haken_Setzen();
    // From inside the event loop, so that it can be left again whatever the operator does first.
    QTimer opening;
    opening.setSingleShot(true);
    QObject::connect(&opening, &QTimer::timeout, &opening, [this] {
        programm_->Main->F2.F2_Laden();
        if (buildingModel_) {
            buildingModel_->FormLaden();
        }
    });
    opening.start(0);
    QCoreApplication::exec();
    return next_;
}

} // namespace qvm::ui
