#pragma once

#include "Controls.h"

/// The picture ids of the windows' models and the colours that mean something, in one place for whoever draws them.
namespace qvm {

/// Backgrounds of a grid's cells that act at a click; white ones do not.
namespace CellColour {
inline constexpr Colour Action = 0xF0F0F0, Hover = 0xE0E0E0; ///< Hover: under the mouse
}

/// State column of F6: an adapter.
namespace AdapterPicture {
inline constexpr int None = 0, Present = 1, Absent = 2, Unusable = 3; ///< Unusable: there, but its name is of no class
}

/// Status icon of F13: the lock must still change its channel, or not.
namespace ChannelPicture {
inline constexpr int None = 0, Image7 = 7, Image8 = 8;
}

/// The five state reports of F9, in the order of the images.
namespace StatePicture {
inline constexpr int None = 0, Image1 = 1, Image2 = 2, Image3 = 3, Image4 = 4, Image5 = 5;
}

/// The signs of a run's end in F9. Each has a shape of its own.
namespace RunSign {
inline constexpr int None = 0, Done = 1, Attention = 2, Failed = 3;
}

/// The verdicts of the check of the PC. Each has a shape of its own.
namespace VerdictPicture {
inline constexpr int Good = 1, Note = 2, Fault = 3, Untold = 4;
}

/// Column StateText of F91.
namespace ListPicture {
inline constexpr int None = 0, Failed = 1;
}

/// Column 7 of F5: the finger of a user.
namespace FingerPicture {
inline constexpr int None = 501, ///< no template, or the row has just been filled
    Standard = 502,              ///< a template of the standard class
    Premium = 503,               ///< a template of the premium class
    Off = 504;                   ///< a template, but the finger is not in use
}

/// F12: switches, EMI state and headings of a lock, and a serial number that two locks have.
namespace LockPicture {
inline constexpr int None = 0,          ///< a lock with a name but without a serial has no switches
    On = 9,                             ///< Image9
    Off = 10,                           ///< Image10
    NotApplicable = 11,                 ///< Image11
    Twice = 12;                         ///< column 0
inline constexpr int FirstHeading = 20; ///< of column 4; those of the columns up to 11 follow
} // namespace LockPicture

/// F51: an enrolment is under way, done, or a swipe went wrong.
namespace EnrolmentPicture {
inline constexpr int None = 0, Working = 1, Done = 2, Error = 3;
}

} // namespace qvm
