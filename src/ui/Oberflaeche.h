#pragma once

#include "F11Window.h"
#include "F13Window.h"
#include "F14Window.h"
#include "F15Window.h"
#include "F18Window.h"
#include "F1Window.h"
#include "F2Window.h"
#include "F6Window.h"
#include "F7Window.h"
#include "F8Window.h"
#include "F91Window.h"
#include "F92Window.h"
#include "F9Window.h"
#include "Programm.h"
#include "QtWords.h"

namespace qvm::ui {

/// All windows over a Programm. They live as long as this does, shown and hidden by their models; none is on the screen
/// before F2 is opened. To be made after Programm_Start, which tells the language. The Programm must live longer.
class Oberflaeche {
public:
    explicit Oberflaeche(Programm& programm);
    ~Oberflaeche();
    Oberflaeche(const Oberflaeche&) = delete;
    Oberflaeche& operator=(const Oberflaeche&) = delete;

private:
    Programm& programm_;
    QtWords qtWords_;
    Listener words_; ///< before those of the windows, which may ask for Qt's words

public:
    F2Window f2;
    F1Window f1;
    F15Window f15;
    F6Window f6;
    F7Window f7;
    F8Window f8;
    F14Window f14;
    F13Window f13;
    F91Window f91;
    F11Window f11;
    F9Window f9;
    F18Window f18;
    F92Window f92;
};

} // namespace qvm::ui
