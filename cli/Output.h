#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace quarnel {

/// Bytes on their way to a file descriptor, written in large pieces. The first failure is kept and
/// what comes after it is dropped, so that a caller writes on and asks once.
class Output {
public:
    explicit Output(int descriptor)
        : descriptor_(descriptor) {
        pending_.reserve(PieceSize);
    }

    void Write(std::string_view bytes) {
        if (pending_.size() + bytes.size() > pending_.capacity())
            Flush();
        if (!HasFailed())
            pending_ += bytes;
    }
    /// Hands everything to the system. False after any failure so far.
    bool Flush();
    bool HasFailed() const { return systemError_ != 0; }
    /// Why writing failed, in the system's words.
    std::string FailureText() const;

private:
    static constexpr std::size_t PieceSize = 1 << 16;

    int descriptor_;
    int systemError_ = 0;
    std::string pending_;
};

/// One line to standard error: the program's name or a file, a colon and the text, with control
/// characters made harmless.
void PrintMessage(std::string_view prefix, std::string_view text);
/// Such a line for each of `texts`.
void PrintMessages(std::string_view prefix, std::span<const std::string> texts);

/// Opens what is missing of standard input, output and error in a way that no write succeeds, and
/// turns writing to a closed pipe into an ordinary failure. Without it a saved project could get
/// the number of a closed standard output, and with it the messages.
void SecureStandardStreams();

} // namespace quarnel
