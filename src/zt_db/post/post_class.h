#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/post/post_database.h"

namespace zt {

/// A class of the result database: a handle that reads. One that is not connected, or connected to an empty database,
/// sees no records. Records come in the user's current units.
class PostClass {
public:
    PostClass() = default;
    explicit PostClass(const CPostDataBase* database) : database_(database) {}
    void ConnectToDB(const CPostDataBase* database) { database_ = database; }

protected:
    const ResultSource* Results() const { return database_ ? database_->Results() : nullptr; }
    /// A class of the analysed model; null when there is none.
    template <class Class>
    Class* OfModel() const {
        return database_ && database_->Model() ? database_->Model()->template GetClass<Class>() : nullptr;
    }

    const CPostDataBase* database_ = nullptr;
};

/// What all classes have, from two operations of theirs: `Get`, and `Keys`, which gives all keys, ascending.
template <class Derived>
class PostKeysOf : public PostClass {
public:
    using PostClass::PostClass;
    int GetCount() const { return static_cast<int>(Self().Keys().size()); }
    /// All keys, ascending; false when there are none.
    int GetKeyList(std::vector<std::uint32_t>& keys) const {
        keys = Self().Keys();
        return keys.empty() ? 0 : 1;
    }

private:
    const Derived& Self() const { return static_cast<const Derived&>(*this); }
};

/// What classes of load cases have besides: names.
template <class Derived, class R>
class PostNamesOf : public PostKeysOf<Derived> {
public:
    using Record = R;
    using PostKeysOf<Derived>::PostKeysOf;

    /// The name of a case as tables show it; empty when there is no such case.
    std::string GetDisplayName(std::uint32_t key) const {
        R record;
        return static_cast<const Derived&>(*this).Get(key, record) ? record.name : std::string{};
    }
    /// The cases and their names; false when there are none.
    int GetList(std::vector<std::uint32_t>& keys, std::vector<std::string>& names) const {
        const int isAny = this->GetKeyList(keys);
        names.clear();
        for (const std::uint32_t key : keys) names.push_back(GetDisplayName(key));
        return isAny;
    }
};

/// The records of a class of the model, as they were analysed.
template <class Class>
class PostTwinOf : public PostKeysOf<PostTwinOf<Class>> {
public:
    using Record = typename Class::Record;
    using PostKeysOf<PostTwinOf<Class>>::PostKeysOf;

    int Get(std::uint32_t key, Record& record) const {
        const Class* records = this->template OfModel<Class>();
        return records ? records->Get(key, record) : 0;
    }
    int Exist(std::uint32_t key) const {
        const Class* records = this->template OfModel<Class>();
        return records ? records->Exist(key) : 0;
    }
    std::vector<std::uint32_t> Keys() const {
        std::vector<std::uint32_t> keys;
        if (const Class* records = this->template OfModel<Class>()) records->GetKeyList(keys);
        return keys;
    }
};

/// Load cases that are records of the model: where there are results, those that have some.
template <class Class, int Kind>
class PostCaseTwinOf : public PostNamesOf<PostCaseTwinOf<Class, Kind>, typename Class::Record> {
public:
    using Record = typename Class::Record;
    using PostNamesOf<PostCaseTwinOf<Class, Kind>, Record>::PostNamesOf;

    int Get(std::uint32_t key, Record& record) const { return Exist(key) ? Records()->Get(key, record) : 0; }
    int Exist(std::uint32_t key) const {
        const Class* records = Records();
        return records && records->Exist(key) && (!this->Results() || HasResultsOf(*this->Results(), Kind, key)) ? 1
                                                                                                                 : 0;
    }
    std::vector<std::uint32_t> Keys() const {
        std::vector<std::uint32_t> keys;
        if (const Class* records = Records()) records->GetKeyList(keys);
        std::erase_if(keys, [this](std::uint32_t key) { return !Exist(key); });
        return keys;
    }

private:
    const Class* Records() const { return this->template OfModel<Class>(); }
};

/// A load case that only results know.
struct T_PCASE_D {
    std::string name{};
    std::string type{};
    void Initialize() { *this = {}; }
};

/// Load cases of a kind that the model keeps no records of: what the results tell.
template <int Kind>
class PostCaseOf : public PostNamesOf<PostCaseOf<Kind>, T_PCASE_D> {
public:
    using PostNamesOf<PostCaseOf<Kind>, T_PCASE_D>::PostNamesOf;

    int Get(std::uint32_t key, T_PCASE_D& record) const {
        for (const ResultCase& one : Cases()) {
            if (one.kind != Kind || one.key != key) continue;
            record = {one.name, one.type};
            return 1;
        }
        return 0;
    }
    int Exist(std::uint32_t key) const { return this->Results() && HasResultsOf(*this->Results(), Kind, key) ? 1 : 0; }
    /// Whether there is any case.
    int Exist() const { return Keys().empty() ? 0 : 1; }
    std::vector<std::uint32_t> Keys() const {
        std::vector<std::uint32_t> keys;
        for (const ResultCase& one : Cases()) {
            if (one.kind == Kind) keys.push_back(one.key);
        }
        std::sort(keys.begin(), keys.end());
        return keys;
    }

private:
    std::span<const ResultCase> Cases() const {
        return this->Results() ? std::span<const ResultCase>(this->Results()->Cases()) : std::span<const ResultCase>();
    }
};

}  // namespace zt
