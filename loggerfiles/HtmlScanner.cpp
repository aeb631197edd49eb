#include "loggerfiles/HtmlScanner.h"
#include "project/TextEncoding.h"

#include "loggerfiles/LoggerText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace quarnel {

namespace {

constexpr std::string_view Space = " \t\r\n\f";

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Where the tag that begins before `at` ends: at the first `>` outside quotes that open a value.
std::size_t EndOfTag(std::string_view html, std::size_t at) {
    while (at < html.size()) {
        at = html.find_first_of(">=", at);
        if (at == std::string_view::npos || html[at] == '>')
            break;
        at = html.find_first_not_of(Space, at + 1);
        if (at == std::string_view::npos)
            break;
        if (html[at] == '"' || html[at] == '\'') {
            const std::size_t close = html.find(html[at], at + 1);
            // A quote that never closes is no quote.
            at = close == std::string_view::npos ? at + 1 : close + 1;
        }
    }
    return at < html.size() ? at : html.size();
}

/// Takes one attribute from the front of `rest`; false where none is left.
bool TakeAttribute(std::string_view& rest, std::string_view& name, std::string_view& value) {
    const std::size_t start = rest.find_first_not_of(" \t\r\n\f/");
    if (start == std::string_view::npos)
        return false;
    rest.remove_prefix(start);
    const std::size_t nameEnd = std::min(rest.find_first_of(" \t\r\n\f/=", 1), rest.size());
    name = rest.substr(0, nameEnd);
    rest.remove_prefix(nameEnd);
    value = {};
    const std::size_t sign = rest.find_first_not_of(Space);
    if (sign == std::string_view::npos || rest[sign] != '=')
        return true;
    rest.remove_prefix(std::min(rest.find_first_not_of(Space, sign + 1), rest.size()));
    if (rest.empty())
        return true;
    const bool isQuoted = rest[0] == '"' || rest[0] == '\'';
    const std::size_t from = isQuoted ? 1 : 0;
    const std::size_t end =
        std::min(isQuoted ? rest.find(rest[0], 1) : rest.find_first_of(Space), rest.size());
    value = rest.substr(from, end - from);
    rest.remove_prefix(std::min(end + from, rest.size()));
    return true;
}

/// The character that the entity `name` (without `&` and `;`) stands for; 0 for an unknown one.
char32_t CharacterOf(std::string_view name) {
    struct Named {
        std::string_view name;
        char32_t code;
    };
    // A blank that does not break parts words as any blank does.
    constexpr Named Names[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"nbsp", ' '}};
    for (const Named& named : Names)
        if (name == named.name)
            return named.code;
    if (!name.starts_with('#'))
        return 0;
    const bool isHex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    std::uint32_t code = 0;
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    const bool isWhole = result.ec == std::errc() && result.ptr == digits.data() + digits.size();
    const bool isCharacter = code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isWhole && isCharacter ? char32_t{code} : 0;
}

} // namespace

HtmlScanner::Part HtmlScanner::Next() {
    while (at_ < html_.size()) {
        start_ = at_;
        const std::string_view rest = html_.substr(at_);
        const char second = rest.size() > 1 ? rest[1] : ' ';
        if (rest[0] == '<' && (IsNameStart(second) || second == '/')) {
            const Part part = TakeTag();
            if (part != Part::OpenTag || !(Is("SCRIPT") || Is("STYLE")))
                return part;
            PassContent(Is("SCRIPT") ? "SCRIPT" : "STYLE");
        } else if (rest.starts_with("<!--")) {
            PassMarkup("-->");
        } else if (rest[0] == '<' && (second == '!' || second == '?')) {
            PassMarkup(">");
        } else {
            // A sign that opens nothing is text.
            at_ = std::min(html_.find('<', at_ + 1), html_.size());
            value_ = html_.substr(start_, at_ - start_);
            return Part::Text;
        }
    }
    start_ = at_;
    return Part::End;
}

HtmlScanner::Part HtmlScanner::TakeTag() {
    const bool closes = html_[at_ + 1] == '/';
    const std::size_t nameStart = at_ + (closes ? 2 : 1);
    const std::size_t end = EndOfTag(html_, nameStart);
    const std::string_view inside = html_.substr(nameStart, end - nameStart);
    const std::size_t nameEnd = std::min(inside.find_first_of(" \t\r\n\f/"), inside.size());
    value_ = inside.substr(0, nameEnd);
    attributes_ = inside.substr(nameEnd);
    at_ = std::min(end + 1, html_.size());
    return closes ? Part::CloseTag : Part::OpenTag;
}

void HtmlScanner::PassMarkup(std::string_view end) {
    const std::size_t found = html_.find(end, at_);
    at_ = found == std::string_view::npos ? html_.size() : found + end.size();
}

void HtmlScanner::PassContent(std::string_view upperCaseName) {
    while (at_ < html_.size()) {
        const std::size_t found = html_.find("</", at_);
        if (found == std::string_view::npos) {
            at_ = html_.size();
            return;
        }
        at_ = found;
        if (StartsWithIgnoringCase(html_.substr(found + 2), upperCaseName))
            return;
        at_ += 2;
    }
}

bool HtmlScanner::Is(std::string_view upperCaseName) const {
    return EqualsIgnoringCase(value_, upperCaseName);
}

bool HtmlScanner::Attribute(std::string_view upperCaseName, std::string_view& value) const {
    std::string_view rest = attributes_;
    std::string_view name;
    while (TakeAttribute(rest, name, value))
        if (EqualsIgnoringCase(name, upperCaseName))
            return true;
    value = {};
    return false;
}

void AppendHtmlText(std::string_view html, std::string& text) {
    /// The longest entity: &#x10FFFF;
    constexpr std::size_t LongestEntity = 10;
    while (!html.empty()) {
        const std::size_t sign = std::min(html.find('&'), html.size());
        text += html.substr(0, sign);
        html.remove_prefix(sign);
        if (html.empty())
            return;
        const std::size_t end = html.substr(0, LongestEntity).find(';');
        const char32_t code =
            end == std::string_view::npos ? 0 : CharacterOf(html.substr(1, end - 1));
        if (code == 0)
            text += '&';
        else
            AppendUtf8(text, code);
        html.remove_prefix(code == 0 ? 1 : end + 1);
    }
}

} // namespace quarnel
