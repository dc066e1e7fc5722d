#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "velda_util/result/tb_data_src.h"
#include "zt_tb/post/result_declaration.h"

namespace zt {

/// A class of data sources: its name, the declaration of its table, and how one is made for a tab. The argument is what
/// tells apart the tabs of one class.
struct ResultSourceClass {
    std::string_view name;
    const ResultDeclaration& (*declaration)();
    std::unique_ptr<velda::CTBDataSrc> (*make)(int kind, int argument);
};

/// The classes that exist. Tabs whose class is not among them stay without a source.
std::span<const ResultSourceClass> ResultSourceClasses();
/// Null when there is no such class.
const ResultSourceClass* FindResultSourceClass(std::string_view name);
/// The source of a tab, by the name of its class; null when that does not exist.
std::unique_ptr<velda::CTBDataSrc> MakeResultSource(std::string_view name, int kind, int argument);

}  // namespace zt
