#pragma once

#include "project/GlobalDeclar.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel::test {

/// How a run of the program ended; the status of a run that crashed is -1.
struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

/// Each test has an empty folder of its own, in which the program runs.
class CliTest : public testing::Test {
protected:
    using Environment = std::vector<std::pair<std::string, std::string>>;

    /// Runs quarnel-cli with an environment that holds nothing but a path, a home and `extra`.
    Outcome Run(const QStringList& arguments, const Environment& extra = {});
    /// Runs a line of shell in which $cli is the program.
    Outcome RunShell(std::string_view line, const Environment& extra = {});
    /// The array that analyze --format json prints for `files`; checks the status and that standard
    /// error is empty.
    QJsonArray AnalyzeJson(const QStringList& files, int expectedStatus,
                           const Environment& extra = {});
    /// The same for one project, written first.
    QJsonObject AnalyzeOne(const ProjectState& state, int expectedStatus);

    QString Path(std::string_view name) const;
    void WriteBytes(std::string_view name, std::string_view bytes) const;
    void WriteProject(std::string_view name, const ProjectState& state) const;
    std::string ReadBytes(std::string_view name) const;

private:
    Outcome Start(const QString& program, const QStringList& arguments, const Environment& extra);

    QTemporaryDir folder_;
};

/// A test that computes without a warning: five readings that fall, of type Y.
ProjectState SampleProject();
void SetReadings(ProjectState& state,
                 const std::vector<std::pair<std::string, std::string>>& readings);

QString Example(std::string_view name);
QString Q(std::string_view text);
std::vector<std::string> Messages(const QJsonObject& analysis);

inline constexpr std::string_view RatioTooSmall =
    "Le/rw ratio is smaller than smallest value in Bouwer-Rice paper. Smallest values for A, B and "
    "C given by Bouwer-Rice are being used.";
inline constexpr std::string_view YWarning =
    "Y values <= 0 are present. This is OK, butY values <=0 cannot be used for parameter "
    "estimation. Y values <=0 near the start of the recovery data may indicate an error in the "
    "recovery data, an error in the specified Water Level Measurement method, or an error in the "
    "specified Slug Test Type.";
inline constexpr std::string_view TooFewPoints =
    "Less than 2 valid (Y>0) data points have been selected (Use) for parameter estimation. "
    "Hydraulic conductivity cannot be estimated.";
inline constexpr std::string_view RisingSlope =
    "Slope is >=0. Invalid result. Y used for best fit is flat or increasing with time.";
inline constexpr std::string_view NotAnInputFile =
    "The file selected does not appear to be a QUARNEL input file.";

} // namespace quarnel::test
