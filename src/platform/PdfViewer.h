#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qvm {

/// How a viewer is called so that it shows a PDF at a named destination: program and arguments. `viewer`: the name of
/// its desktop entry, "org.gnome.Evince.desktop" for one. Nothing for one that cannot be told. All texts UTF-8.
std::optional<std::vector<std::string>> Viewer_Aufruf(const std::string& viewer, const std::string& path,
                                                      const std::string& destination);

/// Shows the PDF in the desktop's viewer. False when that cannot be told of destinations, is unknown or does not start;
/// then nothing is shown. Waits at most two seconds for the desktop's answer; timers and paintings go on meanwhile.
bool Pdf_Zeigen(const std::string& path, const std::string& destination);

} // namespace qvm
