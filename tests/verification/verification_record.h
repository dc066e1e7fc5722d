#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zt {

/// What we compute of one set of data against what others found. Each comparison is an expectation of the test and a
/// row of a table; the tables of all sets stand in docs/verification.md. Where the environment names a file in
/// ZT_VERIFICATION, Finish writes the table there; otherwise it expects the one of the document to be the same.
class VerificationRecord {
public:
    struct Entry {
        std::string where;
        double ours = 0.0;
        double theirs = 0.0;
    };

    VerificationRecord(std::string set, const std::string& about) : set_(std::move(set)) {
        text_ = Heading() + "\n" + about + "\n\n| quantity | ours | theirs | difference | tolerance |\n" +
                "| --- | --- | --- | --- | --- |\n";
    }

    /// One figure; the tolerance is a share of theirs.
    void Value(const std::string& quantity, double ours, double theirs, double tolerance) {
        const double difference = std::abs(ours - theirs) / std::abs(theirs);
        EXPECT_LE(difference, tolerance) << set_ << ": " << quantity << ": " << ours << " against " << theirs;
        Row(quantity, Text(ours), Text(theirs), DifferenceText(difference), Text(tolerance));
    }
    /// One figure that was told in few digits; the tolerance is in its own unit.
    void Within(const std::string& quantity, double ours, double theirs, double tolerance) {
        const double difference = std::abs(ours - theirs);
        EXPECT_LE(difference, tolerance) << set_ << ": " << quantity << ": " << ours << " against " << theirs;
        Row(quantity, Text(ours), Text(theirs), "within", Text(tolerance) + " absolute");
    }
    /// Many figures of one kind; the tolerance is a share of the greatest of them.
    void List(const std::string& quantity, const std::vector<Entry>& entries, double tolerance) {
        ASSERT_FALSE(entries.empty()) << quantity;
        double greatest = 0.0;
        double most = 0.0;
        for (const Entry& entry : entries) {
            greatest = std::max(greatest, std::abs(entry.theirs));
            most = std::max(most, std::abs(entry.ours - entry.theirs));
        }
        // Where structures are symmetric several entries differ as much; the first of them is told.
        constexpr double kAsMuch = 0.999;
        const auto at = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
            return std::abs(entry.ours - entry.theirs) >= kAsMuch * most;
        });
        const double difference = greatest > 0.0 ? most / greatest : most;
        EXPECT_LE(difference, tolerance) << set_ << ": " << quantity << " at " << at->where << ": " << at->ours
                                         << " against " << at->theirs;
        const std::string where = difference < kTold ? "" : " at " + at->where;
        Row(quantity, std::to_string(entries.size()) + " values", "greatest " + Text(greatest),
            DifferenceText(difference) + where, Text(tolerance) + " of the greatest");
    }

    /// Writes the table, or compares it with that of the document.
    void Finish() const {
        if (const char* file = std::getenv("ZT_VERIFICATION")) {
            const std::string document = Read(file);
            const auto [from, to] = PlaceIn(document);
            std::ofstream(file) << document.substr(0, from) << text_ << '\n' << document.substr(to);
            return;
        }
        const std::string document = Read(std::filesystem::path(ZT_SOURCE_DIR) / "docs/verification.md");
        const auto [from, to] = PlaceIn(document);
        EXPECT_EQ(document.substr(from, to - from), text_ + '\n') << "run tools/verification";
    }

private:
    /// Differences below this are told by their class, since rounding differs from build to build.
    static constexpr double kTold = 1.0e-6;

    std::string Heading() const { return "## " + set_ + "\n"; }
    void Row(const std::string& quantity, const std::string& ours, const std::string& theirs,
             const std::string& difference, const std::string& tolerance) {
        text_ += "| " + quantity + " | " + ours + " | " + theirs + " | " + difference + " | " + tolerance + " |\n";
    }
    static std::string Printed(const char* format, double value) {
        char text[32];
        std::snprintf(text, sizeof text, format, value);
        return text;
    }
    static std::string Text(double value) { return Printed("%.5g", value); }
    static std::string DifferenceText(double difference) {
        if (difference >= kTold) return Printed("%.1e", difference);
        return difference < 1.0e-8 ? "< 1e-8" : "< 1e-6";
    }
    static std::string Read(const std::filesystem::path& path) {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }
    /// Where the table of the set stands in a document, or its end.
    std::pair<std::size_t, std::size_t> PlaceIn(const std::string& document) const {
        const std::size_t from = std::min(document.find(Heading()), document.size());
        const std::size_t to = from < document.size() ? document.find("\n## ", from) : std::string::npos;
        return {from, to == std::string::npos ? document.size() : to + 1};
    }

    std::string set_;
    std::string text_;
};

}  // namespace zt
