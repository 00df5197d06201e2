// How far the list is, and which row is under way.

#include "F91.h"
#include "ListMark.h"
#include "Schlosszeile.h"
#include "Text.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr std::int64_t MsOfMinute = 60000;
constexpr std::uint8_t ListOfHistories = 0x80;
constexpr std::string_view Gap = "   ";

struct Zaehlung {
    int Done = 0, Failed = 0, Open = 0;
};

/// The rows by their marks. Where locks are programmed behind their history, a history that was read is not the end.
Zaehlung Zaehlen(const Grid& list, bool histories) {
    Zaehlung count;
    for (int row = 1; row < list.Rows(); ++row) {
        const std::string& mark = list.Text(row, F91Column::Mark);
        if (mark == ListMark::Programmed || (histories && mark == ListMark::HistoryRead)) {
            ++count.Done;
        } else if (mark == ListMark::Failed || mark == ListMark::PassedOver) {
            ++count.Failed;
        } else {
            ++count.Open;
        }
    }
    return count;
}

} // namespace

void F91::Unterwegs_Setzen(int row) {
    const auto paint = [this](int which, Colour colour) {
        if (which >= 1 && which < FGK91.Rows()) {
            for (const int column : {F91Column::Number, F91Column::Name, F91Column::Serial}) {
                FGK91.SetBackColor(which, column, colour);
            }
        }
    };
    paint(underWay_, White);
    paint(row, UnderWayColour);
    if (row > 0 && row != underWay_) {
        rowBegun_ = kern.Welt.Milliseconds();
    }
    underWay_ = row;
    Stand_Zeigen();
}

void F91::Stand_Zeigen() {
    const Zaehlung count = Zaehlen(FGK91, run.link.Lauf.List.NetMode == ListOfHistories);
    std::string text;
    if (underWay_ > 0) {
        text = Wort(kern, Word::ListPosition, {Ziffern(underWay_), Ziffern(FGK91.Rows() - 1)}) + std::string(Gap);
        if (!Filter.Shows(underWay_)) {
            const LockRow lock = Gitterzeile_Lesen(FGK91, underWay_);
            text += Wort(kern, Word::ListHidden, {Schloss_Zeile(kern, lock.Number, lock.Name)}) + std::string(Gap);
        }
    }
    text += Wort(kern, Word::ListCounts, {Ziffern(count.Done), Ziffern(count.Failed)});
    if (const std::int64_t left = Restdauer(count.Open); left > 0) {
        text += std::string(Gap) + Wort(kern, Word::ListTimeLeft, {Ziffern((left + MsOfMinute - 1) / MsOfMinute)});
    }
    StandLabel.Text = text;
}

std::int64_t F91::Restdauer(int open) const {
    if (!running_ || stopped_ || rowsEnded_ == 0) {
        return 0;
    }
    // As long as the rows so far took on the average; the one under way is that much nearer to its end.
    const std::int64_t each = worked_ / rowsEnded_;
    const std::int64_t here = underWay_ > 0 ? kern.Welt.Milliseconds() - rowBegun_ : 0;
    return each * open - std::min(each, here);
}

} // namespace qvm
