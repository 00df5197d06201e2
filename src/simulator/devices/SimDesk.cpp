#include "SimDesk.h"

#include "SimFrame.h"
#include "SimLock.h"

#include <algorithm>
#include <span>

namespace qvm {

namespace {

using FrameBytes = std::vector<std::uint8_t>;

constexpr std::uint8_t KeyRequest = 0x67, FingerRequest = 0xA1, TransponderRequest = 0xA3;
constexpr std::uint8_t KeyReply = 0x81, TemplateReply = 0xA2, UnitResult = 0x6F;
/// Sub-code of 0x6F: the user window may go on. The unit says so behind every reading of a transponder.
constexpr std::uint8_t UserWindow = 0xDC;
constexpr std::uint8_t FingerDone = 0x0A;
constexpr int ResultMs = 20;
constexpr std::size_t TemplateIndex = 5, MostPieceBytes = 240;

void Put(FrameBytes& frame, std::size_t at, std::span<const std::uint8_t> bytes, std::size_t width) {
    std::copy_n(bytes.begin(), std::min(bytes.size(), width), frame.begin() + static_cast<std::ptrdiff_t>(at));
}

FrameBytes KeyFrame(const Credential& key) {
    FrameBytes frame = NewReply(KeyReply, 33);
    Put(frame, 14, key.Id, 4);
    Put(frame, 18, key.Data, 16);
    return frame;
}

FrameBytes TransponderFrame(const Credential& transponder) {
    FrameBytes frame = NewReply(TransponderRequest, 29);
    frame[3] = transponder.Slot;
    Put(frame, 4, transponder.Id, 10);
    Put(frame, 14, transponder.Data, 16);
    return frame;
}

FrameBytes ResultFrame() {
    FrameBytes frame = NewReply(UnitResult, 13);
    frame[3] = UserWindow;
    return frame;
}

FrameBytes StepFrame(std::uint8_t step) {
    FrameBytes frame = NewReply(FingerRequest, 13);
    frame[13] = step;
    return frame;
}

void AddTemplate(const Credential& finger, std::vector<DeskFrame>& frames) {
    const auto most = static_cast<std::size_t>(std::clamp<int>(finger.PieceBytes, 1, MostPieceBytes));
    std::span<const std::uint8_t> rest = finger.Template;
    for (std::uint8_t piece = 1; !rest.empty(); ++piece) {
        const auto part = rest.first(std::min(rest.size(), most));
        FrameBytes frame = NewReply(TemplateReply, static_cast<std::uint8_t>(TemplateIndex + part.size() - 1));
        frame[3] = piece;
        frame[4] = static_cast<std::uint8_t>(part.size());
        Put(frame, TemplateIndex, part, part.size());
        frames.push_back({finger.StepMs, std::move(frame)});
        rest = rest.subspan(part.size());
    }
}

std::vector<DeskFrame> FingerFrames(const Credential& finger) {
    std::vector<DeskFrame> frames;
    for (const std::uint8_t step : finger.Steps) {
        if (step == FingerDone) {
            AddTemplate(finger, frames);
        }
        frames.push_back({finger.StepMs, StepFrame(step)});
    }
    if (!frames.empty()) {
        frames[0].AfterMs = finger.DelayMs;
    }
    return frames;
}

} // namespace

std::optional<Credential::Kind> AskedCredential(std::uint8_t code) {
    switch (code) {
    case KeyRequest:
        return Credential::Kind::Key;
    case TransponderRequest:
        return Credential::Kind::Transponder;
    case FingerRequest:
        return Credential::Kind::Finger;
    default:
        return std::nullopt;
    }
}

std::vector<DeskFrame> CredentialFrames(const Credential& credential) {
    switch (credential.What) {
    case Credential::Kind::Key:
        return {{credential.DelayMs, KeyFrame(credential)}};
    case Credential::Kind::Transponder:
        return {{credential.DelayMs, TransponderFrame(credential)}, {ResultMs, ResultFrame()}};
    case Credential::Kind::Finger:
        break;
    }
    return FingerFrames(credential);
}

std::vector<std::uint8_t> NothingPresented(Credential::Kind wanted) {
    switch (wanted) {
    case Credential::Kind::Key:
        return RefusalReply(Refusal::NoKey);
    case Credential::Kind::Transponder:
        return ResultFrame();
    case Credential::Kind::Finger:
        break;
    }
    return {};
}

} // namespace qvm
