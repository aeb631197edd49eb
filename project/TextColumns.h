#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace quarnel {

/// How many bytes the UTF-8 character takes that begins with `lead`; a byte that begins none counts
/// as a character of its own.
constexpr std::size_t CharacterSize(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    if (byte >= 0xF0)
        return 4;
    if (byte >= 0xE0)
        return 3;
    return byte >= 0xC0 ? 2 : 1;
}

/// Whether a byte of UTF-8 continues a character that began before it.
constexpr bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The longest beginning of `text` of at most `most` bytes that cuts no character.
std::string_view WholeCharacters(std::string_view text, std::size_t most);

/// Number of characters of a UTF-8 text: every byte that does not continue a character.
std::size_t CharacterCount(std::string_view text);

/// Adds one row of a table in plain text: each cell at its column (counted in characters from 0).
/// A text that leaves no room before the next column is parted from its neighbour by one blank.
void AppendInColumns(std::string& text, std::span<const std::size_t> columns,
                     std::initializer_list<std::string_view> cells);

} // namespace quarnel
