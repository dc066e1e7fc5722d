#pragma once

#include <filesystem>
#include <string_view>

#include "zt_db/doc/doc.h"
#include "zt_db/post/result_source.h"

namespace zt {

/// Reads results from a text, as docs/scripting.md tells its lines, and hands them to a sink that has a head already.
/// Nodes, supports and members that the text does not list are those of the model. Refused with the number of the line
/// and the word when a line cannot be read; the sink has taken nothing then.
velda::Outcome ReadResultSeed(std::string_view text, CDataBase& model, ResultSink& sink);

/// Makes the results of a text file the current results of a document, as one step, without an analysis.
velda::Outcome SeedResults(CDBDoc& doc, const std::filesystem::path& file);

}  // namespace zt
