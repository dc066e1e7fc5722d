#pragma once

#include <string>
#include <vector>

#include "velda_lib/function_ref.h"
#include "zt_db/core/database.h"

namespace zt {

/// The records of a class that a field chooses among, each by a text that only it has.
class RecordChoice {
public:
    struct Named {
        std::uint32_t key;
        std::string text;
    };

    /// Without a class there is nothing to choose from.
    RecordChoice(const DB_CDataBase& database, const RecordIdentity* identity)
        : database_(&database), identity_(identity) {}

    /// By key.
    std::vector<Named> All() const;
    std::vector<std::string> Texts() const;
    /// Empty for key 0; the key itself where there is no such record.
    std::string TextOf(std::uint32_t key) const;
    /// The key of a text; `before` for one that is not known.
    std::uint32_t KeyOf(const std::string& text, std::uint32_t before) const;
    /// The first record that is not taken, the first of all where each is; 0 without records.
    std::uint32_t FirstFree(velda::FunctionRef<bool(std::uint32_t key)> isTaken) const;

private:
    const DB_CDataBase* database_;
    const RecordIdentity* identity_;
};

}  // namespace zt
