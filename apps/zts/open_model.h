#pragma once

#include <memory>
#include <string>

#include "zt_db/doc/doc.h"

/// Opens a model file, for reading unless told otherwise, and tells on the error output what is wrong with it. Null
/// when it cannot be opened.
std::unique_ptr<zt::CDBDoc> OpenModel(const std::string& path, zt::OpenMode mode = zt::OpenMode::ReadOnly);
