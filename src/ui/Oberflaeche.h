#pragma once

#include "HistoryViews.h"
#include "LockViews.h"
#include "MainViews.h"
#include "PersonViews.h"
#include "QtWords.h"
#include "TimeViews.h"
#include "TransferViews.h"

namespace qvm::ui {

/// All windows over a Programm. They live as long as this does, shown and hidden by their models; none is on the screen
/// before F2 is opened. To be made after Programm_Start, which tells the language. The Programm must live longer.
class Oberflaeche {
    QtWords qtWords_;
    Listener words_; ///< before those of the windows, which may ask for Qt's words

public:
    explicit Oberflaeche(Programm& programm);
    Oberflaeche(const Oberflaeche&) = delete;
    Oberflaeche& operator=(const Oberflaeche&) = delete;

    MainViews Main;
    TransferViews Transfer;
    HistoryViews History;
    PersonViews Persons;
    LockViews Locks;
    TimeViews Times;
};

} // namespace qvm::ui
