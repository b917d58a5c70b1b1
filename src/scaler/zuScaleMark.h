// A mark of the time axis.
#pragma once

#include "foundation/zuTypes.h"

#include <string>
#include <vector>

namespace korvane {

/// Which of the scaler's three label fonts.
enum class TScalerFont : unsigned char { sTextFont1, sTextFont2, sTextFont3 };

/// A mark on one of the two rows; dates are instants.
struct TScaleMark
{
    /// Of which row; where it stands.
    bool IsMajor = false;
    TDateTime Date = 0;
    int Pixel = 0; ///< along the axis, from its start
    /// Its label, and in which font; empty without one.
    std::string Text;
    TScalerFont Font = TScalerFont::sTextFont1;
    TColor Color = 0;           ///< of the pass that covers the date; 0 when none does
    TDateTime HiddenBefore = 0; ///< days cut out between the axis start and a minor mark
    bool HiddenAfter = false;   ///< a hidden stretch follows
    bool AfterHidden = false;   ///< a hidden stretch precedes
};

/// Marks in order of time.
using TScaleMarkList = std::vector<TScaleMark>;

/// Two marks that follow each other and enclose a place on the axis; nullptr where there is none.
struct TScaleMarkPair
{
    /// The one before the place and the one after it; observed.
    const TScaleMark *A = nullptr;
    const TScaleMark *B = nullptr;
};

} // namespace korvane
