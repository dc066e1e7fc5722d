#pragma once

#include <QString>
#include <string>

#include "velda_lib/outcome.h"
#include "zt_db/doc/doc.h"

namespace zt {

/// Prints a table of the property view, named by its mnemonic, into a PDF file. Makes the model the current one.
velda::Outcome WritePdf(CDBDoc& doc, const std::string& table, const QString& path);

}  // namespace zt
