#pragma once

#include "project/CellText.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

// ---- Results
// -------------------------------------------------------------------------------------

/// What a check or computation says: Ok (nothing to report), Error (the caller shows the message
/// and stops), Warning (the caller shows or keeps the message and goes on). The numbers are
/// reported.
enum class ComputationStatus { Ok = 0, Error = 1, Warning = 2 };

struct Result {
    ComputationStatus status = ComputationStatus::Ok;
    std::string message; ///< empty when status is Ok

    bool IsError() const { return status == ComputationStatus::Error; }
    static Result Ok() { return {}; }
    static Result Error(std::string text) { return {ComputationStatus::Error, std::move(text)}; }
    static Result Warning(std::string text) {
        return {ComputationStatus::Warning, std::move(text)};
    }
};

// ---- Fixed lists; a position is the code kept in the project file
// ------------------------------------

inline constexpr std::array<std::string_view, 4> LengthUnitNames = {"in", "ft", "cm", "m"};
inline constexpr std::array<std::string_view, 4> TimeUnitNames = {"sec", "min", "hr", "day"};
inline constexpr std::array<std::string_view, 3> DataTypeNames = {
    "D: Depth to Groundwater ", "H: Groundwater Head ", "Y: Change in Head "};
inline constexpr std::array<std::string_view, 3> DataTypeLetters = {"D", "H", "Y"};
inline constexpr std::array<std::string_view, 2> SlugTestTypeNames = {"Rising head ",
                                                                      "Falling head "};
/// The slug test type shown for readings that are changes in head already.
inline constexpr std::string_view NotApplicable = "Not Applicable";

enum LengthUnit { Inch = 0, Foot = 1, Centimetre = 2, Metre = 3 };
enum TimeUnit { Second = 0, Minute = 1, Hour = 2, Day = 3 };
enum DataType { DepthToGroundwater = 0, GroundwaterHead = 1, ChangeInHead = 2 };
enum SlugTestType { RisingHead = 0, FallingHead = 1, SlugTestTypeNotApplicable = 2 };

/// Centimetres in one length unit; 0 for a position that names no unit.
double UnitFactorToCm(int lengthUnit);
/// Seconds in one time unit; 0 for a position that names no unit.
double UnitFactorToSec(int timeUnit);
/// The name at `position` of a fixed list, "" where nothing is selected.
template <std::size_t N>
std::string_view NameAt(const std::array<std::string_view, N>& names, int position) {
    return position >= 0 && static_cast<std::size_t>(position) < N
               ? names[static_cast<std::size_t>(position)]
               : std::string_view();
}

// ---- Identities of the text boxes
// ------------------------------------------------------------------

/// Positions in SiteIDText. The consultant's run backwards from name to postal code; files and
/// reports address the fields by these numbers.
enum SiteIDIndex {
    LustNo = 0,
    SiteName = 1,
    SiteAddress = 2,
    SiteCity = 3,
    SiteState = 4,
    SiteZip = 5,
    ClientName = 6,
    ClientAddress = 7,
    ClientCity = 8,
    ClientState = 9,
    ClientZip = 10,
    ConsultantZip = 11,
    ConsultantState = 12,
    ConsultantCity = 13,
    ConsultantAddress = 14,
    ConsultantName = 15,
    ProfessionalName = 16,
    CertificationNo = 17,
    UstNo = 18,
    ClientJobNumber = 19
};
enum WellTestIDIndex {
    WellLabel = 0,
    TestDate = 1,
    AnalysisBy = 2,
    TestBy1 = 3,
    TestBy2 = 4,
    TestBy3 = 5
};
enum WellGeoIndex { GeoH = 0, GeoLw = 1, GeoLe = 2, GeoDw = 3, GeoDc = 4, GeoDpor = 5 };

// ---- The project
// -----------------------------------------------------------------------------------

/// One row of the recovery grid, both texts as typed: the time and the reading.
struct RecoveryRow {
    CellText time;
    CellText level;
};

/// Fewest data rows the recovery grid holds, and how many empty rows follow the data after a read.
inline constexpr std::size_t MinimumGridRows = 50;
inline constexpr std::size_t EmptyRowsAfterData = 25;

/// Everything a project keeps: texts as the user typed them (UTF-8) and list positions. Numbers are
/// made from the texts only by checks and computations.
struct ProjectState {
    std::array<std::string, 20> SiteIDText;   ///< by SiteIDIndex
    std::array<std::string, 6> WellTestIDTxt; ///< by WellTestIDIndex
    std::string VolumeOfSlugText;             ///< litres, free text

    /// H, Lw, Le (vertical unit), dw, dc (radial unit), dpor (%); by WellGeoIndex.
    std::array<std::string, 6> WellGeoText = {"", "", "", "", "", "0"};
    int WellGeoVertUnitsDDL = Foot;
    int WellGeoRadUnitsDDL = Inch;
    bool SSRibbon1Pressed = true; ///< the picture with the water table above the screen

