#include <algorithm>
#include <optional>

#include "velda_lib/number_text.h"
#include "zt_script/command.h"
#include "zt_script/record_text.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

constexpr std::string_view kKinds[kChangeEntryKinds] = {"ADD", "DEL", "MFD", "MFS"};

/// What the change code of an entry stands for.
struct EntryCode {
    std::uint16_t classIndex = 0;
    std::size_t kind = 0;
};

std::optional<EntryCode> CodeOf(const DB_CDataBase& database, std::uint64_t entry) {
    const auto code = static_cast<int>(static_cast<std::uint32_t>(entry));
    for (std::uint16_t i = 0; i < database.ClassCount(); ++i) {
        const auto& codes = database.StoreAt(i).Identity().codes;
        const auto found = std::find(std::begin(codes), std::end(codes), code);
        if (found != std::end(codes)) return EntryCode{i, static_cast<std::size_t>(found - std::begin(codes))};
    }
    return std::nullopt;
}

/// A change code as scripts write it: "THIK MFD".
std::string CodeText(const DB_CDataBase& database, std::uint64_t entry) {
    const auto code = CodeOf(database, entry);
    if (!code) return "unknown code " + std::to_string(static_cast<std::uint32_t>(entry));
    return std::string(database.StoreAt(code->classIndex).Identity().mnemonic) + " " + std::string(kKinds[code->kind]);
}

std::vector<std::uint64_t> Entries(ScriptSession& session) {
    std::vector<std::uint64_t> entries;
    const CViewBuff& buffer = *session.Database().GetViewBuff();
    for (POSITION position = buffer.GetHeadPosition(); position;) entries.push_back(buffer.GetNext(position));
    return entries;
}

/// Takes the record of an entry, whatever its class.
class EntryData final : public DB_CData {
public:
    explicit EntryData(const RecordStoreBase& store) : store_(store), images_(store.NewImages()) {}

    const RecordIdentity& Identity() const override { return store_.Identity(); }
    void ConvertUnitPrev(CUnitCtrl*) override {}
    void Read(std::uint32_t newKey, const ImageList& images, std::uint32_t index, const CUnitCtrl& units) override {
        key = newKey;
        images_->ToCurrent(images_->AppendCopy(images, index), units);
    }
    ImageList& Images() { return *images_; }

private:
    const RecordStoreBase& store_;
    std::unique_ptr<ImageList> images_;
};

CommandResult ExpectChanges(ScriptSession& session, ScriptWords words) {
    std::string expected;
    for (const ScriptWord& word : words) expected += (expected.empty() ? "" : ", ") + word.value;
    std::string found;
    for (const std::uint64_t entry : Entries(session)) {
        found += (found.empty() ? "" : ", ") + CodeText(session.Database(), entry);
    }
    return CommandResult::Compare(expected, found);
}

/// expect change 2 "THIK MFS" 7 name="W200": the second entry, its key and fields of its record.
CommandResult ExpectChange(ScriptSession& session, ScriptWords words) {
    std::int64_t place = 0;
    if (words.size() < 3 || !velda::ReadWholeLong(words[0].value, place) || place < 1) {
        return CommandResult::Unreadable("expect change N \"CLASS KIND\" KEY [field=value ...]");
    }
    const std::string expected = words[1].value + " " + words[2].value;
    const std::vector<std::uint64_t> entries = Entries(session);
    if (std::cmp_greater(place, entries.size())) {
        return CommandResult::Check(false, expected, std::to_string(entries.size()) + " changes");
    }
    const std::uint64_t entry = entries[static_cast<std::size_t>(place - 1)];
    const auto code = CodeOf(session.Database(), entry);
    if (!code) return CommandResult::Check(false, expected, CodeText(session.Database(), entry));
    const RecordStoreBase& store = session.Database().StoreAt(code->classIndex);
    EntryData data(store);
    session.Database().GetViewBuff()->ReadData(entry, data);
    const std::string found = CodeText(session.Database(), entry) + " " + std::to_string(data.key);
    if (expected != found) return CommandResult::Compare(expected, found);
    return CompareFields(store, found, words.subspan(3), &data.Images());
}

constexpr ScriptCommand kCommands[] = {
    {"expect changes", &ExpectChanges, "expect changes \"THIK MFD\" \"THIK MFS\" ..."},
    {"expect change", &ExpectChange, "expect change N \"THIK MFD\" KEY [field=value ...]"},
};

}  // namespace

std::span<const ScriptCommand> ChangeCommands() { return kCommands; }

}  // namespace zt
