#pragma once

#include <string>
#include <string_view>

namespace quarnel {

/// Whether `bytes` are well-formed UTF-8 (no overlong forms, no surrogates, at most U+10FFFF).
bool IsValidUtf8(std::string_view bytes);

/// Adds the character `code` (at most U+10FFFF) to a UTF-8 text.
void AppendUtf8(std::string& text, char32_t code);

/// The UTF-8 text of bytes in Windows-1252. The five bytes without a character there stand for the
/// control characters of the same number, so every byte survives.
std::string Windows1252ToUtf8(std::string_view bytes);

/// The bytes a file gets for `text` (UTF-8): Windows-1252 when every character has a code there and
/// the bytes would be read back as the same text, otherwise UTF-8. So a text never changes by
/// saving and opening. A file is read as UTF-8 where it is valid UTF-8, and as Windows-1252
/// otherwise.
std::string EncodeFileText(std::string_view text);

} // namespace quarnel
