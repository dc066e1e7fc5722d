#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "zt_db/core/record_identity.h"
#include "zt_db/units/unit_codes.h"

namespace zt {

/// What becomes of a record when the record that one of its fields refers to is deleted.
enum class IfGone {
    Cascade,  ///< it cannot exist without it and is deleted too
    Clear,    ///< the field becomes "none"; a list loses the entry
    Refuse,   ///< the deletion is refused while the field refers to it
};

/// A field that holds keys of another record class (0 for none). The class is fixed, or chosen by the content of the
/// object that the field stands in; a choice of null means that the key is not checked.
template <class Owner>
struct Reference {
    const RecordIdentity* target = nullptr;
    const RecordIdentity* (*select)(const Owner&) = nullptr;
    IfGone ifGone = IfGone::Refuse;
    /// Kept beside the addresses: under the sanitizers a comparison of addresses is no constant expression.
    bool isSet = false;
    bool isNeeded = false;  ///< a record cannot do without one: 0 is refused

    constexpr bool IsSet() const { return isSet; }
    const RecordIdentity* TargetOf(const Owner& owner) const { return select ? select(owner) : target; }
};

/// Gives the place of the unit code of one number of a field; `element` is the number's place in an array.
template <class Owner>
using UnitSelector = std::size_t (*)(const Owner& owner, std::size_t element);

/// The unit codes of a field, as they stand in T_XXXX_D::unit: none, one for all numbers of the field, or several of
/// which `select` gives the place of the one that holds. A place beyond the last means that the number has no unit.
template <class Owner>
struct FieldUnits {
    static constexpr std::size_t kMost = 6;
    std::array<int, kMost> codes{};
    std::size_t count = 0;
    UnitSelector<Owner> select = nullptr;

