#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// Stands for runs of blanks and TABs between fields.
inline constexpr char BlankRuns = ' ';

/// No line has more fields than this; what is behind them is passed over.
inline constexpr std::size_t MostFields = 1000;

/// Cuts `line` at `delimiter` into `fields`, at most `most` of them. A field whose first character
/// behind blanks is a quote runs to its closing quote (`""` is a quote inside), or to the line's
/// end; the quotes around it are dropped. Nothing is allocated once `fields` is large enough.
void SplitFields(std::string_view line, char delimiter, std::vector<std::string_view>& fields,
                 std::size_t most = MostFields);

/// The text of a field that SplitFields cut: `""` is `"`, no blanks around.
std::string FieldText(std::string_view field);

/// The number a field holds, blanks around skipped: an optional sign, digits with at most one `.`
/// (or `,` where `comma` says so) and at least one digit, an optional exponent; a magnitude beyond
/// a double is no number. False leaves `value` as it was.
bool ParseReading(std::string_view field, bool comma, double& value);

} // namespace quarnel
