#include "SimFrame.h"
#include "SimNetwork.h"
#include "SimRanges.h"

#include <algorithm>

/// How a network adapter hands a lock's history on.
namespace qvm {

namespace {

constexpr std::size_t RequestBytes = 5;
constexpr std::size_t MostHistoryBlocks = 255;

/// The administrator code and its filler, which both requests carry.
void JudgeRequest(const NetworkTelegram& telegram, Judge& judge) {
    const auto body = std::span<const std::uint8_t>{telegram.Frame}.subspan(Net::Payload);
    const FormPart code{.Name = "administrator code", .First = 0, .Last = 2, .How = Check::AdminCode};
    const FormPart filler{.Name = "code filler", .First = 3, .Last = 4, .How = Check::Exactly, .A = 0xEE};
    for (const FormPart& part : {code, filler}) {
        const auto first = static_cast<std::size_t>(part.First), last = static_cast<std::size_t>(part.Last);
        if (const std::string fault = RangeFault(part, body.subspan(first, last + 1 - first)); !fault.empty()) {
            judge.Note(Wrong::Range, NetworkMark, std::string{part.Name} + ": " + fault);
        }
    }
    const auto rest = body.subspan(RequestBytes + 1);
    if (std::any_of(rest.begin(), rest.end(), [](std::uint8_t byte) { return byte != 0; })) {
        judge.Note(Wrong::Range, NetworkMark, "something stands behind the inner sum");
    }
}

void JudgeRequestLength(const NetworkTelegram& telegram, std::size_t due, Judge& judge) {
    if (telegram.Length() != due) {
        judge.Note(Wrong::Length, NetworkMark,
                   "the length word is " + std::to_string(telegram.Length()) + ", not " + std::to_string(due));
    }
}

/// A checksum behind each whole group; none behind the rest.
std::vector<std::uint8_t> HistoryBody(std::span<const std::uint8_t> records) {
    std::vector<std::uint8_t> body;
    for (std::size_t at = 0; at < records.size(); at += Net::Group) {
        const auto group = records.subspan(at, std::min(Net::Group, records.size() - at));
        body.insert(body.end(), group.begin(), group.end());
        if (group.size() == Net::Group) {
            body.push_back(SimSum(group));
        }
    }
    return body;
}

} // namespace

NetworkTurn NetworkAdapter::TakeHistoryStart(const NetworkPlace& place) {
    if (!ShortNetworkSumFits(telegram_, RequestBytes, place.Findings)) {
        return {};
    }
    BeginRun(place);
    JudgeRequestLength(telegram_, 48, place.Findings);
    JudgeRequest(telegram_, place.Findings);
    std::copy_n(telegram_.Frame.begin() + Net::Payload, adminCode_.size(), adminCode_.begin());
    phase_ = Phase::Fetching;
    NetworkTurn turn = Answer(place, Net::HistoryFetched);
    turn.WorkMs = place.Adapter.Waits.FetchMs;
    return turn;
}

NetworkTurn NetworkAdapter::TakeHistoryNext(const NetworkPlace& place) {
    if (!ShortNetworkSumFits(telegram_, RequestBytes, place.Findings)) {
        return {};
    }
    JudgeRequestLength(telegram_, 37, place.Findings);
    JudgeRequest(telegram_, place.Findings);
    const std::size_t sent = telegram_.Number(), piece = static_cast<std::size_t>(place.Adapter.Waits.HistoryBytes);
    if (phase_ != Phase::History || sent == 0 || sent * piece >= history_.size() || sent >= MostHistoryBlocks) {
        OutOfOrder(place, "no history block follows number " + std::to_string(sent));
        return {};
    }
    if (!std::equal(adminCode_.begin(), adminCode_.end(), telegram_.Frame.begin() + Net::Payload)) {
        place.Findings.Note(Wrong::Range, NetworkMark, "another administrator code than at the start of the reading");
    }
    NetworkTurn turn = SendHistory(sent + 1, place);
    turn.AfterMs = place.Adapter.Waits.AnswerMs;
    return turn;
}

/// `block` counts from 1.
NetworkTurn NetworkAdapter::SendHistory(std::size_t block, const NetworkPlace& place) {
    const VirtualLock* lock = Reached(place, telegram_.Serial(), adminCode_);
    if (lock == nullptr) {
        phase_ = Phase::Idle;
        return {.Answer = NetworkAnswer(telegram_, 1, Net::NotReached), .Closed = true};
    }
    if (phase_ == Phase::Fetching) {
        history_.clear();
        for (const HistoryLine& line : lock->History) {
            history_.insert(history_.end(), line.begin(), line.end());
        }
    }
    phase_ = Phase::History;
    const auto piece = static_cast<std::size_t>(std::max(place.Adapter.Waits.HistoryBytes, 1));
    const std::size_t at = std::min((block - 1) * piece, history_.size());
    const auto records = std::span<const std::uint8_t>{history_}.subspan(at, std::min(piece, history_.size() - at));
    const bool last = at + records.size() == history_.size() || block == MostHistoryBlocks;
    const std::uint8_t code = last ? Net::HistoryLast : Net::HistoryMore;
    return {.Answer = NetworkAnswer(telegram_, static_cast<std::uint8_t>(block), code, HistoryBody(records)),
            .Closed = last};
}

} // namespace qvm