    /// The code of one number of the field.
    constexpr int CodeOf(const Owner& owner, std::size_t element) const {
        if (count < 2) return count == 0 ? Unit::None : codes[0];
        const std::size_t place = select(owner, element);
        return place < count ? codes[place] : Unit::None;
    }
    /// Whether a number of the field can have a unit.
    constexpr bool Convert() const {
        for (std::size_t i = 0; i < count; ++i) {
            if (codes[i] > Unit::None) return true;
        }
        return false;
    }
};

template <class Owner, std::size_t N>
constexpr FieldUnits<Owner> SeveralUnits(const int (&codes)[N], UnitSelector<Owner> select) {
    static_assert(N > 1 && N <= FieldUnits<Owner>::kMost);
    FieldUnits<Owner> units{.count = N, .select = select};
    for (std::size_t i = 0; i < N; ++i) units.codes[i] = codes[i];
    return units;
}

/// One field of a record: its name in files and scripts, where it stands, its unit codes, what it refers to.
template <class Owner, class Member>
struct Field {
    using OwnerType = Owner;
    using MemberType = Member;
    const char* name;
    Member Owner::*member;
    FieldUnits<Owner> units{};
    Reference<Owner> reference{};
    bool isNumber = false;  ///< the number that users see: unique in its class, given by the database when it is 0
};

/// The fields of a nested structure or an array of such, named "<name>_<field>" or "<name><i>_<field>" with i from 1.
template <class Owner, class Member>
struct Group {
    using OwnerType = Owner;
    using MemberType = Member;
    const char* name;
    Member Owner::*member;
};

/// The field list of a record or of a structure in it: specialise with a static constexpr tuple `list`. A record that
/// stands under the key of a record of another class says `using KeyOf = T_XXXX_D;` besides.
template <class R>
struct Fields;

template <class Owner, class Member>
constexpr Field<Owner, Member> Plain(const char* name, Member Owner::*member) {
    return {name, member};
}
template <class Owner, class Member>
constexpr Field<Owner, Member> Measured(const char* name, Member Owner::*member, int unit) {
    return {name, member, {.codes = {unit}, .count = 1}};
}
/// An array of numbers with a unit code each.
template <class Owner, std::size_t N>
constexpr Field<Owner, std::array<double, N>> MeasuredEach(const char* name, std::array<double, N> Owner::*member,
                                                           const int (&units)[N]) {
    return {name, member, SeveralUnits<Owner>(units, [](const Owner&, std::size_t element) { return element; })};
}
/// Numbers whose unit depends on the content of the record: `select` gives the place of its code in `units`.
template <class Owner, class Member, std::size_t N>
constexpr Field<Owner, Member> MeasuredBy(const char* name, Member Owner::*member, const int (&units)[N],
                                          std::type_identity_t<UnitSelector<Owner>> select) {
    return {name, member, SeveralUnits<Owner>(units, select)};
}
/// The user's number of a record.
template <class Owner>
constexpr Field<Owner, std::uint32_t> Number(const char* name, std::uint32_t Owner::*member) {
    return {name, member, {}, {}, true};
}
/// A key, or a list of keys, of records of type Target.
template <class Target, class Owner, class Member>
constexpr Field<Owner, Member> Refers(const char* name, Member Owner::*member, IfGone ifGone) {
    return {name, member, {}, {&IdentityOf<Target>::value, nullptr, ifGone, true}};
}
/// A key that must not be 0.
template <class Target, class Owner>
constexpr Field<Owner, std::uint32_t> Needs(const char* name, std::uint32_t Owner::*member, IfGone ifGone) {
    return {name, member, {}, {&IdentityOf<Target>::value, nullptr, ifGone, true, true}};
}
/// A key, or a list of keys, of records of a class that depends on the owner's content.
template <class Owner, class Member>
constexpr Field<Owner, Member> RefersBy(const char* name, Member Owner::*member,
                                        const RecordIdentity* (*select)(const Owner&), IfGone ifGone) {
    return {name, member, {}, {nullptr, select, ifGone, true}};
}
template <class Owner, class Member>
constexpr Group<Owner, Member> Grouped(const char* name, Member Owner::*member) {
    return {name, member};
}

// ---- kinds of values ----

template <class T>
concept HasFields = requires {
    Fields<std::remove_cvref_t<T>>::list;
};

template <class T>
struct IsStdArray : std::false_type {};
template <class T, std::size_t N>
struct IsStdArray<std::array<T, N>> : std::true_type {};

template <class T>
struct IsStdVector : std::false_type {};
template <class T>
struct IsStdVector<std::vector<T>> : std::true_type {};

template <class T>
concept ScalarValue = std::is_same_v<T, int> || std::is_same_v<T, std::uint32_t> || std::is_same_v<T, double> ||
    std::is_same_v<T, std::string>;
/// Lists are vectors and arrays of scalars, and vectors of structures that have a field list.
template <class T>
concept ListValue = IsStdVector<T>::value ||(IsStdArray<T>::value && !HasFields<typename T::value_type>);

template <class T>
inline constexpr bool kIsGroup = false;
template <class Owner, class Member>
inline constexpr bool kIsGroup<Group<Owner, Member>> = true;

// ---- walks ----

/// Calls `visit(field, owner)` for every field of a record, in order, with groups opened. `R` may be const.
/// Field is passed as a std::integral_constant-like type with a static constexpr `value`.
template <class R, class Visit>
constexpr void VisitFields(R& record, Visit&& visit);

template <class Owner, std::size_t I>
struct FieldAt {
    static constexpr const auto& value = std::get<I>(Fields<Owner>::list);
};

template <class FieldTag, class Owner, class Visit>
constexpr void VisitOneField(Owner& owner, Visit& visit) {
    constexpr const auto& field = FieldTag::value;
    using FieldType = std::remove_cvref_t<decltype(field)>;
    if constexpr (kIsGroup<FieldType>) {
        auto& nested = owner.*(field.member);
        if constexpr (IsStdArray<typename FieldType::MemberType>::value) {
            for (auto& element : nested) VisitFields(element, visit);
        } else {
            VisitFields(nested, visit);
        }
    } else {
        visit(FieldTag{}, owner);
    }
}

template <class R, class Visit>
constexpr void VisitFields(R& record, Visit&& visit) {
    using Owner = std::remove_cv_t<R>;
    [&]<std::size_t... I>(std::index_sequence<I...>) { (VisitOneField<FieldAt<Owner, I>>(record, visit), ...); }
    (std::make_index_sequence<std::tuple_size_v<std::remove_cvref_t<decltype(Fields<Owner>::list)>>>{});
}

/// Calls `visit(FieldTag, owner, scalar)` for every scalar of a record, those in lists included.
template <class R, class Visit>
constexpr void VisitScalars(R& record, Visit&& visit) {
    VisitFields(record, [&visit](auto tag, auto& owner) {
        auto& value = owner.*(decltype(tag)::value.member);
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (ScalarValue<Value>) {
            visit(tag, owner, value);
        } else if constexpr (HasFields<typename Value::value_type>) {
            for (auto& element : value) VisitScalars(element, visit);
        } else {
            for (auto& element : value) visit(tag, owner, element);
        }
    });
}

/// The name of each column of a record in files and scripts, with groups opened, in the order of VisitFields.
template <class R>
void AppendColumnNames(const std::string& prefix, std::vector<std::string>& names) {
    const auto add = [&](const auto& field) {
        using FieldType = std::remove_cvref_t<decltype(field)>;
        using Member = typename FieldType::MemberType;
        if constexpr (!kIsGroup<FieldType>) {
            names.push_back(prefix + field.name);
        } else if constexpr (IsStdArray<Member>::value) {
            for (std::size_t i = 1; i <= std::tuple_size_v<Member>; ++i) {
                AppendColumnNames<typename Member::value_type>(prefix + field.name + std::to_string(i) + "_", names);
            }
        } else {
            AppendColumnNames<Member>(prefix + field.name + "_", names);
        }
    };
    std::apply([&](const auto&... field) { (add(field), ...); }, Fields<R>::list);
}

// ---- unit codes ----

/// Unit codes of the fields of one structure that carry one, in field order; the form of T_XXXX_D::unit.
template <class R>
class UnitCodesOf {
public:
    constexpr int operator[](std::size_t i) const { return codes_.at(i); }
    constexpr std::size_t Count() const { return codes_.size(); }

private:
    static constexpr std::size_t CountMeasured() {
        return std::apply([](const auto&... field) { return (std::size_t{0} + ... + CountOf(field)); },
                          Fields<R>::list);
    }
    static constexpr std::size_t CountOf(const auto& field) {
        if constexpr (kIsGroup<std::remove_cvref_t<decltype(field)>>) {
            return 0;
        } else {
            return field.units.count;
        }
    }
    static constexpr auto Collect() {
        std::array<int, CountMeasured()> codes{};
        std::size_t at = 0;
        const auto take = [&](const auto& field) {
            if constexpr (!kIsGroup<std::remove_cvref_t<decltype(field)>>) {
                for (std::size_t i = 0; i < field.units.count; ++i) codes[at++] = field.units.codes[i];
            }
        };
        std::apply([&](const auto&... field) { (take(field), ...); }, Fields<R>::list);
        return codes;
    }

