#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velda {

/// Distances from the edges of the paper, in points (1/72 inch).
struct PrintMargins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const PrintMargins&) const = default;
};

/// Width and height of the paper in points.
struct PaperSize {
    double width = 595.0;
    double height = 842.0;
    bool operator==(const PaperSize&) const = default;
};

/// What is printed, as one job.
struct PrintJob {
    std::string title{};
    bool preview = false;  ///< shown on the screen instead of printed
    PaperSize paper{};
    PrintMargins margins{};
    double fontSize = 0.0;  ///< of the cells, in points
    int pages = 0;
    std::vector<std::string> headings{};  ///< lines of the title block below the title
    /// Width in points of a text in a font of a size, as the printer draws it; empty where the printer cannot tell.
    std::function<double(std::string_view text, double fontSize, bool bold)> textWidth{};
};

/// The printer and the preview of what it would print.
class IPrinter {
public:
    virtual ~IPrinter() = default;
    /// Asks the user for printer and paper. False when he cancels.
    virtual bool Prepare(PrintJob& job) = 0;
    virtual void BeginJob(const PrintJob& job) = 0;
    /// A page, from 1. False when the job was cancelled.
    virtual bool BeginPage(int page) = 0;
    virtual void EndJob() = 0;
};

}  // namespace velda
