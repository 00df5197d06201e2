#include "SeriellesProtokoll.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <vector>

namespace {

using namespace qvm;

/// A world that has nothing but an open port that takes everything.
Platform Leere_Welt() {
    Platform world;
    world.Now = [] { return DateTime{}; };
    world.Milliseconds = [] { return std::int64_t{0}; };
    world.StartTimer = [](int, const std::function<void()>&) { return TimerId{1}; };
    world.StopTimer = [](TimerId) {};
    world.ProcessEvents = [] {};
    world.encryptData = [](std::span<std::uint8_t, 16>, std::span<const std::uint8_t, 16>) {};
    world.Port.Open = [](int) { return true; };
    world.Port.Close = [] {};
    world.Port.IsOpen = [] { return true; };
    world.Port.SetRts = [](bool) {};
    world.Port.Write = [](std::span<const std::uint8_t> bytes) { benchmark::DoNotOptimize(bytes.data()); };
    world.Port.OnByte = [](const std::function<void(std::uint8_t)>&) {};
    return world;
}

/// Frames with a good checksum, back to back, as they come over the line.
std::vector<std::uint8_t> Serielle_Rahmen() {
    std::vector<std::uint8_t> wire;
    for (unsigned length = 5; length < 250; length += 7) {
        std::vector<std::uint8_t> frame{StartByte, static_cast<std::uint8_t>(length)};
        for (unsigned n = 2; n <= length; ++n) {
            frame.push_back(static_cast<std::uint8_t>(n * 37 + length));
        }
        const std::uint8_t sum = Pruefsumme(frame);
        frame.push_back(0xAA);
        frame.push_back(sum);
        Stopfen(frame, wire);
    }
    return wire;
}

std::vector<std::uint8_t> Netzwerk_Rahmen() {
    std::vector<std::uint8_t> wire;
    for (unsigned length = 40; length < 1400; length += 97) {
        std::vector<std::uint8_t> frame{StartByte,
                                        1,
                                        NetworkCode,
                                        1,
                                        static_cast<std::uint8_t>(length >> 8),
                                        static_cast<std::uint8_t>(length & 0xFF)};
        for (unsigned n = 6; n + 1 < length; ++n) {
            frame.push_back(n == 27 ? std::uint8_t{0x14} : static_cast<std::uint8_t>(n * 37 + length));
        }
        frame.push_back(Pruefsumme(frame));
        Stopfen(frame, wire);
        wire.push_back(0x77);
    }
    return wire;
}

template <RxResult (*Step)(Empfaenger&, std::uint8_t)>
void Automat(benchmark::State& state, const std::vector<std::uint8_t>& wire) {
    Empfaenger rx;
    std::int64_t frames = 0;
    for (auto _ : state) {
        for (const std::uint8_t byte : wire) {
            frames += Step(rx, byte) == RxResult::Frame ? 1 : 0;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(wire.size()));
    state.counters["frames"] = static_cast<double>(frames) / static_cast<double>(state.iterations());
}

void BM_Empfang_Seriell(benchmark::State& state) {
    Automat<Empfang_Seriell>(state, Serielle_Rahmen());
}
BENCHMARK(BM_Empfang_Seriell);

void BM_Empfang_Netzwerk(benchmark::State& state) {
    Automat<Empfang_Netzwerk>(state, Netzwerk_Rahmen());
}
BENCHMARK(BM_Empfang_Netzwerk);

constexpr std::array<TimerRow, 10> Timers{TimerRow{1, 8, 0, 17, 30}};
constexpr std::array<HolidayRow, 21> Holidays{HolidayRow{1, 1, 26, 2, 1, 26}};
constexpr std::array<std::uint8_t, 29> Slice{7, 8, 9};
constexpr std::array<std::uint8_t, 26> CardHead{1, 0, 5};
constexpr std::array<std::array<std::uint8_t, 4>, 5> CardRows{};
constexpr std::array<std::uint8_t, 45> CardBytes{};

template <class Builder>
void Bauen(benchmark::State& state, Builder build) {
    Platform world = Leere_Welt();
    Kern kern(world);
    Link link(kern);
    for (auto _ : state) {
        benchmark::DoNotOptimize(build(link));
    }
}

#define QVM_BUILDER(name, ...)                                                                                         \
    BENCHMARK_CAPTURE(                                                                                                 \
        Bauen, name, +[](Link& link) { return name##_Senden(link __VA_OPT__(, ) __VA_ARGS__); })

QVM_BUILDER(TelUnitTrennen);
QVM_BUILDER(TelVerbinden);
QVM_BUILDER(TelVerbindenKurz);
QVM_BUILDER(TelTrennen);
QVM_BUILDER(TelDatum);
QVM_BUILDER(TelUhrzeit);
QVM_BUILDER(TelLebenszeichen);
QVM_BUILDER(TelBenutzerBeginn);
QVM_BUILDER(TelBenutzerName1, "Meier");
QVM_BUILDER(TelBenutzerName2, 7, "Meier");
QVM_BUILDER(TelBenutzerDaten, {.Slot = 7, .WithId = true});
QVM_BUILDER(TelCodeAendern, {1, 2, 3}, {4, 5, 6});
QVM_BUILDER(TelDatenEnde);
QVM_BUILDER(TelHistorie, 2);
QVM_BUILDER(TelSchaltuhrA, Timers, 0);
QVM_BUILDER(TelSchaltuhrAKurz, Timers);
QVM_BUILDER(TelSchaltuhrB, Timers, 0);
QVM_BUILDER(TelSchaltuhrBKurz, Timers);
QVM_BUILDER(TelEinzelFeiertage, Holidays, 0);
QVM_BUILDER(TelPermFeiertage, Holidays, 0);
QVM_BUILDER(TelSperrTimerFlag);
QVM_BUILDER(TelKalenderFlag);
QVM_BUILDER(TelDatenStart, 1);
QVM_BUILDER(TelKanalLesen, 1);
QVM_BUILDER(TelKanalSetzen, 1);
QVM_BUILDER(TelPrioritaet);
QVM_BUILDER(TelSchlossModus);
QVM_BUILDER(TelZeitfenster, 1, 0, 7200);
QVM_BUILDER(TelBenutzerZeitgruppen, 7, {1, 2, 3});
QVM_BUILDER(TelReaderEinstellung, 0x82, true);
QVM_BUILDER(TelUnitEinstellung, {1, 2, 3, 4});
QVM_BUILDER(TelBenutzerVorlage, 7, "Meier", Slice, 12);
QVM_BUILDER(TelIdDaten1, 1, {});
QVM_BUILDER(TelIdDaten2, 1, 7, {});
QVM_BUILDER(TelUnitSchluessel);
QVM_BUILDER(TelUnitOeffnen, {1, 2, 3, 4});
QVM_BUILDER(TelUnitBlock, {.Rows = 1, .Row = 1});
QVM_BUILDER(TelUnitSuche);
QVM_BUILDER(TelEKeyAktion, 1, 1);
QVM_BUILDER(TelEKeyLesen, 1, 1, false);
QVM_BUILDER(TelFingerLoeschen, 1);
QVM_BUILDER(TelKarteStart);
QVM_BUILDER(TelKarteLesen, 1);
QVM_BUILDER(TelFingerAnlernen, 1, 1);
QVM_BUILDER(TelFingerAbfrage, 1, 1);
QVM_BUILDER(TelUnitVerbinden);
QVM_BUILDER(TelKarteSchreiben, CardHead, CardRows, 1);
QVM_BUILDER(TelKarteFolge, std::array<std::uint8_t, 2>{3, 1}, CardBytes, 11);
QVM_BUILDER(TelAdapterKennung, {1, 2, 3, 4, 5});
QVM_BUILDER(TelAdapterKanal);
QVM_BUILDER(TelAdapterDaten);
QVM_BUILDER(TelAdapterName, "PROGSTATION");
QVM_BUILDER(TelAdapterZiel, 1);

} // namespace
