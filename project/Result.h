#pragma once

#include <string>
#include <utility>

namespace quarnel {

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

} // namespace quarnel
