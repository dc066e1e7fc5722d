#pragma once

#include "velda_base/host/printer.h"

namespace zt {

class CTBView;

/// Margins of the paper in millimetres.
struct PaperMargins {
    double left = 15.0;
    double top = 15.0;
    double right = 15.0;
    double bottom = 15.0;
};

/// Printing of table views: margins, font size and the preview, the same for all views.
class CTBPrintPreview {
public:
    static inline PaperMargins m_Margins;
    /// Font size of printed tables in points.
    static inline int m_nPrintFontSize = 8;

    /// The margins in points.
    static void GetMarginDPUnit(int& left, int& top, int& right, int& bottom);
    /// Asks the user for printer and paper. False when he cancels.
    static bool OnPreparePrinting(velda::PrintJob& job);
    /// Shows what would be printed; false when the user cancels or there is nothing to print.
    static bool OnFilePrintPreview(CTBView& view);
};

}  // namespace zt
