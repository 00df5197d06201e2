#include "SimUnit.h"

#include "SimAnswers.h"
#include "SimFrame.h"

#include <algorithm>

namespace qvm {

namespace {

/// Reason of a refused data start: the unit is not ready yet.
constexpr std::uint8_t Busy = 0x67;
constexpr std::size_t PieceSize = 32;
constexpr std::uint8_t LoginCode = 0x04, ShortLogin = 0x12, LongLogin = 0x14, ServiceMode = 1;

struct Turn {
    VirtualUnit& Unit;
    UnitSession& Session;
    std::span<const std::uint8_t> Frame;
    const DecipherFunction& Decipher;
    Judge& Findings;

    std::uint8_t Code() const { return Frame[2]; }
    DeviceReply Plain() const { return {.Bytes = Acknowledge(Code(), Unit.Serial)}; }
    DeviceReply WithStatus(std::uint8_t code, std::uint8_t status) const {
        return StatusReply(code, Unit.Serial, status);
    }
    std::uint16_t WordAt(std::size_t index) const {
        return static_cast<std::uint16_t>((Frame[index] << 8) | Frame[index + 1]);
    }
};

/// Login, and the connect telegram of type 2: both are answered by 0x04.
DeviceReply TakeLogin(Turn& turn) {
    VirtualUnit& unit = turn.Unit;
    UnitSession& session = turn.Session;
    const std::uint8_t status = LoginStatus(unit.LoginStatus, unit.AdminCode, turn.Frame);
    if (turn.Code() == LoginCode) {
        session = UnitSession{};
        session.Service = ServiceLogin(turn.Frame);
        session.RefusedLogin = status == StatusAccepted ? std::uint8_t{0} : status;
        if (!session.Service && turn.Frame[1] != ShortLogin) {
            turn.Findings.Note(Wrong::Length, turn.Code(), "a unit is logged into with the short telegram");
        }
    }
    session.Open = status == StatusAccepted;
    return turn.WithStatus(LoginCode, status);
}

DeviceReply TakeCodeChange(Turn& turn) {
    const std::uint8_t refused = turn.Session.RefusedLogin;
    VirtualUnit& unit = turn.Unit;
    return turn.WithStatus(turn.Code(),
                           ChangeCode(refused != 0 ? refused : unit.CodeStatus, unit.AdminCode, turn.Frame));
}

DeviceReply TakeChannel(Turn& turn, Step step) {
    UnitSession& session = turn.Session;
    if (step == Step::ChannelRead) {
        UnitSession fresh;
        fresh.Open = session.Open;
        fresh.Service = session.Service;
        fresh.ChannelAsked = turn.Frame[14];
        session = fresh;
        return turn.Plain();
    }
    return ChannelReply(step, turn.Frame, turn.Unit.Serial, session.ChannelAsked, turn.Unit.Channel, turn.Findings);
}

DeviceReply TakeErase(Turn& turn) {
    VirtualUnit& unit = turn.Unit;
    if (turn.Frame[14] != 0) {
        turn.Findings.Note(Wrong::Range, turn.Code(), "the option is 0 in a unit's session");
    }
    if (unit.RefusedErases > 0) {
        --unit.RefusedErases;
        return {.Bytes = RefusalReply(Busy)};
    }
    unit.Rows.clear();
    unit.RowsAnnounced = 0;
    turn.Session.LastPiece = -1;
    ++unit.Erases;
    return turn.Plain();
}

/// A row's first two bytes are its length, low byte first: that many bytes must have come, padded with zeros.
void JudgeRowEnd(const UnitRow& row, std::uint8_t code, Judge& judge) {
    if (row.Bytes.size() < 2) {
        return;
    }
    const std::size_t length = row.Bytes[0] + std::size_t{row.Bytes[1]} * 256;
    const std::size_t pieces = (length + PieceSize - 1) / PieceSize;
    const std::string name = "row " + std::to_string(row.Number) + ": ";
    if (row.Bytes.size() != pieces * PieceSize) {
        judge.Note(Wrong::Range, code,
                   name + std::to_string(row.Bytes.size()) + " bytes came, its length says " + std::to_string(length));
    } else if (std::any_of(row.Bytes.begin() + static_cast<std::ptrdiff_t>(length), row.Bytes.end(),
                           [](std::uint8_t b) { return b != 0; })) {
        judge.Note(Wrong::Range, code, name + "the padding is not zero");
    }
}

void JudgeBlockOrder(const Turn& turn) {
    const VirtualUnit& unit = turn.Unit;
    const auto note = [&turn](const std::string& text) { turn.Findings.Note(Wrong::Order, turn.Code(), text); };
    const int row = turn.WordAt(17), piece = turn.Frame[19];
    const int lastRow = unit.Rows.empty() ? 0 : unit.Rows.back().Number;
    const bool goesOn = !unit.Rows.empty() && row == lastRow && piece == turn.Session.LastPiece + 1;
    const bool next = row == lastRow + 1 && piece == 0;
    if (!goesOn && !next) {
        note("row " + std::to_string(row) + " piece " + std::to_string(piece) + " behind row " +
             std::to_string(lastRow) + " piece " + std::to_string(turn.Session.LastPiece));
    }
    if (row < 1 || row > turn.WordAt(15)) {
        note("row " + std::to_string(row) + " of " + std::to_string(turn.WordAt(15)));
    }
    if (!unit.Rows.empty() && unit.RowsAnnounced != turn.WordAt(15)) {
        note("the count of rows has changed");
    }
    if (goesOn && (unit.Rows.back().Type != turn.Frame[20] || unit.Rows.back().Address != turn.WordAt(21))) {
        note("type or address changed within a row");
    }
}

DeviceReply TakeBlock(Turn& turn) {
    VirtualUnit& unit = turn.Unit;
    std::vector<std::uint8_t> plain(turn.Frame.begin(), turn.Frame.begin() + 56);
    for (const std::size_t at : {std::size_t{23}, std::size_t{39}}) {
        if (turn.Decipher) {
            turn.Decipher(std::span<std::uint8_t, 16>{plain.data() + at, 16}, unit.Key);
        }
    }
    // The inner sum runs over the plain bytes and was made when index 13 stood at 0.
    if (SimSum(std::span{plain}.subspan(13, 42)) != plain[55]) {
        turn.Findings.Note(Wrong::Checksum, turn.Code(), "the inner sum does not fit the deciphered block");
    }
    JudgeBlockOrder(turn);
    const std::uint16_t number = turn.WordAt(17);
    const bool newRow = unit.Rows.empty() || unit.Rows.back().Number != number;
    if (newRow) {
        if (!unit.Rows.empty()) {
            JudgeRowEnd(unit.Rows.back(), turn.Code(), turn.Findings);
        }
        unit.Rows.push_back({.Number = number, .Type = turn.Frame[20], .Address = turn.WordAt(21), .Bytes = {}});
    }
    unit.RowsAnnounced = turn.WordAt(15);
    turn.Session.LastPiece = turn.Frame[19];
    std::vector<std::uint8_t>& bytes = unit.Rows.back().Bytes;
    bytes.insert(bytes.end(), plain.begin() + 23, plain.begin() + 23 + PieceSize);
    return turn.WithStatus(turn.Code(), unit.BlockStatus);
}

DeviceReply TakeClose(Turn& turn) {
    UnitSession& session = turn.Session;
    DeviceReply reply = turn.Plain();
    if (turn.Unit.Type == 1 || session.Service) {
        reply.Closed = session.Open;
        turn.Unit.Sessions += session.Open ? 1 : 0;
        session.Open = false;
        return reply;
    }
    if (session.Last == Step::UnitBlock && !turn.Unit.Rows.empty()) {
        JudgeRowEnd(turn.Unit.Rows.back(), turn.Code(), turn.Findings);
    }
    const bool blocksDone = turn.Unit.Rows.size() == turn.Unit.RowsAnnounced;
    const bool due = session.Last == Step::Erase || session.Last == Step::UnitBlock || session.Last == Step::Close;
    if (!due || !blocksDone) {
        turn.Findings.Note(Wrong::Unfinished, turn.Code(),
                           std::string{"closed behind "} + StepName(session.Last) + ", " +
                               std::to_string(turn.Unit.Rows.size()) + " of " +
                               std::to_string(turn.Unit.RowsAnnounced) + " rows");
    }
    return reply;
}

DeviceReply TakeDisconnect(Turn& turn) {
    DeviceReply reply = turn.Plain();
    reply.Closed = turn.Session.Open;
    turn.Unit.Sessions += turn.Session.Open ? 1 : 0;
    turn.Session.Open = false;
    return reply;
}

DeviceReply TakeLockSerial(Turn& turn) {
    DeviceAddress serial{};
    std::copy_n(turn.Frame.begin() + 14, serial.size(), serial.begin());
    turn.Unit.Lock = serial;
    return turn.Plain();
}

DeviceReply Act(Turn& turn, Step step) {
    switch (step) {
    case Step::Login:
    case Step::UnitConnect:
        return TakeLogin(turn);
    case Step::CodeChange:
        return TakeCodeChange(turn);
    case Step::ChannelRead:
    case Step::ChannelAct:
    case Step::ChannelSet:
        return TakeChannel(turn, step);
    case Step::UnitSetting:
    case Step::UnitOpen:
        return TakeLockSerial(turn);
    case Step::UnitKey:
        std::copy_n(turn.Frame.begin() + 14, 16, turn.Unit.Key.begin());
        return turn.Plain();
    case Step::Erase:
        return TakeErase(turn);
    case Step::UnitBlock:
        return TakeBlock(turn);
    case Step::Close:
        return TakeClose(turn);
    case Step::UnitDisconnect:
        return TakeDisconnect(turn);
    default:
        return {.Bytes = RefusalReply(Refusal::NotAccepted)};
    }
}

/// Steps that need an accepted login or connect.
bool NeedsSession(const UnitSession& session, Step step, int type) {
    if (step == Step::CodeChange && session.RefusedLogin != 0 && session.Last == Step::Login) {
        return false; // it gets the status of that login
    }
    if (type == 1 || session.Service) {
        return step != Step::Login && step != Step::Close;
    }
    return step == Step::Erase || step == Step::UnitBlock || step == Step::CodeChange;
}

} // namespace

bool ServiceLogin(std::span<const std::uint8_t> frame) {
    return frame[2] == LoginCode && frame[1] == LongLogin && frame[8] == ServiceMode;
}

DeviceReply UnitAnswers(VirtualUnit& unit, UnitSession& session, std::span<const std::uint8_t> frame,
                        const DecipherFunction& decipher, Judge& judge) {
    Turn turn{.Unit = unit, .Session = session, .Frame = frame, .Decipher = decipher, .Findings = judge};
    const Step step = StepOf(frame);
    const bool service = step == Step::Login ? ServiceLogin(frame) : session.Service;
    if (!session.Open && NeedsSession(session, step, unit.Type)) {
        judge.Note(Wrong::Order, frame[2], std::string{StepName(step)} + " without a session");
        return {.Bytes = RefusalReply(Refusal::NotAccepted)};
    }
    if (const std::string fault = UnitOrderFault(session, step, unit.Type, service); !fault.empty()) {
        judge.Note(Wrong::Order, frame[2], fault);
    }
    DeviceReply reply = Act(turn, step);
    const bool refused = reply.Bytes.size() > 2 && reply.Bytes[2] == 0x69;
    if (!refused) {
        session.Last = step;
    }
    return reply;
}

} // namespace qvm
