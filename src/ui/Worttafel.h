#pragma once

#include <QString>

#include <string_view>

/// Words of the windows that the language files do not hold, as they belong to the front end alone.
namespace qvm::ui {

enum class Word {
    Yes, ///< with its mnemonic
    No,
    LightRed, ///< the link light in words
    LightYellow,
    LightGreen,
    Cipher,
    DataDirectory,
    Libraries,
    LicenceTexts, ///< where they are
    AdapterPresent,
    AdapterAbsent,
    Adapter,
    // What a screen reader says of a control that bears no text.
    KeyBar,
    Locks,          ///< the grid of the locks
    LockList,       ///< the grid of a list run
    Progress,       ///< of a run, telegram by telegram
    Activity,       ///< the bar that shows that a run is alive
    ChannelSearch,  ///< the bar of the wait box
    ChannelPending, ///< behind the heading of the channel column
    ChannelSettled,
    PreviousMonth,
    NextMonth,
    Month,
    Year,
    Days,
    Hours,
    Minutes,
};

/// `language`: as the configuration names it; German for any other.
QString word(Word which, std::string_view language);

} // namespace qvm::ui
