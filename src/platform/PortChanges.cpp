#include "PortChanges.h"

#include "PortNumbers.h"

#include <algorithm>
#include <utility>

namespace qvm {

namespace {

/// Milliseconds without an event after which a plugging is over, and after which ports that never come to rest are
/// looked at all the same.
constexpr int Quiet = 200;
constexpr int LongestDelay = 1000;

} // namespace

PortChanges::PortChanges(const PortNumbers& numbers) : numbers_(numbers) {
    quiet_.setSingleShot(true);
    connect(&quiet_, &QTimer::timeout, this, [this] { Look(); });
}

void PortChanges::OnChange(std::function<void(PortChange)> receiver) {
    receiver_ = std::move(receiver);
    if (!receiver_) {
        watch_.reset();
        book_.reset();
        news_.clear();
        quiet_.stop();
    } else if (!watch_) {
        watch_ = std::make_unique<PortWatch>(numbers_, [this] { Stir(); });
        book_.emplace(numbers_.There()); // after the watch, so that nothing happens unseen in between
    }
}

void PortChanges::Stir() {
    if (!quiet_.isActive()) {
        stirred_.start();
    }
    const auto left = static_cast<int>(std::max<qint64>(LongestDelay - stirred_.elapsed(), 0));
    quiet_.start(std::min(Quiet, left));
}

void PortChanges::Look() {
    const std::vector<PortChange> changes = book_->Look(numbers_.There());
    news_.insert(news_.end(), changes.begin(), changes.end());
    // A receiver that waits gets later news from inside its wait, those of this look first.
    while (!news_.empty()) {
        const PortChange change = news_.front();
        news_.pop_front();
        const auto receiver = receiver_; // it may be exchanged while it runs
        receiver(change);
    }
}

} // namespace qvm
