#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zt {

/// Reads comma-separated values line by line. A value in double quotes may hold commas and doubled quotes, but no end
/// of line. Empty lines are passed over.
class CsvLines {
public:
    enum class Result { Line, End, OpenQuote };

    explicit CsvLines(std::string_view bytes);

    /// Reads the values of the next line; they last until the next call. After OpenQuote the last of them is the one
    /// whose quotes do not end.
    Result Next(std::vector<std::string_view>& values);
    /// Number of the line that was read last, from 1.
    std::size_t LineNumber() const { return line_; }

private:
    std::string_view TakeLine();
    bool ReadQuoted(std::string_view line, std::size_t& at, std::string_view& value);

    std::string_view rest_;
    /// The values in quotes of this line, without them.
    std::deque<std::string> unquoted_;
    std::size_t line_ = 0;
};

}  // namespace zt
