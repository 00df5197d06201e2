#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What windows tell each other without knowing each other.
namespace qvm {

/// Keeps someone listening to a Signal; who lets it go hears no more.
using Listener = std::shared_ptr<const std::function<void()>>;

/// Something that happens, and those who want to hear of it, told in the order in which they came. Either side may go
/// first, also while it is being told.
class Signal {
public:
    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    [[nodiscard]] Listener Listen(std::function<void()> what) {
        auto listener = std::make_shared<const std::function<void()>>(std::move(what));
        listeners_.push_back(listener);
        return listener;
    }
    /// It has happened. Who begins to listen meanwhile hears of the next time.
    void operator()() {
        std::erase_if(listeners_, [](const auto& listener) { return listener.expired(); });
        const std::vector<std::weak_ptr<const std::function<void()>>> present = listeners_;
        for (const auto& listener : present) {
            if (const Listener here = listener.lock()) {
                (*here)();
            }
        }
    }

private:
    std::vector<std::weak_ptr<const std::function<void()>>> listeners_;
};

/// Where a window enters itself, in its constructor.
struct WindowBoard {
    Signal WordsChanged; ///< another language is in use
    Signal BackToMain;   ///< a window that stood before the main window has gone: that one comes back
    /// What opens a window, by its name, "F14" for one. A window that is missing here does not exist.
    std::map<std::string, std::function<void()>, std::less<>> Open;

    /// The way to the window of that name; empty when it does not exist.
    std::function<void()> Weg(std::string_view name) const {
        const auto found = Open.find(name);
        return found == Open.end() ? std::function<void()>() : found->second;
    }
};

/// While a window is open its words follow the language; a closed one takes them when it opens.
template <class W>
[[nodiscard]] Listener Worte_Folgen(W& window) {
    return window.kern.Windows.WordsChanged.Listen([&window] {
        if (window.Fenster.Visible) {
            window.Texte_Setzen();
        }
    });
}

} // namespace qvm
