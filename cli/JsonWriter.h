#pragma once

#include "cli/Output.h"

#include <cstddef>
#include <string_view>

namespace quarnel {

/// Writes JSON piece by piece, members in the order they are given. A document held in memory would
/// need more than a kilobyte for each reading, and a logger's project has a million.
class JsonWriter {
public:
    explicit JsonWriter(Output& output)
        : output_(output) {}

    void BeginObject() { Begin('{', Layout::Lines); }
    /// An object whose members share one line, as the rows of a table do.
    void BeginRow() { Begin('{', Layout::Row); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('[', Layout::Lines); }
    void EndArray() { End(']'); }

    /// The name of the member that the next value belongs to: a word of this program's own, without
    /// anything to escape.
    void Key(std::string_view key);
    void Text(std::string_view text);
    /// The shortest digits that read back as the same double; null for one that is not finite.
    void Number(double number);
    void Boolean(bool value);
    void Null();

    void Member(std::string_view key, std::string_view text) {
        Key(key);
        Text(text);
    }
    void Member(std::string_view key, double number) {
        Key(key);
        Number(number);
    }

private:
    enum class Layout { Lines, Row };

    void Begin(char bracket, Layout layout);
    void End(char bracket);
    void BeginValue();
    void Separate();
    void Quote(std::string_view text);

    Output& output_;
    std::size_t depth_ = 0;
    Layout layout_ = Layout::Lines;
    bool isFirst_ = true;
    bool afterKey_ = false;
};

} // namespace quarnel
