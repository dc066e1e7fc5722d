#pragma once

#include <string>

/// Prints what results of a model are stored and whether they hold. False when the model cannot be opened or there are
/// no results that hold.
bool ResultsInfo(const std::string& model);

/// Imports results from the tables of a folder. False when none could be kept.
bool ImportResultTables(const std::string& model, const std::string& folder);
