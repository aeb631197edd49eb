#pragma once

#include "kcompute/Analysis.h"
#include "output/Drawing.h"
#include "output/Paper.h"
#include "output/SummaryReport.h"
#include "output/TextMeasure.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quarnel {

/// The summary report on paper. The blocks stand side by side in the order of the report's text,
/// the point table below them and on as many further pages as it needs, its headings on each. No
/// row is cut by a page's end; long texts run over several lines. Pages are drawn one at a time, so
/// that a logger's million readings do not have to be in memory as pages.
///
/// K, what the report is read for, is larger and bolder than all else, the title too.
///
/// The analysis must not change while its pages are in use, and the measure must outlive them.
class ReportPages {
public:
    ReportPages(const Analysis& analysis, const Paper& paper, const TextMeasure& measure);

    /// How many pages there are; at least one.
    std::size_t Count() const { return pages_.size(); }
    /// A page (counted from 0), in twips from the corner of the printable area.
    Drawing Page(std::size_t page) const;

private:
    /// A piece of a page that is never cut; its positions count from its own top.
    struct Strip {
        double height = 0;
        double gap = 0; ///< below it, for which a page's end needs no room
        std::vector<DrawingLabel> labels;
        std::vector<DrawingLine> rules;
        bool keepWithNext = false; ///< a heading does not end a page
    };
    struct PageContent {
        std::size_t firstStrip = 0, endStrip = 0; ///< of the blocks
        std::size_t firstPoint = 0, endPoint = 0; ///< of the table
        bool hasTable = false;
    };
    struct Column {
        std::string heading;
        double x = 0, width = 0;
        std::vector<std::string> lines;
    };

    void AddTitle();
    void AddBlocksSideBySide(const std::vector<ReportBlock>& blocks);
    void AddSlugTest(ReportBlock block);
    void AddHeadings(const std::vector<Column>& columns);
    void AddLines(const std::vector<Column>& columns);
    Column ColumnOf(const ReportBlock& block, double x, double width) const;
    void BreakBlocksIntoPages();
    void BreakTableIntoPages();
    Strip TableHeading() const;
    Strip TableRow(std::size_t point) const;
    double RowHeight(std::size_t point) const;
    double CellWidth() const;
    double LineHeight(double points) const;
    DrawingLabel Text(double x, double y, std::string text, double points, double maxWidth) const;
    DrawingLabel NumberCell(std::size_t column, double y, std::string text) const;
    void DrawFoot(Drawing& drawing, std::size_t page) const;
    static void Place(const Strip& strip, double& y, Drawing& drawing);

    const Analysis& analysis_;
    const TextMeasure& measure_;
    Paper paper_;
    double left_ = 0, right_ = 0, top_ = 0, bottom_ = 0; ///< of the text on every page
    std::vector<Strip> strips_;
    std::vector<PageContent> pages_;
    double endOfBlocks_ = 0; ///< y below the blocks on their last page
};

} // namespace quarnel
