#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_script/command.h"
#include "zt_script/record_text.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

/// A record class and a key as a script names them.
struct Target {
    std::uint16_t classIndex = 0;
    std::uint32_t key = 0;
};

bool ReadKey(const std::string& text, std::uint32_t& key) {
    std::int64_t value = 0;
    if (!velda::ReadWholeLong(text, value) || !std::in_range<std::uint32_t>(value)) return false;
    key = static_cast<std::uint32_t>(value);
    return true;
}

bool ReadClass(ScriptSession& session, const ScriptWord& word, std::uint16_t& classIndex) {
    const int index = session.Database().FindClass(word.value);
    if (index < 0) return false;
    classIndex = static_cast<std::uint16_t>(index);
    return true;
}

/// Reads "CLASS KEY"; the error text is empty when both are right.
std::string ReadTarget(ScriptSession& session, ScriptWords words, Target& target) {
    if (words.size() < 2) return "a record class and a key are needed";
    if (!ReadClass(session, words[0], target.classIndex)) return "unknown record class " + words[0].value;
    if (!ReadKey(words[1].value, target.key)) return words[1].value + " is no key";
    return {};
}

std::unique_ptr<ImageList> CopyOf(ScriptSession& session, const Target& target) {
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    if (!store.Exists(target.key)) return nullptr;
    std::unique_ptr<ImageList> images = store.NewImages();
    images->ToCurrent(store.CopyTo(target.key, *images), session.Units());
    return images;
}

CommandResult ResultOf(ScriptSession& session, int done) {
    return done ? CommandResult::Done() : CommandResult::Refused(session.Database().GetLastReason());
}

CommandResult NoSuchRecord(ScriptSession& session, const Target& target) {
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    return CommandResult::Refused(
        velda::FormatText("IDS_DB_REASON_KEY_MISSING", {store.DisplayName(), velda::FormatLong(target.key)}));
}

CommandResult AddRecord(ScriptSession& session, ScriptWords words) {
    Target target;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    std::unique_ptr<ImageList> images = store.NewImages();
    const std::uint32_t image = images->AppendDefault();
    images->ToCurrent(image, session.Units());
    if (std::string error = ApplyFields(store, words.subspan(2), *images, image); !error.empty()) {
        return CommandResult::Unreadable(error);
    }
    return ResultOf(session, session.Database().Add(target.classIndex, {target.key}, std::move(images)));
}

CommandResult ModifyRecord(ScriptSession& session, ScriptWords words) {
    Target target;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    std::unique_ptr<ImageList> images = CopyOf(session, target);
    if (!images) return NoSuchRecord(session, target);
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    if (std::string error = ApplyFields(store, words.subspan(2), *images, 0); !error.empty()) {
        return CommandResult::Unreadable(error);
    }
    return ResultOf(session,
                    session.Database().Modify(target.classIndex, {target.key}, {target.key}, std::move(images)));
}

CommandResult RekeyRecord(ScriptSession& session, ScriptWords words) {
    Target target;
    std::uint32_t newKey = 0;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    if (words.size() != 3 || !ReadKey(words[2].value, newKey)) return CommandResult::Unreadable("a new key is needed");
    std::unique_ptr<ImageList> images = CopyOf(session, target);
    if (!images) return NoSuchRecord(session, target);
    return ResultOf(session, session.Database().Modify(target.classIndex, {target.key}, {newKey}, std::move(images)));
}

CommandResult DeleteRecords(ScriptSession& session, ScriptWords words) {
    Target target;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    std::vector<std::uint32_t> keys;
    for (const ScriptWord& word : words.subspan(1)) {
        if (!ReadKey(word.value, keys.emplace_back())) return CommandResult::Unreadable(word.value + " is no key");
    }
    return ResultOf(session, session.Database().Delete(target.classIndex, keys));
}

