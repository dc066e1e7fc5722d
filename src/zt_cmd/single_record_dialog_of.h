#pragma once

#include "zt_cmd/property_dialog_of.h"

namespace zt {

/// A property dialog of a class that has one record, which cannot be added or deleted. A model that lacks it shows the
/// default values; the first change writes it.
template <class Class>
class SingleRecordDialogOf : public PropertyDialogOf<Class> {
public:
    explicit SingleRecordDialogOf(DB_CDataBase& database) : PropertyDialogOf<Class>(database) { Select(0); }

    bool IsSingle() const override { return true; }
    std::vector<PropertyDialog::Item> Items() const override { return {{Class::Record::kKey, this->GetTitle()}}; }
    void Select(std::uint32_t /*key*/) final {
        PropertyDialogOf<Class>::Select(Class::Record::kKey);
        this->current_ = Class::Record::kKey;
    }

    velda::Outcome Add() override { return OnlyOne(); }
    velda::Outcome Copy() override { return OnlyOne(); }
    velda::Outcome Delete() override { return OnlyOne(); }

private:
    static velda::Outcome OnlyOne() {
        return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_ONLY_ONE", 0));
    }
};

}  // namespace zt
