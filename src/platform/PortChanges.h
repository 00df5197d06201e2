#pragma once

#include "Platform.h"
#include "PortBook.h"
#include "PortWatch.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace qvm {

class PortNumbers;

/// Arrival and removal of serial ports that have a number. The many events of one plugging are gathered until it has
/// been quiet for a moment; then the ports are looked at once. Watches only while somebody listens.
class PortChanges : public QObject {
public:
    /// `numbers` must live longer.
    explicit PortChanges(const PortNumbers& numbers);

    /// One receiver, called from the event loop; a new one replaces it, an empty one ends the watch. One call is
    /// finished before the next begins, unless the receiver itself runs the event loop.
    void OnChange(std::function<void(PortChange)> receiver);

private:
    void Stir();
    void Look();

    const PortNumbers& numbers_;
    std::function<void(PortChange)> receiver_;
    std::unique_ptr<PortWatch> watch_;
    std::optional<PortBook> book_;
    std::deque<PortChange> news_; ///< not handed out yet
    QTimer quiet_;
    QElapsedTimer stirred_; ///< since the first event that is not looked at yet
};

} // namespace qvm
