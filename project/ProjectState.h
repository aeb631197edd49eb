#pragma once

#include "project/CellText.h"
#include "project/FixedLists.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace quarnel {

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

} // namespace quarnel
