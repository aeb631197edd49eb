#pragma once

#include "project/GlobalDeclar.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// The sections of a project file, in the order in which it is written.
inline constexpr std::string_view SiteIDSection = "SITEID";
inline constexpr std::string_view WellIDSection = "WELLID";
inline constexpr std::string_view WellGeoSection = "WELLGEO";
inline constexpr std::string_view RecDataSection = "RECDATA";
inline constexpr std::string_view IgnoreKeySection = "LSWEIGHT";
inline constexpr std::string_view PlotInfoSection = "PLOTINFO";

/// A list whose position a file keeps: where it lives and what it chooses from. WELLGEO and RECDATA
/// write the name before the position; PLOTINFO writes the position alone and knows -1 for nothing
/// selected.
struct ListField {
    int ProjectState::*position;
    std::string_view key;
    std::span<const std::string_view> names;
};

/// One identification text: where it lives, what its label says, under which key a file keeps it.
/// The panels, the project file and the report all read these tables.
struct IdentificationField {
    int index;              ///< position in SiteIDText or WellTestIDTxt
    std::string_view group; ///< caption of the frame around it, "" for none
    std::string_view label; ///< what stands beside the box; "" continues the label above
    std::string_view key;   ///< key in the project file
};

/// The site's, client's and consultant's texts in the order of file, panel and tab key.
inline constexpr std::array<IdentificationField, 20> SiteIDFields = {{
    {LustNo, "", "LUST No.", "LUSTNO"},
    {UstNo, "", "UST Registration No.", "USTNO"},
    {SiteName, "Site Information", "Name", "SITENAME"},
    {SiteAddress, "Site Information", "Address", "SITEADD"},
    {SiteCity, "Site Information", "City", "SITECITY"},
    {SiteState, "Site Information", "State", "SITESTATE"},
    {SiteZip, "Site Information", "ZIP", "SITEZIP"},
    {ClientName, "Client", "Name", "RPNAME"},
    {ClientAddress, "Client", "Address", "RPADD"},
    {ClientCity, "Client", "City", "RPCITY"},
    {ClientState, "Client", "State", "RPSTATE"},
    {ClientZip, "Client", "ZIP", "RPZIP"},
    {ClientJobNumber, "Client", "Job/Account", "RPJOBNUM"},
    {ConsultantName, "Consultant", "Company Name", "CFNAME"},
    {ConsultantAddress, "Consultant", "Address", "CFADD"},
    {ConsultantCity, "Consultant", "City", "CFCITY"},
    {ConsultantState, "Consultant", "State", "CFSTATE"},
    {ConsultantZip, "Consultant", "ZIP", "CFZIP"},
    {ProfessionalName, "Consultant", "Certified Groundwater Professional", "CGWPNAME"},
    {CertificationNo, "Consultant", "Certification No.", "CGWPNUM"},
}};

/// The well's and test's texts in the order of the panel. The key ANAYSBY is spelled so in every
/// file.
inline constexpr std::array<IdentificationField, 6> WellTestIDFields = {{
    {WellLabel, "", "Monitoring Well Label", "WELLLABEL"},
    {TestDate, "", "Test Date (mm/dd/yyyy)", "TESTDATE"},
    {AnalysisBy, "", "Test Analysis by:", "ANAYSBY"},
    {TestBy1, "", "Field Testing Performed by:", "TESTBY1"},
    {TestBy2, "", "", "TESTBY2"},
    {TestBy3, "", "", "TESTBY3"},
}};
/// The order of the same texts in a file.
inline constexpr std::array<int, 6> WellTestIDFileOrder = {WellLabel, TestDate, TestBy1,
                                                           TestBy2,   TestBy3,  AnalysisBy};
inline constexpr std::string_view SlugVolumeLabel = " Volume of Slug (L)";
inline constexpr std::string_view SlugVolumeKey = "SLUGVOLUME";

/// One box of the well geometry: its label and its key in the project file, by WellGeoIndex.
struct GeometryField {
    std::string_view label;
    std::string_view key;
};
inline constexpr std::array<GeometryField, 6> WellGeoFields = {{
    {"H", "H"},
    {"Lw", "LW"},
    {"Le", "LE"},
    {"dw", "DW"},
    {"dc", "DC"},
    {"dpor", "DP"},
}};
/// The units of the well geometry, in the order of a file.
inline constexpr std::array<ListField, 2> WellGeoLists = {{
    {&ProjectState::WellGeoVertUnitsDDL, "VERMEASUNITS", LengthUnitNames},
    {&ProjectState::WellGeoRadUnitsDDL, "RADMEASUNITS", LengthUnitNames},
}};
inline constexpr std::string_view PictureKey = "PICSELECT";

/// What the readings are, in the order of a file.
inline constexpr std::array<ListField, 4> RecDataLists = {{
    {&ProjectState::RecDatTimeUnitsDDL, "TIMEUNITS", TimeUnitNames},
    {&ProjectState::RecDatWaterLevelUnitsDDL, "WATERUNITS", LengthUnitNames},
    {&ProjectState::RecDatDataTypeDDL, "HEADMEASMETHOD", DataTypeNames},
    {&ProjectState::RecDatSlugTestTypeDDL, "SLUGTESTTYPE", SlugTestTypeNames},
}};
inline constexpr std::string_view PreSlugKey = "PRESLUG";
inline constexpr std::string_view DataPointKey = "DATAPOINT";

/// The plot's titles, by position in PlotText, and the units of K.
inline constexpr std::array<std::string_view, 3> PlotTitleKeys = {"TITLE0", "TITLE1", "TITLE2"};
inline constexpr std::array<ListField, 2> PlotInfoLists = {{
    {&ProjectState::CmboKTimeUnits, "KTIMEUNITS", TimeUnitNames},
    {&ProjectState::CmboKLengthUnits, "KLENGTHUNITS", LengthUnitNames},
}};

/// What stands beside the porosity box.
inline constexpr std::string_view PorosityUnitLabel = "% (0 to 100)";

/// The fields, named as a user knows them, whose text a saved file cannot give back: those that
/// hold a double quote (the format has no escape for it) or a line break.
std::vector<std::string> FieldsNotReadBackIntact(const ProjectState& state);

} // namespace quarnel