/// record renumber PONT 1=7 2=3: one batch on the user's numbers.
CommandResult RenumberRecords(ScriptSession& session, ScriptWords words) {
    Target target;
    if (words.empty() || !ReadClass(session, words[0], target.classIndex)) {
        return CommandResult::Unreadable("record renumber CLASS OLD=NEW ...");
    }
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    std::unique_ptr<ImageList> images = store.NewImages();
    std::vector<std::uint32_t> keys;
    for (const ScriptWord& word : words.subspan(1)) {
        std::uint32_t oldNumber = 0;
        std::uint32_t newNumber = 0;
        if (!word.assigns || !ReadKey(word.name, oldNumber) || !ReadKey(word.value, newNumber)) {
            return CommandResult::Unreadable("record renumber CLASS OLD=NEW ...");
        }
        const std::uint32_t key = store.KeyOfNumber(oldNumber);
        if (key == 0) return CommandResult::Refused(word.name + " is no number in use");
        keys.push_back(key);
        const std::uint32_t image = store.CopyTo(key, *images);
        images->SetNumber(image, newNumber);
        images->ToCurrent(image, session.Units());
    }
    return ResultOf(session, session.Database().Modify(target.classIndex, keys, keys, std::move(images)));
}

CommandResult ShowRecord(ScriptSession& session, ScriptWords words) {
    Target target;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    const std::unique_ptr<ImageList> images = CopyOf(session, target);
    if (!images) return NoSuchRecord(session, target);
    images->RoundReals(0);
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    session.Output() << store.Identity().mnemonic << ' ' << target.key;
    for (int column = 0; column < static_cast<int>(store.ColumnNames().size()); ++column) {
        session.Output() << ' ' << store.ColumnNames()[static_cast<std::size_t>(column)] << '='
                         << ShownText(store, *images, 0, column);
    }
    session.Output() << '\n';
    return CommandResult::Done();
}

CommandResult ExpectRecord(ScriptSession& session, ScriptWords words) {
    Target target;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    const RecordStoreBase& store = session.Database().StoreAt(target.classIndex);
    const std::string name = words[0].value + " " + words[1].value;
    const std::unique_ptr<ImageList> actual = CopyOf(session, target);
    return CompareFields(store, name, words.subspan(2), actual.get());
}

CommandResult ExpectNoRecord(ScriptSession& session, ScriptWords words) {
    Target target;
    if (std::string error = ReadTarget(session, words, target); !error.empty()) return CommandResult::Unreadable(error);
    const bool exists = session.Database().StoreAt(target.classIndex).Exists(target.key);
    const std::string name = words[0].value + " " + words[1].value;
    return CommandResult::Check(!exists, "no " + name, exists ? name : "no " + name);
}

CommandResult ExpectCount(ScriptSession& session, ScriptWords words) {
    std::uint16_t classIndex = 0;
    if (words.size() != 2 || !ReadClass(session, words[0], classIndex)) {
        return CommandResult::Unreadable("expect count CLASS N");
    }
    return CommandResult::Compare(words[1].value, std::to_string(session.Database().StoreAt(classIndex).Count()));
}

constexpr ScriptCommand kCommands[] = {
    {"record add", &AddRecord, "record add CLASS KEY [field=value ...]"},
    {"record modify", &ModifyRecord, "record modify CLASS KEY field=value ..."},
    {"record rekey", &RekeyRecord, "record rekey CLASS KEY NEWKEY"},
    {"record del", &DeleteRecords, "record del CLASS KEY ..."},
    {"record renumber", &RenumberRecords, "record renumber CLASS OLD=NEW ..."},
    {"record show", &ShowRecord, "record show CLASS KEY"},
    {"expect record", &ExpectRecord, "expect record CLASS KEY [field=value ...]"},
    {"expect no record", &ExpectNoRecord, "expect no record CLASS KEY"},
    {"expect count", &ExpectCount, "expect count CLASS N"},
};

}  // namespace

std::span<const ScriptCommand> RecordCommands() { return kCommands; }

}  // namespace zt
