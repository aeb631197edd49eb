#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace quarnel {

/// What a check or computation says: Ok (nothing to report), Error (the caller shows the message
/// and stops), Warning (the caller shows or keeps the message and goes on). The numbers are
/// reported.
enum class ComputationStatus { Ok = 0, Error = 1, Warning = 2 };

/// Where the text is that a message is about, so that the user can be led there.
struct FaultPlace {
    enum Kind { None, GeometryBox, PreSlugBox, RecoveryCell };
    Kind kind = None;
    int box = 0;         ///< of GeometryBox: by WellGeoIndex
    std::size_t row = 0; ///< of RecoveryCell: data rows count from 1
    int column = 0;      ///< of RecoveryCell: 1 the time, 2 the reading
};

struct Result {
    ComputationStatus status = ComputationStatus::Ok;
    std::string message; ///< empty when status is Ok
    FaultPlace place;    ///< of an error; None where no single text is at fault

    bool IsError() const { return status == ComputationStatus::Error; }
    static Result Ok() { return {}; }
    static Result Error(std::string text, FaultPlace place = {}) {
        return {ComputationStatus::Error, std::move(text), place};
    }
    static Result Warning(std::string text) {
        return {ComputationStatus::Warning, std::move(text), {}};
    }
};

} // namespace quarnel
