#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace qvm::manual {

/// A place of a PDF that can be named from outside.
struct Place {
    QString Name; ///< ASCII
    QString Title;
    int Level = 1;
    int Page = 0; ///< from 0
    double Y = 0; ///< in points from the lower edge of the page
};

/// QPdfWriter knows neither destinations nor an outline: the file with both appended, as a later version of it. Empty
/// when the file is not built as QPdfWriter builds it, or a place names a page that it does not have.
QByteArray withDestinations(const QByteArray& pdf, const std::vector<Place>& places);

} // namespace qvm::manual
