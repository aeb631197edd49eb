#pragma once

#include "diagnostics/DiagnosticsPages.h"
#include "output/Drawing.h"
#include "output/ReportPages.h"
#include "output/TextMeasure.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quarnel {

/// All pages of the diagnostics on paper: the sentence to act on, the tables and sentences one
/// below the other, and both pictures of the residuals at the end. No row is cut by a page's end;
/// long texts run over several lines. The diagnostics and the project are read here and not kept;
/// the measure must outlive the sheet.
class DiagnosticsSheet {
public:
    DiagnosticsSheet(Diagnostics& diagnostics, const ProjectState& state, double percent,
                     const Paper& paper, const TextMeasure& measure);

    /// How many pages there are; at least one.
    std::size_t Count() const { return pages_.size(); }
    /// A page (counted from 0), in twips from the corner of the printable area.
    Drawing Page(std::size_t page) const;

private:
    /// A piece of a page that is never cut; its positions count from its own top.
    struct Strip {
        double height = 0;
        double gap = 0; ///< below it, unless a page ends there
        Drawing content;
        bool keepWithNext = false; ///< a heading does not end a page
    };

    void AddHead(const std::string& well, const std::string& sentence,
                 const std::string& stateLine);
    void AddPage(DiagnosticsPage page, const PageTexts& texts);
    void AddSentence(const std::string& text, double points, bool bold, double gapAfter);
    void AddTable(const PageTexts& texts);
    std::vector<double> ColumnWidths(const PageTexts& texts) const;
    Strip RowStrip(const TextRow& row, const std::vector<double>& widths, bool hasNumbers,
                   bool bold) const;
    void AddPicture(const Drawing& drawing);
    void BreakIntoPages();
    DrawingLabel Text(double x, double y, std::string text, double points, double maxWidth) const;

    double LineHeight(double points) const;

    Paper paper_;
    const TextMeasure& measure_;
    std::string well_;
    double left_ = 0, right_ = 0, top_ = 0, bottom_ = 0; ///< of the text on every page
    std::vector<Strip> strips_;
    std::vector<std::size_t> pages_; ///< the first strip of each
};

} // namespace quarnel
