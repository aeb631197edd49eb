#pragma once

#include "output/Drawing.h"
#include "output/Paper.h"
#include "output/TextMeasure.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quarnel {

/// A row of texts, one for each column.
using SheetRow = std::vector<std::string>;

/// A document on paper, made from the top down: sentences, headings, tables and pictures one below
/// the other. No row is cut by a page's end; long texts run over several lines. Each page has a
/// foot with a name and its number. The measure must outlive the sheet.
class Sheet {
public:
    /// Whether what is added may end a page, or stands on one with what comes next.
    enum class Keep { Alone, WithNext };

    /// `name` stands at the foot of every page; empty for none.
    Sheet(const Paper& paper, const TextMeasure& measure, std::string name);

    void AddTitle(const std::string& text);
    /// A sentence to act on: larger and bold.
    void AddKeySentence(const std::string& text);
    /// Over a rule across the page.
    void AddHeading(const std::string& text);
    void AddSentence(const std::string& text, Keep keep = Keep::Alone);
    /// A line to be filled in by hand: a rule from the end of `label` to the end of the line, or to
    /// `secondLabel` and behind that another one.
    void AddLineToFillIn(const std::string& label, const std::string& secondLabel = {});
    /// A table below its headings, which may be empty; all of it on one page where it fits. With
    /// numbers all columns but the first stand to the right.
    void AddTable(const SheetRow& headings, const std::vector<SheetRow>& rows, bool hasNumbers);
    /// A table of any number of rows in columns of one width, its headings on every page. Rows are
    /// made only when their page is; a text that is too wide is set smaller.
    void AddLongTable(const SheetRow& headings, std::size_t rowCount,
                      std::function<SheetRow(std::size_t row)> row);
    void AddPicture(const Drawing& drawing);
    /// More room behind what was added last.
    void AddGap();
    /// Counts the pages: nothing is added from here on.
    void Finish();

    double TextWidth() const { return right_ - left_; }
    double TextHeight() const;

    /// How many pages there are; at least one.
    std::size_t Count() const { return pages_.size(); }
    /// A page (counted from 0), in twips from the corner of the printable area.
    Drawing Page(std::size_t page) const;

private:
    static constexpr std::size_t NoTable = static_cast<std::size_t>(-1);

    /// A piece of a page that is never cut; its positions count from its own top.
    struct Strip {
        double height = 0;
        double gap = 0; ///< below it, unless a page ends there
        bool keepWithNext = false;
        std::shared_ptr<const Drawing> content; ///< null for a row of a long table
        std::size_t longTable = NoTable;
        std::size_t row = 0;
    };
    struct LongTable {
        SheetRow headings;
        std::function<SheetRow(std::size_t row)> row;
    };

    void Add(Drawing content, double height, double gap, bool keepWithNext);
    void AddText(const std::string& text, double points, bool bold, double gap, bool keepWithNext);
    std::vector<double> ColumnWidths(const SheetRow& headings,
                                     const std::vector<SheetRow>& rows) const;
    Drawing RowOf(const SheetRow& row, const std::vector<double>& widths, bool hasNumbers,
                  bool bold, double& height) const;
    Drawing LongRow(const SheetRow& row, bool bold) const;
    Drawing ContentOf(const Strip& strip) const;
    bool RepeatsHeadings(std::size_t firstStrip) const;
    double LongHeadingHeight() const;
    DrawingLabel Text(double x, double y, std::string text, double points, double maxWidth) const;
    void DrawFoot(Drawing& drawing, std::size_t page) const;
    double LineHeight(double points) const;

    Paper paper_;
    const TextMeasure& measure_;
    std::string name_;
    double left_ = 0, right_ = 0, top_ = 0, bottom_ = 0; ///< of the text on every page
    std::vector<Strip> strips_;
    std::vector<LongTable> longTables_;
    std::vector<std::size_t> pages_; ///< the first strip of each
};

} // namespace quarnel
