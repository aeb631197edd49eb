#pragma once

#include "diagnostics/DiagnosticsPages.h"
#include "output/Drawing.h"
#include "output/Paper.h"
#include "output/Sheet.h"
#include "output/TextMeasure.h"

#include <cstddef>

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
    std::size_t Count() const { return sheet_.Count(); }
    /// A page (counted from 0), in twips from the corner of the printable area.
    Drawing Page(std::size_t page) const { return sheet_.Page(page); }

private:
    void AddPage(DiagnosticsPage page, const PageTexts& texts);

    Sheet sheet_;
};

} // namespace quarnel
