#include "project/TextColumns.h"

#include <algorithm>

namespace quarnel {

std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char byte) { return !ContinuesCharacter(byte); }));
}

std::string_view WholeCharacters(std::string_view text, std::size_t most) {
    if (text.size() <= most)
        return text;
    std::size_t end = most;
    while (end > 0 && ContinuesCharacter(text[end]))
        --end;
    return text.substr(0, end);
}

void AppendInColumns(std::string& text, std::span<const std::size_t> columns,
                     std::initializer_list<std::string_view> cells) {
    std::size_t width = 0;
    std::size_t column = 0;
    for (const std::string_view cell : cells) {
        const std::size_t start = columns[column];
        const std::size_t blanks = width < start ? start - width : (column == 0 ? 0 : 1);
        text.append(blanks, ' ').append(cell);
        width += blanks + CharacterCount(cell);
        ++column;
    }
}

} // namespace quarnel
