#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "zt_db/exchange/exchange_model.h"

namespace zt {

/// What a table must have. A column that is `Present` may have empty cells, a `Required` one has none. Of a column with
/// a fixed value, others are reported, except where it is `Quiet`; a `Silent` column is not written besides.
enum class Need { Optional, Present, Required, Quiet, Silent };

/// What a column is called and measured in. A "#" in the name stands for a number from 1: the column is repeated.
struct ColumnRule {
    std::string_view name;
    Need need = Need::Optional;
    /// Unit of the values unless the header names another one; empty for texts and plain numbers.
    std::string_view unit{};
    /// Other names under which files have the column, separated by "|".
    std::string_view otherNames{};
};

// Where the values of a column go, apart from plain members.

template <class T>
struct FreedomKindOf {
    SixFreedoms T::*freedoms;
    std::size_t index;
};
template <class T>
struct FreedomNumberOf {
    SixFreedoms T::*freedoms;
    std::size_t index;
    MaybeNumber ExchangeFreedom::*number;
};
template <class T>
struct OneOfSix {
    SixValues T::*values;
    std::size_t index;
};
/// Numbers with a unit in a text: "0.25", or "N3:0.3;N5:0.15" for a number at each of several nodes.
template <class T>
struct MeasuredText {
    std::string T::*text;
};
template <class T>
struct RepeatedNumbers {
    std::vector<MaybeNumber> T::*numbers;
};
template <class T>
struct RepeatedTexts {
    NameList T::*texts;
};
/// A value that the model does not keep: it is written as this text, and other values are reported when they are read.
struct FixedValue {
    std::string_view text{};
    bool isNumber = false;
};

template <class T>
using ColumnTarget = std::variant<std::string T::*, double T::*, MaybeNumber T::*, NameList T::*,
                                  std::vector<double> T::*, FreedomKindOf<T>, FreedomNumberOf<T>, OneOfSix<T>,
                                  MeasuredText<T>, RepeatedNumbers<T>, RepeatedTexts<T>, FixedValue>;

/// A column of a table of structures T.
template <class T>
struct Column {
    ColumnRule rule;
    ColumnTarget<T> target;
};

}  // namespace zt
