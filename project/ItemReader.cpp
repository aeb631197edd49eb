#include "project/ItemReader.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace quarnel {

namespace {

constexpr std::uint64_t EachByte(std::uint64_t byte) {
    return byte * 0x0101010101010101ULL;
}

/// The top bit of each byte of `block` that is 0, and perhaps of bytes above the lowest such one.
constexpr std::uint64_t ZeroBytes(std::uint64_t block) {
    return (block - EachByte(0x01)) & ~block & EachByte(0x80);
}

/// Where an item that goes on at `at` ends: at `stop`, a line end or the text's end. Nearly all the
/// time of opening a file of a million readings goes into this search, so it takes eight bytes at
/// a time where the first byte of a number is its lowest, and single ones at the end.
std::size_t ItemEnd(std::string_view text, std::size_t at, char stop) {
    if constexpr (std::endian::native == std::endian::little) {
        const std::uint64_t stops = EachByte(static_cast<unsigned char>(stop));
        while (at + sizeof stops <= text.size()) {
            std::uint64_t block = 0;
            std::memcpy(&block, text.data() + at, sizeof block);
            const std::uint64_t found = ZeroBytes(block ^ stops) |
                                        ZeroBytes(block ^ EachByte('\r')) |
                                        ZeroBytes(block ^ EachByte('\n'));
            if (found != 0)
                return at + static_cast<std::size_t>(std::countr_zero(found)) / 8;
            at += sizeof block;
        }
    }
    while (at < text.size() && text[at] != stop && text[at] != '\r' && text[at] != '\n')
        ++at;
    return at;
}

} // namespace

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

bool ItemReader::SkipExactly(std::string_view start) {
    if (!text_.substr(at_).starts_with(start))
        return false;
    at_ += start.size();
    return true;
}

FileItem ItemReader::NextItem() {
    FileItem item; // filled where the caller has it: a copy of it costs more than the search
    if (AtEnd()) {
        item.atEnd = true;
        return item;
    }
    const bool quoted = text_[at_] == '"';
    if (quoted)
        ++at_;
    const std::size_t start = at_;
    const char stop = quoted ? '"' : ',';
    at_ = ItemEnd(text_, start, stop);
    item.text = text_.substr(start, at_ - start);
    item.cut = quoted && at_ == text_.size();
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
    at_ = ItemEnd(text_, start, '\n');
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
