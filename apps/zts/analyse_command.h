#pragma once

#include <string>

/// Analyses a model file: prints the log of the analysis, then the largest displacement of each load case, its
/// reactions, and the modes. False, and the reason is told, when the model cannot be analysed.
bool AnalyseModel(const std::string& path);
