#pragma once

#include <QStringList>

namespace qvm::test {

/// Looks at the pictures LANGUAGE-SCALE-PALETTE/WINDOW.png of a folder for gross breakage: each is there in every form,
/// twice the size at 200 %, drawn in many colours, dark where it should be, and with other words in another language.
/// Gives what is wrong.
QStringList checkPictures(const QString& folder);

} // namespace qvm::test
