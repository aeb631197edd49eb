#include "output/TextMeasure.h"

#include "project/TextColumns.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr std::string_view Ellipsis = "...";

/// Where a line of a text begins and ends, in bytes; a blank at which a line was cut belongs to
/// none.
struct LineExtent {
    std::size_t begin = 0, end = 0;
};

/// Cuts a text into lines from its beginning on.
class LineBreaker {
public:
    LineBreaker(std::string_view text, double points, double maxWidth, const TextMeasure& measure)
        : text_(text)
        , points_(points)
        , maxWidth_(maxWidth)
        , measure_(measure) {}

    bool AtEnd() const { return begun_ && begin_ >= text_.size(); }

    /// The next line; to be asked for only while the text is not at its end.
    LineExtent Next() {
        begun_ = true;
        while (at_ < text_.size()) {
            const std::size_t size = std::min(text_.size() - at_, CharacterSize(text_[at_]));
            if (measuredAt_ != at_ || at_ == 0)
                character_ = measure_.Width(text_.substr(at_, size), points_);
            measuredAt_ = at_;
            if (at_ > begin_ && width_ + character_ > maxWidth_)
                return CutBefore(at_);
            width_ += character_;
            sinceBlank_ += character_;
            if (text_[at_] == ' ' && at_ > begin_) {
                blank_ = at_;
                sinceBlank_ = 0;
            }
            at_ += size;
        }
        const LineExtent last{begin_, text_.size()};
        begin_ = text_.size();
        return last;
    }

private:
    /// The line that ends before the character at `end`, which has no room on it.
    LineExtent CutBefore(std::size_t end) {
        LineExtent line{begin_, end};
        if (text_[end] == ' ') {
            at_ = end + 1;
            Begin(at_, 0);
        } else if (blank_ > begin_) {
            line.end = blank_;
            Begin(blank_ + 1, sinceBlank_);
        } else {
            Begin(end, 0);
        }
        return line;
    }

    /// Begins a line on which text of the given width stands already.
    void Begin(std::size_t begin, double width) {
        begin_ = begin;
        blank_ = begin;
        width_ = width;
        sinceBlank_ = width;
    }

    std::string_view text_;
    double points_;
    double maxWidth_;
    const TextMeasure& measure_;
    bool begun_ = false;
    std::size_t begin_ = 0; ///< of the line
    std::size_t at_ = 0;    ///< the character that is looked at
    std::size_t blank_ = 0; ///< the last one on the line; at its beginning: none
    std::size_t measuredAt_ = 0;
    double character_ = 0;  ///< width of the character at measuredAt_
    double width_ = 0;      ///< of the line so far
    double sinceBlank_ = 0; ///< of what stands behind the last blank
};

/// `line` without as many of its last characters as "..." needs room.
std::string Shortened(std::string_view line, double points, double maxWidth,
                      const TextMeasure& measure) {
    const double room = maxWidth - measure.Width(Ellipsis, points);
    double width = 0;
    std::size_t end = 0;
    while (end < line.size()) {
        const std::size_t size = std::min(line.size() - end, CharacterSize(line[end]));
        width += measure.Width(line.substr(end, size), points);
        if (width > room)
            break;
        end += size;
    }
    return std::string(line.substr(0, end)) + std::string(Ellipsis);
}

} // namespace

std::vector<std::string> WrapText(std::string_view text, double points, double maxWidth,
                                  const TextMeasure& measure, std::size_t mostLines) {
    std::vector<std::string> lines;
    LineBreaker breaker(text, points, maxWidth, measure);
    while (!breaker.AtEnd()) {
        const LineExtent extent = breaker.Next();
        const std::string_view line = text.substr(extent.begin, extent.end - extent.begin);
        if (lines.size() + 1 == mostLines && !breaker.AtEnd()) {
            lines.push_back(Shortened(line, points, maxWidth, measure));
            break;
        }
        lines.emplace_back(line);
    }
    return lines;
}

std::size_t CountLines(std::string_view text, double points, double maxWidth,
                       const TextMeasure& measure, std::size_t mostLines) {
    LineBreaker breaker(text, points, maxWidth, measure);
    std::size_t count = 0;
    while (!breaker.AtEnd() && count <= mostLines) {
        breaker.Next();
        ++count;
    }
    return count;
}

} // namespace quarnel
