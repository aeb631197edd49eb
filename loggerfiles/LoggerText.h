#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarnel {

/// The text of a logger file: UTF-8, without its mark.
struct LoggerText {
    std::string_view text; ///< of the file's own bytes, or of `decoded`
    std::string decoded;   ///< where the bytes are not UTF-8
    std::string fault;     ///< not empty: no text; the sentence for the user

    LoggerText() = default;
    // A copy's view would look into the original.
    LoggerText(const LoggerText&) = delete;
    LoggerText& operator=(const LoggerText&) = delete;
    ~LoggerText() = default;
};

/// Puts the text of a file's `bytes` into `into`. Marks of UTF-8 and UTF-16 are honoured; without
/// one, valid UTF-8 is UTF-8 and anything else Windows-1252. Nothing, an archive and bytes that are
/// no text (a NUL without a mark) are faults that name the file `name`. `bytes` must outlive
/// `into`.
void DecodeLoggerText(std::string_view bytes, std::string_view name, LoggerText& into);

/// Walks over the lines of a text: CR LF, LF and CR end one, and the text's end the last.
class LineReader {
public:
    explicit LineReader(std::string_view text)
        : text_(text) {}

    /// The next line without its end into `line`; false when there is none.
    bool Next(std::string_view& line) {
        if (at_ >= text_.size())
            return false;
        if (nextLf_ < at_ || at_ == 0)
            nextLf_ = FindFrom('\n');
        if (nextCr_ < at_ || at_ == 0)
            nextCr_ = FindFrom('\r');
        start_ = at_;
        const std::size_t end = nextLf_ < nextCr_ ? nextLf_ : nextCr_;
        line = text_.substr(at_, end - at_);
        at_ = end + (end == nextCr_ && nextLf_ == nextCr_ + 1 ? 2 : 1);
        ++line_;
        return true;
    }

    /// The number of the line that was read last, counted from 1.
    std::size_t Line() const { return line_; }
    /// Where the line that was read last begins.
    std::size_t Start() const { return start_; }
    /// How many bytes have been read.
    std::size_t Read() const { return at_ < text_.size() ? at_ : text_.size(); }
    /// How many bytes there are.
    std::size_t Size() const { return text_.size(); }
    /// Whether the line that was read last has no line end, as the last one of a cut file.
    bool EndsWithoutLineEnd() const { return at_ > text_.size(); }

private:
    std::size_t FindFrom(char c) const {
        const std::size_t found = text_.find(c, at_);
        return found == std::string_view::npos ? text_.size() : found;
    }

    std::string_view text_;
    std::size_t at_ = 0, start_ = 0, line_ = 0;
    // Where the next of each stands, so that a file without one is not searched at every line.
    std::size_t nextLf_ = 0, nextCr_ = 0;
};

/// `text` without the blanks and TABs at both ends.
std::string_view TrimSpace(std::string_view text);

/// Whether `text` begins with `upperCaseStart`, case ignored.
bool StartsWithIgnoringCase(std::string_view text, std::string_view upperCaseStart);

/// Whether `text` is `upperCaseText`, case ignored.
bool EqualsIgnoringCase(std::string_view text, std::string_view upperCaseText);

} // namespace quarnel
