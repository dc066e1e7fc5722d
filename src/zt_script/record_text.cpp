#include "zt_script/record_text.h"

#include <algorithm>

#include "velda_lib/number_text.h"

namespace zt {
namespace {

int FindColumn(const RecordStoreBase& store, const std::string& name) {
    const auto& names = store.ColumnNames();
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

}  // namespace

std::string ShownText(const RecordStoreBase& store, const ImageList& images, std::uint32_t image, int column) {
    std::string text = images.FieldText(image, column);
    switch (store.ColumnKinds()[static_cast<std::size_t>(column)]) {
        case ColumnKind::Real: return velda::FormatDouble(velda::wtof(text));
        case ColumnKind::Integer:
        case ColumnKind::List: return text;
        case ColumnKind::Text: break;
    }
    std::string quoted;
    AppendQuoted(quoted, text);
    return quoted;
}

std::string ApplyFields(const RecordStoreBase& store, ScriptWords words, ImageList& images, std::uint32_t image) {
    for (const ScriptWord& word : words) {
        if (!word.assigns) return "field=value is needed instead of " + word.value;
        const int column = FindColumn(store, word.name);
        if (column < 0) return std::string(store.Identity().mnemonic) + " has no field " + word.name;
        if (!images.SetFieldText(image, column, word.value)) return word.name + " cannot be \"" + word.value + "\"";
    }
    return {};
}

CommandResult CompareFields(const RecordStoreBase& store, const std::string& name, ScriptWords fields,
                            ImageList* actual) {
    const std::unique_ptr<ImageList> wanted = store.NewImages();
    const std::uint32_t image = wanted->AppendDefault();
    if (std::string error = ApplyFields(store, fields, *wanted, image); !error.empty()) {
        return CommandResult::Unreadable(error);
    }
    std::string expected = name;
    if (actual) actual->RoundReals(0);
    wanted->RoundReals(image);
    std::string found = actual ? name : "no such record";
    for (const ScriptWord& word : fields) {
        const int column = FindColumn(store, word.name);
        expected += " " + word.name + "=" + ShownText(store, *wanted, image, column);
        if (actual) found += " " + word.name + "=" + ShownText(store, *actual, 0, column);
    }
    return CommandResult::Compare(expected, found);
}

}  // namespace zt
