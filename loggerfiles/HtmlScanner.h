#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarnel {

/// Walks over the tags and texts of an HTML text, whatever state it is in: tags need not be closed,
/// `&` may stand bare. Comments, declarations, `<script>` and `<style>` with what they hold are
/// passed over. Nothing is allocated and nothing recurses.
class HtmlScanner {
public:
    enum class Part { Text, OpenTag, CloseTag, End };

    explicit HtmlScanner(std::string_view html)
        : html_(html) {}

    /// Goes to the next part.
    Part Next();

    /// Of a text: its bytes, entities as they stand. Of a tag: its name as written.
    std::string_view Value() const { return value_; }

    /// Whether the tag is called `upperCaseName`, case ignored.
    bool Is(std::string_view upperCaseName) const;

    /// The value of the tag's attribute `upperCaseName` into `value`, quotes dropped, "" where it
    /// has none; false when the tag has no such attribute.
    bool Attribute(std::string_view upperCaseName, std::string_view& value) const;

    /// Where the part that was read last begins.
    std::size_t Start() const { return start_; }
    /// How many bytes have been read.
    std::size_t Read() const { return at_; }

private:
    Part TakeTag();
    void PassMarkup(std::string_view end);
    void PassContent(std::string_view upperCaseName);

    std::string_view html_;
    std::string_view value_, attributes_;
    std::size_t at_ = 0, start_ = 0;
};

/// Appends the characters of an HTML text to `text`: entities as the characters they stand for,
/// every other byte as it is.
void AppendHtmlText(std::string_view html, std::string& text);

} // namespace quarnel
