#include "compare/Labels.h"

#include "project/TextColumns.h"
#include "project/TextEncoding.h"

#include <cstddef>

namespace quarnel {

namespace {

constexpr bool IsIn(char32_t code, char32_t first, char32_t last) {
    return code >= first && code <= last;
}

/// Where capitals and small letters take turns, the capital's number being even or odd.
constexpr char32_t FoldedPair(char32_t code, char32_t parityOfCapital) {
    return code % 2 == parityOfCapital ? code + 1 : code;
}

constexpr char32_t FoldedLatin(char32_t code) {
    if (IsIn(code, 0xC0, 0xDE) && code != 0xD7)
        return code + 0x20;
    if (IsIn(code, 0x100, 0x12F) || IsIn(code, 0x132, 0x137) || IsIn(code, 0x14A, 0x177))
        return FoldedPair(code, 0);
    if (IsIn(code, 0x139, 0x148) || IsIn(code, 0x179, 0x17E))
        return FoldedPair(code, 1);
    return code == 0x178 ? 0xFF : code;
}

constexpr char32_t FoldedGreekOrCyrillic(char32_t code) {
    if (IsIn(code, 0x391, 0x3A9) || IsIn(code, 0x410, 0x42F))
        return code + 0x20;
    return IsIn(code, 0x400, 0x40F) ? code + 0x50 : code;
}

} // namespace

std::string FoldedCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty()) {
        const std::string_view character = text.substr(0, CharacterSize(text.front()));
        const auto lead = static_cast<unsigned char>(character.front());
        if (character.size() == 2) {
            const auto code = static_cast<char32_t>(
                (lead & 0x1FU) << 6U | (static_cast<unsigned char>(character[1]) & 0x3FU));
            AppendUtf8(folded, code < 0x370 ? FoldedLatin(code) : FoldedGreekOrCyrillic(code));
        } else if (lead >= 'A' && lead <= 'Z') {
            folded += static_cast<char>(lead + ('a' - 'A'));
        } else {
            folded += character;
        }
        text.remove_prefix(character.size());
    }
    return folded;
}

} // namespace quarnel
