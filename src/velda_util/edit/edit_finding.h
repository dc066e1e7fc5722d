#pragma once

#include <string>

#include "velda_util/cells/cell_id.h"

namespace velda {

/// Which rule a text or a row breaks.
enum class EditRule {
    Field,             ///< the text is not valid in its column
    Missing,           ///< a mandatory column has no text
    Record,            ///< the row as a whole is not valid
    Write,             ///< the database refused the row
    ChangedElsewhere,  ///< another window changed what the user is editing
    DeletedElsewhere,  ///< another window deleted what the user is editing
};

/// Something that the user has to know about what he entered.
struct EditFinding {
    RowId row = kNoRow;
    /// kNoColumn when the finding concerns the whole row.
    ColumnId column = kNoColumn;
    EditRule rule = EditRule::Field;
    /// The text that was entered.
    std::string text;
    /// What to tell the user, in his language.
    std::string message;

    bool operator==(const EditFinding&) const = default;
};

}  // namespace velda
