#include "zt_cmd/time_history_dialogs.h"

#include "velda_lib/key_text.h"
#include "zt_cmd/function_points.h"
#include "zt_cmd/ground_direction.h"

namespace zt {

using velda::KeyText;

namespace {

const FunctionPoints<T_THFC_D, &T_THFC_D::points, &T_THFC_POINT::time, &T_THFC_POINT::value> kPoints{
    "IDS_CMD_THFC_TIME", "IDS_CMD_THFC_VALUE"};

/// What an item drives, as a text: the ground in a direction, or the loads of a static load case.
std::string DrivenText(const RecordChoice& cases, const T_THLC_ITEM& item) {
    if (item.stld == 0) return TextOf(kGroundDirections, item.direction);
    return velda::FormatText("IDS_CMD_THLC_LOADS", {cases.TextOf(item.stld)});
}

std::vector<std::string> DrivenTexts(const RecordChoice& cases, const T_THLC_ITEM& item) {
    std::vector<std::string> texts = TextsWith(kGroundDirections, item.direction);
    for (const RecordChoice::Named& one : cases.All()) texts.push_back(DrivenText(cases, {.stld = one.key}));
    return texts;
}

void ReadDriven(const RecordChoice& cases, const std::string& text, T_THLC_ITEM& item) {
    for (const RecordChoice::Named& one : cases.All()) {
        if (DrivenText(cases, {.stld = one.key}) != text) continue;
        item.stld = one.key;
        return;
    }
    for (const std::string& ground : TextsWith(kGroundDirections, item.direction)) {
        if (ground != text) continue;
        item.stld = 0;
        item.direction = NumberOf(kGroundDirections, text, item.direction);
        return;
    }
}

bool HasAngle(const T_THLC_ITEM& item) { return item.stld == 0 && item.direction == GroundDirection::Horizontal; }

}  // namespace

std::string TimeFunctionDialog::GetTitle() const { return KeyText("IDS_CMD_THFC_TITLE"); }
std::string TimeHistoryCaseDialog::GetTitle() const { return KeyText("IDS_CMD_THLC_TITLE"); }

std::vector<TimeFunctionDialog::Field> TimeFunctionDialog::Declared() const {
    return {
        TextField<T_THFC_D, &T_THFC_D::name>("IDS_CMD_NAME"),
        TextField<T_THFC_D, &T_THFC_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::vector<TimeFunctionDialog::List> TimeFunctionDialog::DeclaredLists() const { return {kPoints.List()}; }

velda::Outcome TimeFunctionDialog::CheckRecord() const { return kPoints.Check(Edited()); }

std::vector<TimeHistoryCaseDialog::Field> TimeHistoryCaseDialog::Declared() const {
    return {
        TextField<T_THLC_D, &T_THLC_D::name>("IDS_CMD_NAME"),
        NumberField<T_THLC_D, &T_THLC_D::damping>("IDS_CMD_MATL_DAMPING", Unit::None, kFromZeroToOne),
        NumberField<T_THLC_D, &T_THLC_D::step>("IDS_CMD_THLC_STEP", Unit::Time, kAboveZero),
        NumberField<T_THLC_D, &T_THLC_D::duration>("IDS_CMD_THLC_DURATION", Unit::Time, kAboveZero),
        TextField<T_THLC_D, &T_THLC_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::vector<TimeHistoryCaseDialog::List> TimeHistoryCaseDialog::DeclaredLists() const {
    const RecordChoice functions(Database(), &IdentityOf<T_THFC_D>::value);
    const auto make = [functions](const T_THLC_D&) {
        return T_THLC_ITEM{.thfc = functions.FirstFree([](std::uint32_t) { return false; })};
    };
    return {ListAt<T_THLC_D>(
        {}, [](auto& record) -> auto& { return record.items; }, make, [this](std::size_t row) { return Cells(row); })};
}

std::vector<TimeHistoryCaseDialog::Field> TimeHistoryCaseDialog::Cells(std::size_t row) const {
    const RecordChoice functions(Database(), &IdentityOf<T_THFC_D>::value);
    const RecordChoice cases(Database(), &IdentityOf<T_STLD_D>::value);
    Field angle = NumberAt<T_THLC_D>(
        "IDS_CMD_GROUND_ANGLE", Unit::Angle, [row](auto& record) -> auto& { return record.items[row].angle; });
    angle.isEnabled = [row](const T_THLC_D& record) { return HasAngle(record.items[row]); };
    return {
        RecordAt<T_THLC_D>(
            "IDS_CMD_THLC_FUNCTION", functions, [row](auto& record) -> auto& { return record.items[row].thfc; }),
        {"IDS_CMD_THLC_DRIVES", PropertyField::Kind::Choice, Unit::None,
         [row, cases](const T_THLC_D& record) { return DrivenText(cases, record.items[row]); },
         [row, cases](T_THLC_D& record, const std::string& text) { ReadDriven(cases, text, record.items[row]); },
         [row, cases](const T_THLC_D& record) { return DrivenTexts(cases, record.items[row]); }},
        angle,
        NumberAt<T_THLC_D>(
            "IDS_CMD_GROUND_SCALE", Unit::None, [row](auto& record) -> auto& { return record.items[row].scale; }),
        NumberAt<T_THLC_D>(
            "IDS_CMD_THLC_ARRIVAL", Unit::Time, [row](auto& record) -> auto& { return record.items[row].arrival; },
            kFromZero),
    };
}

velda::Outcome TimeHistoryCaseDialog::CheckRecord() const {
    const T_THLC_D& record = Edited();
    if (record.duration >= record.step) return velda::Outcome::Done();
    return velda::Outcome::Refused(velda::FormatText(
        "IDS_CMD_THLC_TOO_SHORT", {FieldLabel("IDS_CMD_THLC_DURATION", Unit::Time),
                                   velda::FormatDouble(record.duration), velda::FormatDouble(record.step)}));
}

}  // namespace zt
