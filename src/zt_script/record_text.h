#pragma once

#include <string>

#include "zt_db/core/record_store.h"
#include "zt_script/command.h"

namespace zt {

/// Text of a field as scripts show and compare it: texts in quotes, real numbers in "%.15g" form. Reals in lists show
/// all their digits, unless RoundReals was called before.
std::string ShownText(const RecordStoreBase& store, const ImageList& images, std::uint32_t image, int column);

/// Writes "field=value" words into a record; the error text is empty when all are right.
std::string ApplyFields(const RecordStoreBase& store, ScriptWords words, ImageList& images, std::uint32_t image);

/// The result of comparing the fields that "field=value" words name with those of the first record of `actual`, which
/// is rounded for it; null for a record that does not exist. `name` stands for the record in messages.
CommandResult CompareFields(const RecordStoreBase& store, const std::string& name, ScriptWords fields,
                            ImageList* actual);

}  // namespace zt
