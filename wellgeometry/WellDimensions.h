#pragma once

#include <string>

namespace quarnel {

/// An accepted length of the well: text as typed (trimmed), value in the vertical unit, and cm.
struct EnteredLength {
    std::string text;
    double value = 0;
    double cm = 0;
};

/// An accepted diameter: text as typed (trimmed), value and radius in the radial unit, radius in
/// cm.
struct EnteredDiameter {
    std::string text;
    double value = 0;
    double radius = 0;
    double radiusCm = 0;
};

/// The well as its last check left it. `re` corrects the casing radius for the drained filter pack.
struct WellDimensions {
    EnteredLength H;      ///< water table to the impervious bottom
    EnteredLength Lw;     ///< water table to the bottom of the well
    EnteredLength Le;     ///< length of the screen / filter pack
    EnteredDiameter dw;   ///< borehole
    EnteredDiameter dc;   ///< casing
    std::string dporText; ///< drained filter-pack porosity in %, as typed
    double n = 0;         ///< the porosity as a fraction
    int verticalUnit = 0;
    int radialUnit = 0;
    double re = 0;      ///< effective radius, radial unit
    double reCm = 0;    ///< effective radius, cm
    std::string reText; ///< effective radius, radial unit, single precision
};

} // namespace quarnel
