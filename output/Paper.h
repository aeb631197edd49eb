#pragma once

namespace quarnel {

/// A sheet of paper, in twips (1/1440 inch): its printable area, which positions on a page count
/// from, and how far that lies from the paper's edges.
struct Paper {
    double printableWidth = 0, printableHeight = 0;
    double marginLeft = 0, marginTop = 0, marginRight = 0, marginBottom = 0;
    /// How far into the right margin the paper still takes ink: a printer's margin takes none, a
    /// PDF's all of it.
    double reachRight = 0;
};

} // namespace quarnel