    int RecDatTimeUnitsDDL = Second;
    int RecDatWaterLevelUnitsDDL = Foot;
    int RecDatDataTypeDDL = DepthToGroundwater;
    int RecDatSlugTestTypeDDL = RisingHead;
    std::string RecDatPreSlugHeadText;
    /// The data rows 1, 2, 3 ... of the recovery grid (element 0 is row 1), empty rows included.
    std::vector<RecoveryRow> RecDatGrid = std::vector<RecoveryRow>(MinimumGridRows);

    /// Keys of the points marked "Ignore", in order (element 0 is the first).
    std::vector<std::string> IgnoreKeyList;

    std::array<std::string, 3> PlotText; ///< title lines of the printed plot
    int CmboKTimeUnits = Day;
    int CmboKLengthUnits = Metre;

    /// Rows of a file just read, on their way into RecDatGrid; empty at any other time.
    std::vector<RecoveryRow> RecoveryDataTexts;
    /// Full path of the file last saved or opened; empty for a project never saved.
    std::string CurrentProjectFile;
    /// A file that was read with failures or in the old format: the first save over it keeps its
    /// bytes beside it. Empty when there is none.
    std::string OriginalToKeep;

    /// The decimal separator of the user's locale, which typed numbers may use beside ".". It
    /// belongs to the desktop, so New leaves it.
    std::string DecimalSeparator = ".";
};

/// Puts the project into its new-project state. The consultant's fields (SiteIDText 11 to 17) stay,
/// and so does the locale's separator.
void ResetProjectState(ProjectState& state);

/// Moves RecoveryDataTexts into the grid: `count` + 25 rows, at least 50.
void FillRecoveryGridFromData(ProjectState& state);

/// Whether any row of the grid holds a text other than blanks.
bool HasRecoveryRows(const ProjectState& state);

/// The window's title: the program's, then "/ " and the path once there is one.
std::string MainWindowTitle(const ProjectState& state);

// ---- Computed values
// -------------------------------------------------------------------------------

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

/// One checked reading.
struct RecoveryPoint {
    CellText timeText;  ///< as typed, trimmed
    double time = 0;    ///< entered time unit
    double timeSec = 0; ///< s
    CellText levelText; ///< as typed, trimmed
    double level = 0;   ///< entered level unit
    double weight = 0;  ///< 1 for a point of the fit, else 0
    double y = 0;       ///< change in head Y, entered level unit
    double log10Y = 0;  ///< base-10 logarithm of y; 0 where y <= 0
    double yCm = 0;     ///< Y in cm
    double lnYCm = 0;   ///< natural logarithm of yCm; 0 where yCm <= 0
    int yValid = 0;     ///< 1 where y > 0
};

using RecoveryPointList = std::vector<RecoveryPoint>;

/// The bounds of the plot: times in the entered time unit, Y in the entered level unit; the Y axis
/// runs between powers of ten.
struct PlotBounds {
    double PlotMaxTime = 0;
    double PlotMinY = 0;
    double PlotMaxY = 0;
    double PlotMaxYcm = 0;
    double PlotYAxisMin = 0;
    double PlotYAxisMax = 0;
};

/// What checks and computations leave behind; made anew from the project each time, never saved.
struct ComputedValues {
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

    double leOverRw = 0;
    double A = 0; ///< Bouwer-Rice coefficients, dimensionless
    double B = 0;
    double C = 0;
    double lnReOverRw = 0;
    std::string leOverRwText, aText, bText, cText, lnReOverRwText;
    ComputationStatus coefficientStatus = ComputationStatus::Ok;
    std::string coefficientMessage; ///< the warning of a clamped Le/rw, or empty

    int dataType = 0;
    int slugTestType = 0;
    int timeUnit = 0;
    int levelUnit = 0;
    std::string preSlugText; ///< trimmed; empty for changes in head
    double preSlug = 0;      ///< entered level unit

    /// The checked points (element 0 is point 1). Never null. A new check makes a new list, so that
    /// the details of the last computation can go on holding the one they were made from; only the
    /// weights of a list change after its check.
    std::shared_ptr<RecoveryPointList> RecoveryPoints = std::make_shared<RecoveryPointList>();
    int ValidYCount = 0; ///< points with Y > 0
    PlotBounds bounds;
    /// "Use" or "Ignore" for each point, as the Use/Ignore grid shows it.
    std::vector<CellText> Criteria;

    int usedCount = 0;
    double FitSlope = 0;      ///< of ln(Y in cm) against time, 1/s
    double FitIntercept = 0;  ///< ln(Y in cm) at time 0
    double KInCmPerSec = 0;   ///< cm/s
    bool KIsComputed = false; ///< a computation has succeeded since the last preparation
};

/// Empties every entered and derived value, the coefficients, the points and K, so that nothing of
/// an earlier computation survives a failed one. The memory of the points serves the next check.
void ClearComputedValues(ComputedValues& computed);

} // namespace quarnel
