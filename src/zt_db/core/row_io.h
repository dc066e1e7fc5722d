#pragma once

#include <cstdint>
#include <string_view>

namespace zt {

/// Takes the values of one record, column by column, as a storage keeps them.
class RowWriter {
public:
    virtual ~RowWriter() = default;
    virtual void Integer(int column, std::int64_t value) = 0;
    virtual void Real(int column, double value) = 0;
    virtual void Text(int column, std::string_view value) = 0;
};

/// Gives the values of one stored record. Each operation returns false when the stored value is of another kind.
class RowReader {
public:
    virtual ~RowReader() = default;
    virtual bool Integer(int column, std::int64_t& value) = 0;
    virtual bool Real(int column, double& value) = 0;
    /// The text stays valid until the next call.
    virtual bool Text(int column, std::string_view& value) = 0;
};

/// How a column is stored; a list as its text.
enum class ColumnKind { Integer, Real, Text, List };

}  // namespace zt
