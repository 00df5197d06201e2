#include "QtPlatform.h"

#include "BlockCipher.h"
#include "CodePage850.h"
#include "DataLock.h"
#include "PcClock.h"
#include "PdfViewer.h"
#include "PortChanges.h"
#include "PortNumbers.h"
#include "PosixFiles.h"
#include "QtTimers.h"
#include "SerialLine.h"
#include "SingleInstance.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QRandomGenerator>

#include <utility>

namespace qvm {

namespace {

/// The answer of nobody: the one that changes least.
Answer LastAnswer(const Message& message) {
    switch (message.Choice) {
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::OkCancel:
    case Buttons::YesNoCancel:
        return Answer::Cancel;
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}

} // namespace

struct QtPlatform::Services {
    explicit Services(PlatformOptions options)
        : Numbers(options.Directory, options.PortDevice), Cipher(options.Directory),
          Instance(options.Directory, std::move(options.BringToFront)) {
        FillTime();
        FillPort();
        FillDialogs(options);
        World.Files = PosixFiles();
        World.ProgramFiles = options.ProgramFiles;
        World.encryptData = [this](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
            Cipher.Encrypt(block, key);
        };
        World.CharToOem = [this](std::string_view text) { return CodePage.From1252(text); };
        World.OemToChar = [this](std::string_view text) { return CodePage.To1252(text); };
        World.Random = [] { return QRandomGenerator::system()->generateDouble(); };
        World.ClaimInstance = [this] { return Instance.Claim(); };
        World.ClaimData = [this](const std::string& directory) { return ClaimData(directory); };
    }

    void FillTime();
    void FillPort();
    void FillDialogs(PlatformOptions& options);
    bool OpenPort(int number);
    std::optional<DataHolder> ClaimData(const std::string& directory);

    QtTimers Timers;
    SerialLine Line;
    PortNumbers Numbers;
    PortChanges Changes{Numbers};
    BlockCipher Cipher;
    CodePage850 CodePage;
    SingleInstance Instance;
    std::unique_ptr<DataLock> Data; ///< held from the first claim that was granted
    Platform World;
};

void QtPlatform::Services::FillTime() {
    World.Now = Clock_Now;
    World.Milliseconds = Clock_Milliseconds;
    World.StartTimer = [this](int interval, std::function<void()> tick) {
        return Timers.Start(interval, std::move(tick));
    };
    World.StopTimer = [this](TimerId timer) { Timers.Stop(timer); };
    // The overload with a time limit would not wait but turn.
    World.ProcessEvents = [] {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    };
}

void QtPlatform::Services::FillPort() {
    World.Port = SerialPort{
        .Open = [this](int number) { return OpenPort(number); },
        .Close = [this] { Line.Close(); },
        .IsOpen = [this] { return Line.IsOpen(); },
        .SetRts = [this](bool on) { Line.SetRts(on); },
        .Write = [this](std::span<const std::uint8_t> bytes) { Line.Write(bytes); },
        .OnByte = [this](std::function<void(std::uint8_t)> receiver) { Line.OnByte(std::move(receiver)); },
        .LastError = [this] { return PortFault_English(Line.Fault()); },
        .LastFault = [this] { return Line.Fault(); },
    };
    World.OnPortChange = [this](std::function<void(PortChange)> receiver) { Changes.OnChange(std::move(receiver)); };
    World.AdapterPorts = [this] { return Numbers.Adapters(SerialDevices()); };
    World.PortDevice = [this](int number) { return Numbers.Describe(number); };
}

bool QtPlatform::Services::OpenPort(int number) {
    const std::string device = Numbers.Device(number);
    if (device.empty()) {
        Line.Refuse({.What = PortFault::Kind::NoSuchNumber, .Device = std::to_string(number)});
        return false;
    }
    return Line.Open(device);
}

std::optional<DataHolder> QtPlatform::Services::ClaimData(const std::string& directory) {
    if (Data) {
        return std::nullopt;
    }
    auto lock = std::make_unique<DataLock>(directory, DataLock::Use::Write);
    if (!lock->Try()) {
        return lock->Holder();
    }
    Data = std::move(lock);
    return std::nullopt;
}

void QtPlatform::Services::FillDialogs(PlatformOptions& options) {
    World.ShowMessage = options.ShowMessage ? std::move(options.ShowMessage) : LastAnswer;
    const auto cancelled = [](const FileDialog&) { return std::optional<std::string>(); };
    World.OpenFile = options.OpenFile ? std::move(options.OpenFile) : cancelled;
    World.SaveFile = options.SaveFile ? std::move(options.SaveFile) : cancelled;
    World.PrintPages = std::move(options.PrintPages);
    const auto nothing = [](const std::string&, const std::string&) { return false; };
    World.OpenWithLinkedApp = options.OpenWithLinkedApp ? std::move(options.OpenWithLinkedApp) : nothing;
    World.OpenDocumentAt = Pdf_Zeigen;
    World.Hourglass = options.Hourglass ? std::move(options.Hourglass) : [](bool) {};
}

QtPlatform::QtPlatform(PlatformOptions options) : services_(std::make_unique<Services>(std::move(options))) {}

QtPlatform::~QtPlatform() = default;

Platform& QtPlatform::World() {
    return services_->World;
}

const std::string& QtPlatform::CipherText() const {
    return services_->Cipher.Text();
}

} // namespace qvm
