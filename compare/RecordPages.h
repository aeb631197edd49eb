#pragma once

#include "kcompute/AnalysisRun.h"
#include "output/Drawing.h"
#include "output/Paper.h"
#include "output/Sheet.h"
#include "output/TextMeasure.h"

#include <cstddef>

namespace quarnel {

/// The record of a slug test on paper: the same sections and lines as its text, with rules to write
/// on where the text has dots, and the plot on a page of its own at the end where there is K. The
/// run and the measure must outlive the pages.
class RecordPages {
public:
    RecordPages(const AnalysisRun& run, const Paper& paper, const TextMeasure& measure);

    std::size_t Count() const { return sheet_.Count() + (HasPlot() ? 1 : 0); }
    /// A page (counted from 0), in twips from the corner of the printable area.
    Drawing Page(std::size_t page) const;

private:
    bool HasPlot() const { return run_.analysis.computation != nullptr; }

    const AnalysisRun& run_;
    Paper paper_;
    const TextMeasure& measure_;
    Sheet sheet_;
};

} // namespace quarnel
