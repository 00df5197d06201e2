#pragma once

#include "Source.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace qvm::manual {

/// What a book is made of.
struct BookParts {
    QString Title;    ///< on the first page and at the foot of the others
    QString Contents; ///< over the list of chapters
    QString Pictures; ///< folder of the pictures
};

/// A PDF of A4 pages: the title with the list of chapters, then the chapters, each on a new page; every heading is a
/// named destination. Empty when something is missing, which stands in `faults`. Needs a QGuiApplication.
QByteArray makeBook(const Source& source, const BookParts& parts, QStringList& faults);

} // namespace qvm::manual
