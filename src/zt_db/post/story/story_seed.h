#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "velda_lib/word_line.h"
#include "zt_db/post/story/story_records.h"
#include "zt_db/units/unit_ctrl.h"

namespace zt {

/// How the records of a story service are read from "field=value" words.
struct StoryForm {
    std::string_view service;
    std::size_t columns;  ///< numbers of a record
    /// Appends the numbers of a record: what `head` and the fields tell, and initial values. Fields are in `units`, or
    /// in SI units where that is null; numbers come in SI units. Gives the place of a word that is no field or no value
    /// of it; nothing is appended then.
    std::optional<std::size_t> (*append)(const T_STHEAD_D& head, std::span<const velda::LineWord> fields,
                                         const CUnitCtrl* units, std::vector<double>& numbers);
};

/// The form of a story service; null for a name that is none. That of a pushover step has the step behind its name,
/// "DFT4PV/3".
const StoryForm* FindStoryForm(std::string_view service);

}  // namespace zt