    std::array<int, CountMeasured()> codes_ = Collect();
};

/// Whether `test(field)` holds for a field of a structure or of the structures in it.
template <class R, class Test>
constexpr bool AnyField(Test test) {
    const auto holds = [test](const auto& field) {
        using FieldType = std::remove_cvref_t<decltype(field)>;
        using Member = typename FieldType::MemberType;
        if constexpr (HasFields<Member>) {
            return AnyField<Member>(test);
        } else if constexpr (!ScalarValue<Member>) {
            using Element = typename Member::value_type;
            if constexpr (HasFields<Element>) {
                return AnyField<Element>(test);
            } else {
                return test(field);
            }
        } else {
            return test(field);
        }
    };
    return std::apply([holds](const auto&... field) { return (false || ... || holds(field)); }, Fields<R>::list);
}

/// Whether a record type has a number that users see.
template <class R>
constexpr bool HasNumber() {
    return AnyField<R>([](const auto& field) { return field.isNumber; });
}

/// Whether the records of a type have names.
template <class R>
concept HasName = requires(const R& record) {
    { record.name } -> std::convertible_to<const std::string&>;
};

/// Whether the records of a type stand under the keys of records of another class.
template <class R>
inline constexpr bool kHasForeignKey = requires {
    typename Fields<R>::KeyOf;
};

/// The class whose keys the records of a type stand under; null when they have keys of their own.
template <class R>
const RecordIdentity* KeyClass() {
    if constexpr (kHasForeignKey<R>) {
        return &IdentityOf<typename Fields<R>::KeyOf>::value;
    } else {
        return nullptr;
    }
}

/// Whether a record type holds keys of other records, its own key included.
template <class R>
constexpr bool RefersToOthers() {
    return kHasForeignKey<R> || AnyField<R>([](const auto& field) { return field.reference.IsSet(); });
}

}  // namespace zt
