#include "tests/cli/ImportTestSupport.h"

#include "project/Files.h"
#include "project/Texts.h"

#include <cmath>

namespace quarnel::test {

namespace {

constexpr int RowCount = 60;
constexpr int StillRows = 20;

std::string LevelAt(int row) {
    if (row < StillRows)
        return "5";
    return DoubleToText(std::round((5 - std::pow(0.9, row - StillRows)) * 1e3) / 1e3);
}

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

ProjectState CliImportTest::Imported() {
    ProjectState state;
    EXPECT_TRUE(OpenProjectFile(Path("out.qn2").toStdString(), state).messages.empty());
    return state;
}

std::string ClockTable(const std::string& heading) {
    std::string text = heading + "\r\n";
    for (int row = 0; row < RowCount; ++row)
        text += "2024-03-25 11:" + TwoDigits(20 + 2 * row / 60) + ":" + TwoDigits(2 * row % 60) +
                "," + LevelAt(row) + "\r\n";
    return text;
}

std::string SecondsTable(double secondsPerUnit) {
    std::string text;
    for (int row = 0; row < RowCount; ++row)
        text += DoubleToText(2 * row / secondsPerUnit) + "," + LevelAt(row) + "\n";
    return text;
}

std::string TableOfEitherDateOrder() {
    std::string text = "Time,Level (m)\n";
    for (int i = 1; i <= 11; ++i)
        text += TwoDigits(i) + "/" + TwoDigits(i + 1) + "/2024 00:00:00," +
                (i < 7 ? "5" : DoubleToText(4 + i / 100.0)) + "\n";
    return text;
}

std::string Rows(const QJsonObject& import) {
    std::string rows;
    for (const QJsonValue row : import.value(Q("readings")).toArray())
        rows += (rows.empty() ? "" : "; ") +
                row.toObject().value(Q("time_text")).toString().toStdString() + " " +
                row.toObject().value(Q("level_text")).toString().toStdString();
    return rows;
}

} // namespace quarnel::test
