#pragma once

#include <cstddef>
#include <string_view>

namespace quarnel {

/// One item of a record. The text points into the reader's text.
struct FileItem {
    std::string_view text; ///< without its quotes; blanks before an unquoted item are dropped
    bool atEnd = false;    ///< there was no item: the text is used up
    bool cut = false;      ///< the text ended inside the item's quotes; `text` is the piece before
};

/// Walks through comma-separated records item by item, or line by line. CR LF, LF and CR end a
/// line.
class ItemReader {
public:
    explicit ItemReader(std::string_view text)
        : text_(text) {}

    /// Skips blanks and says whether nothing is left.
    bool AtEnd();
    /// Steps over `start` if the text goes on with just that.
    bool SkipExactly(std::string_view start);
    /// The next item, quoted or not, with the comma or line end behind it.
    FileItem NextItem();
    /// Whether there is a line left to read.
    bool HasLine() const { return at_ < text_.size(); }
    /// The rest of the current line, without its end.
    std::string_view NextLine();
    /// The next number text of a legacy file: numbers are separated by one comma, or by blanks,
    /// TABs and line ends. A place left empty between two commas is an empty text.
    FileItem NextNumberText();
    /// Where the next item is read, in bytes from the start of the text.
    std::size_t Position() const { return at_; }
    std::size_t BytesLeft() const { return text_.size() - at_; }

private:
    void SkipBlanks();
    void SkipLineEnd();
    bool AtLineEnd() const { return text_[at_] == '\r' || text_[at_] == '\n'; }

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace quarnel
