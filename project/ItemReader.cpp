#include "project/ItemReader.h"

namespace quarnel {

void ItemReader::SkipBlanks() {
    while (at_ < text_.size() && text_[at_] == ' ')
        ++at_;
}

void ItemReader::SkipLineEnd() {
    if (at_ == text_.size() || !AtLineEnd())
        return;
    const bool carriageReturn = text_[at_++] == '\r';
    if (carriageReturn && at_ < text_.size() && text_[at_] == '\n')
        ++at_;
}

bool ItemReader::AtEnd() {
    SkipBlanks();
    return at_ == text_.size();
}

FileItem ItemReader::NextItem() {
    if (AtEnd())
        return {{}, true, false};
    const bool quoted = text_[at_] == '"';
    if (quoted)
        ++at_;
    const std::size_t start = at_;
    const char stop = quoted ? '"' : ',';
    while (at_ < text_.size() && text_[at_] != stop && !AtLineEnd())
        ++at_;
    FileItem item{text_.substr(start, at_ - start), false, quoted && at_ == text_.size()};
    if (quoted && at_ < text_.size() && text_[at_] == '"') {
        ++at_;
        SkipBlanks();
    }
    if (at_ < text_.size() && text_[at_] == ',')
        ++at_;
    else
        SkipLineEnd();
    return item;
}

std::string_view ItemReader::NextLine() {
    const std::size_t start = at_;
    while (at_ < text_.size() && !AtLineEnd())
        ++at_;
    const std::string_view line = text_.substr(start, at_ - start);
    SkipLineEnd();
    return line;
}

FileItem ItemReader::NextNumberText() {
    static constexpr std::string_view Separators = " \t\r\n,";
    const auto skipWhite = [this] {
        while (at_ < text_.size() && text_[at_] != ',' &&
               Separators.find(text_[at_]) != std::string_view::npos)
            ++at_;
    };
    skipWhite();
    if (at_ == text_.size())
        return {{}, true, false};
    const std::size_t start = at_;
    while (at_ < text_.size() && Separators.find(text_[at_]) == std::string_view::npos)
        ++at_;
    const FileItem item{text_.substr(start, at_ - start), false, false};
    // The comma behind the number belongs to it, and so do blanks before that comma; the line's end
    // stays, for the rest of a line may have to be passed over.
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t'))
        ++at_;
    if (at_ < text_.size() && text_[at_] == ',')
        ++at_;
    return item;
}

} // namespace quarnel
