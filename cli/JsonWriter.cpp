#include "cli/JsonWriter.h"

#include "project/PlainText.h"

#include <algorithm>
#include <string>

namespace quarnel {

namespace {

/// Whether an ASCII character stands for itself inside quotes.
bool IsPlain(char character) {
    return character >= 0x20 && character < 0x7F && character != '"' && character != '\\';
}

/// What stands for a byte of UTF-8 inside quotes: itself, or its escape.
std::string Escaped(char character) {
    constexpr std::string_view Digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\')
        return {'\\', character};
    if (code >= 0x20 && code != 0x7F)
        return {character};
    return std::string("\\u00") + Digits[code >> 4U] + Digits[code & 0xFU];
}

} // namespace

void JsonWriter::Begin(char bracket, Layout layout) {
    BeginValue();
    output_.Write({&bracket, 1});
    ++depth_;
    layout_ = layout;
    isFirst_ = true;
}

void JsonWriter::End(char bracket) {
    --depth_;
    if (layout_ == Layout::Lines && !isFirst_)
        output_.Write("\n" + std::string(2 * depth_, ' '));
    output_.Write({&bracket, 1});
    layout_ = Layout::Lines; // a row holds nothing but values
    isFirst_ = false;
    if (depth_ == 0)
        output_.Write("\n");
}

void JsonWriter::Separate() {
    if (!isFirst_)
        output_.Write(layout_ == Layout::Row ? ", " : ",");
    if (layout_ == Layout::Lines && depth_ > 0)
        output_.Write("\n" + std::string(2 * depth_, ' '));
    isFirst_ = false;
}

void JsonWriter::BeginValue() {
    if (!afterKey_)
        Separate();
    afterKey_ = false;
}

void JsonWriter::Key(std::string_view key) {
    Separate();
    output_.Write("\"");
    output_.Write(key);
    output_.Write("\": ");
    afterKey_ = true;
}

void JsonWriter::Text(std::string_view text) {
    BeginValue();
    Quote(text);
}

void JsonWriter::Number(double number) {
    BeginValue();
    ExactDigits digits;
    const std::string_view text = ExactNumber(number, digits);
    output_.Write(text.empty() ? "null" : text);
}

void JsonWriter::Boolean(bool value) {
    BeginValue();
    output_.Write(value ? "true" : "false");
}

void JsonWriter::Null() {
    BeginValue();
    output_.Write("null");
}

void JsonWriter::Quote(std::string_view text) {
    // Keys and the texts of numbers, in a row of a million, need no second look.
    if (std::all_of(text.begin(), text.end(), IsPlain)) {
        output_.Write("\"");
        output_.Write(text);
        output_.Write("\"");
        return;
    }
    std::string quoted = "\"";
    for (const char character : WellFormedUtf8(text))
        quoted += Escaped(character);
    quoted += '"';
    output_.Write(quoted);
}

} // namespace quarnel
