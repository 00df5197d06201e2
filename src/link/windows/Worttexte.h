#pragma once

#include "Controls.h"
#include "Kern.h"

#include <array>

namespace qvm {

/// Catalogue lines of the adapter and the channel window that are their own.
namespace WindowLine {
inline constexpr int AutomaticSearch = 278, SearchAdapters = 279, DeviceManager = 280, ListNotSaved = 283,
                     ChannelNotSaved = 284;
/// Shared with the main window.
inline constexpr int SettingsNotSaved = 287;
} // namespace WindowLine

} // namespace qvm
