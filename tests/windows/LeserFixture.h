#pragma once

#include "AntwortRahmen.h"
#include "F5Fixture.h"
#include "Text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

using LineBytes = std::vector<std::uint8_t>;

inline constexpr std::string_view ChannelUnsaved =
    u8"Der Funkkanal des E-Keys konnte nicht gespeichert werden. Bitte prüfen Sie den "
    u8"Datenträger, und synchronisieren Sie den E-Key danach."_w;
inline constexpr std::string_view ReaderPulled =
    u8"Der Funkadapter wurde getrennt. Bitte stecken Sie ihn wieder an, und wiederholen Sie den "
    u8"Vorgang."_w;

/// The user window with an adapter of each kind on the desk, and a far end that says what the test wants.
struct LeserFixture : F5Fixture {
    static constexpr int KeyPort = 5, EnrolmentPort = 6;
    static constexpr const char* Channels = "/q/DAT/RFCHANDIF12.RFX";

    F5Schluessel& Keys() { return programm->Persons->Schluessel; }
    F5Finger& Fingers() { return programm->Persons->Finger; }
    F51& Enrolment() { return programm->Persons->F51; }

    /// Anna in row 2 and Bert in row 3, both with a channel record, unless the test has put users there before.
    void Users() {
        files.User(1, {.Name = "Anna"});
        files.User(2, {.Name = "Bert", .KeyId = "1 : 2 : 3 : 4", .KeyData = "5 : 6"});
    }
    void OpenDesk(int adapterVersion = 12) {
        Open();
        programm->Adapter.ProgStationPort = KeyPort;
        programm->Adapter.EnrollmentPort = EnrolmentPort;
        programm->Main->F2.AdapterVersion = adapterVersion;
        world.Written.clear();
    }
    /// A reply of the device; `payload` from index 3 on.
    void Say(std::uint8_t code, std::uint8_t length, const LineBytes& payload) {
        world.Deliver(ReplyWire(code, length, payload));
        world.RunFor(1);
    }
    /// A key with these identification bytes and data 1 to 16.
    void SayKey(const LineBytes& id) {
        LineBytes payload(11);
        payload.insert(payload.end(), id.begin(), id.end());
        for (std::uint8_t n = 1; n <= 16; ++n) {
            payload.push_back(n);
        }
        Say(0x81, 0x21, payload);
    }
    /// A transponder with identification 21 to 30 and data of sevens.
    void SayTransponder(std::uint8_t slot) {
        LineBytes payload{slot, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30};
        payload.insert(payload.end(), 16, 7);
        Say(0xA3, 0x1D, payload);
    }
    void SayStep(std::uint8_t step) {
        LineBytes payload(11);
        payload[10] = step;
        Say(0xA1, 0x0D, payload);
    }
    void SayPiece(std::uint8_t number, const LineBytes& bytes) {
        LineBytes payload{number, static_cast<std::uint8_t>(bytes.size())};
        payload.insert(payload.end(), bytes.begin(), bytes.end());
        Say(0xA2, static_cast<std::uint8_t>(4 + bytes.size()), payload);
    }
    void SayUserWindow() { Say(0x6F, 0x0D, {0xDC}); }
    void Refuse(std::uint8_t reason) { Say(0x69, 0x0D, {reason}); }
    void ExpectText(std::string_view text, Answer answer = Answer::Ok) {
        world.Answers.push_back({.Text = std::string(text), .Reply = answer});
    }
    /// Record of user n of the radio channels.
    std::string Channel(int user) {
        return world.Disk.Files[Channels].substr(15 * static_cast<std::size_t>(user - 1), 15);
    }
    const Message& Last() const { return world.Shown.back(); }
};

/// E-Keys and transponders of Anna, who has none, and Bert.
struct F5_Keys : LeserFixture {
    F5_Keys() { Users(); }
    /// Up to the telegram, for the user in this row.
    void Learn(int row, Answer asNew = Answer::Yes) {
        Window().MenuRow = row;
        Expect(154, asNew);
        ExpectText("L76\r\nL44");
        Keys().Save_Ekey_Click();
    }
    void Search() {
        Expect(76);
        Keys().Search_Ekey_Click();
    }
    void Synchronise() {
        Expect(76);
        Keys().key_synchron_Click();
    }
    std::string KeyOf(int row) { return Text(row, UserColumn::KeyId) + "|" + Text(row, UserColumn::KeyData); }
};

/// Fingers of Anna and Bert, unless the test has put users there before.
struct F5_Fingers : LeserFixture {
    static constexpr const char* Templates = "/q/DAT/TEmpTCD0UPK.FSD";
    static constexpr std::size_t RecordSize = 3028;

    F5_Fingers() { Users(); }
    void Enrol(int row) {
        Window().FsRow = row;
        Fingers().FS_anerlen_Click();
    }
    /// From the swipe to the end of F51.
    void Learn(int row, std::uint8_t byte) {
        Enrol(row);
        SayPiece(1, {byte});
        SayStep(0x0A);
        world.RunFor(3000);
    }
    /// Record slot + 249 of the templates.
    std::string Template(int slot) {
        return world.Disk.Files[Templates].substr(RecordSize * static_cast<std::size_t>(slot + 248), RecordSize);
    }
    std::string FingerOf(int row) {
        return Text(row, UserColumn::KeyLabel) + "|" + Text(row, UserColumn::FingerId) + "|" +
               std::to_string(Cells().At(row, UserColumn::Finger).Picture);
    }
};

} // namespace qvm::test
