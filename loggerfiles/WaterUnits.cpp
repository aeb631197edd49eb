#include "loggerfiles/WaterUnits.h"

namespace quarnel {

namespace {

using enum WaterUnit;

struct UnitRow {
    double metres;
    bool isPressure;
    LengthUnit written;
};

constexpr std::array<UnitRow, WaterUnitCount> Units = {{
    {0.0254, false, LengthUnit::Inch},
    {0.3048, false, LengthUnit::Foot},
    {0.01, false, LengthUnit::Centimetre},
    {1, false, LengthUnit::Metre},
    {0.001, false, LengthUnit::Metre},
    {0.10197162129779283, true, LengthUnit::Metre},
    {0.010197162129779283, true, LengthUnit::Metre},
    {0.010197162129779283, true, LengthUnit::Metre},
    {10.197162129779283, true, LengthUnit::Metre},
    {0.7030695796391593, true, LengthUnit::Foot},
    {0.0135951, true, LengthUnit::Metre},
    {0.34531554, true, LengthUnit::Foot},
    {10.332274527998859, true, LengthUnit::Metre},
    {0.01, true, LengthUnit::Centimetre},
    {1, true, LengthUnit::Metre},
    {0.3048, true, LengthUnit::Foot},
    {0.0254, true, LengthUnit::Inch},
}};

struct Spelling {
    std::string_view text; ///< as SpellingKey leaves it
    WaterUnit unit;
};

constexpr Spelling Spellings[] = {
    {"in", Inch},
    {"inch", Inch},
    {"inches", Inch},
    {"\"", Inch},
    {"ft", Foot},
    {"foot", Foot},
    {"feet", Foot},
    {"'", Foot},
    {"cm", Centimetre},
    {"centimetre", Centimetre},
    {"centimetres", Centimetre},
    {"centimeter", Centimetre},
    {"centimeters", Centimetre},
    {"zentimeter", Centimetre},
    {"m", Metre},
    {"metre", Metre},
    {"metres", Metre},
    {"meter", Metre},
    {"meters", Metre},
    {"mtr", Metre},
    {"mm", Millimetre},
    {"millimetre", Millimetre},
    {"millimetres", Millimetre},
    {"millimeter", Millimetre},
    {"millimeters", Millimetre},
    {"kpa", Kilopascal},
    {"kilopascal", Kilopascal},
    {"kilopascals", Kilopascal},
    {"hpa", Hectopascal},
    {"hectopascal", Hectopascal},
    {"hectopascals", Hectopascal},
    {"mbar", Millibar},
    {"mb", Millibar},
    {"mbars", Millibar},
    {"millibar", Millibar},
    {"millibars", Millibar},
    {"bar", Bar},
    {"bars", Bar},
    {"psi", Psi},
    {"psia", Psi},
    {"psig", Psi},
    {"lb/in2", Psi},
    {"lbs/in2", Psi},
    {"lbf/in2", Psi},
    {"poundspersquareinch", Psi},
    {"mmhg", MillimetreOfMercury},
    {"millimetresofmercury", MillimetreOfMercury},
    {"millimetersofmercury", MillimetreOfMercury},
    {"inhg", InchOfMercury},
    {"\"hg", InchOfMercury},
    {"incheshg", InchOfMercury},
    {"inchesofmercury", InchOfMercury},
    {"atm", Atmosphere},
    {"atmosphere", Atmosphere},
    {"atmospheres", Atmosphere},
    {"cmh2o", CentimetreOfWater},
    {"cmofh2o", CentimetreOfWater},
    {"cmwater", CentimetreOfWater},
    {"cmofwater", CentimetreOfWater},
    {"cmwc", CentimetreOfWater},
    {"mh2o", MetreOfWater},
    {"mofh2o", MetreOfWater},
    {"mwater", MetreOfWater},
    {"mofwater", MetreOfWater},
    {"metresofwater", MetreOfWater},
    {"metersofwater", MetreOfWater},
    {"mwc", MetreOfWater},
    {"fth2o", FootOfWater},
    {"ftofh2o", FootOfWater},
    {"ftwater", FootOfWater},
    {"ftofwater", FootOfWater},
    {"feeth2o", FootOfWater},
    {"feetofwater", FootOfWater},
    {"inh2o", InchOfWater},
    {"inofh2o", InchOfWater},
    {"inwater", InchOfWater},
    {"inofwater", InchOfWater},
    {"inchesh2o", InchOfWater},
    {"inchesofwater", InchOfWater},
    {"inwc", InchOfWater},
};

/// No spelling is longer; what is longer is not looked at whole.
constexpr std::size_t LongestSpelling = 40;

/// Lower case, without blanks, dots and brackets; the index 2 of water as a plain 2, and so is the
/// letter O of "H2O" that some files write as a zero.
std::string SpellingKey(std::string_view text) {
    constexpr std::string_view SmallTwo = "\xE2\x82\x82";
    std::string key;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, SmallTwo.size()) == SmallTwo) {
            key += '2';
            i += SmallTwo.size() - 1;
        } else if (std::string_view(" \t.()[]{}_").find(text[i]) == std::string_view::npos) {
            key += text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] + 32) : text[i];
        }
    }
    if (key.ends_with("h20"))
        key.back() = 'o';
    return key;
}

const UnitRow& RowOf(WaterUnit unit) {
    return Units[static_cast<std::size_t>(unit)];
}

} // namespace

const std::array<std::string_view, WaterUnitCount> WaterUnitNames = {
    "in",  "ft",   "cm",   "m",   "mm",    "kPa",  "hPa",   "mbar", "bar",
    "psi", "mmHg", "inHg", "atm", "cmH2O", "mH2O", "ftH2O", "inH2O"};

std::optional<WaterUnit> KnownWaterUnit(std::string_view spelling) {
    if (spelling.size() > LongestSpelling)
        return std::nullopt;
    const std::string key = SpellingKey(spelling);
    for (const Spelling& known : Spellings)
        if (known.text == key)
            return known.unit;
    return std::nullopt;
}

double MetresOfWater(WaterUnit unit) {
    return RowOf(unit).metres;
}

bool IsPressureUnit(WaterUnit unit) {
    return RowOf(unit).isPressure;
}

LengthUnit WrittenUnit(WaterUnit unit) {
    return RowOf(unit).written;
}

double MetresOfLength(LengthUnit unit) {
    return UnitFactorToCm(unit) / 100;
}

double ConvertReading(double reading, WaterUnit from, LengthUnit to) {
    const double fromMetres = MetresOfWater(from);
    const double toMetres = MetresOfLength(to);
    // Readings that stay in their unit must not lose their last bit to a product.
    return fromMetres == toMetres ? reading : reading * fromMetres / toMetres;
}

std::string UnknownUnitMessage(std::string_view text) {
    return "The unit '" + std::string(text) +
           "' is not known. Please choose the unit of the readings.";
}

} // namespace quarnel
