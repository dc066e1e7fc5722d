#pragma once

#include <memory>
#include <string_view>

#include "velda_util/result/tb_data_src.h"

namespace zt {

/// Whether the class of a result table exists. Tabs whose class does not stay without a source.
bool HasResultSource(std::string_view className);
/// The source of a tab, made by the registered factory of its class; null when there is no such class. The argument is
/// what tells apart the tabs of one class.
std::unique_ptr<velda::CTBDataSrc> MakeResultSource(std::string_view className, int kind, int argument);

}  // namespace zt
