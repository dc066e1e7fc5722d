#include "velda_util/pref/preference_file.h"

#include <utility>

#include "velda_lib/msg_dll.h"
#include "velda_util/pref/config_folder.h"
#include "velda_util/pref/whole_file.h"

namespace velda {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "tables.conf";
// Far above what all tables together need. A longer file is read as one that is cut, and so as damaged.
constexpr std::size_t kMaxBytes = 16u << 20;

/// The first free name for a damaged file.
fs::path AsidePath(const fs::path& path) {
    const std::string plain = path.string() + ".damaged";
    std::string aside = plain;
    std::error_code error;
    for (int number = 2; fs::exists(fs::symlink_status(aside, error)); ++number) {
        aside = plain + '.' + std::to_string(number);
    }
    return aside;
}

}  // namespace

PreferenceFile::PreferenceFile(const fs::path& path) {
    // The file stays the same one when the working folder changes.
    std::error_code error;
    if (!path.empty()) path_ = fs::absolute(path, error);
}

fs::path PreferenceFile::DefaultPath() {
    const fs::path folder = ConfigFolder();
    return folder.empty() ? folder : folder / kFileName;
}

void PreferenceFile::Load() {
    text_ = {};
    if (path_.empty()) return;
    const FolderLock lock(path_.parent_path());
    if (const Outcome outcome = Refresh(); !outcome) message_ = outcome.Reason();
}

Outcome PreferenceFile::WriteTable(std::string_view name, const TablePreferences& preferences) {
    if (path_.empty()) return Outcome::Refused(FormatText("IDS_TB_ENGINE_PREF_NO_FOLDER", {}));
    std::error_code error;
    fs::create_directories(path_.parent_path(), error);
    if (error) return Refusal("IDS_TB_ENGINE_PREF_CANNOT_WRITE", error.message());
    const FolderLock lock(path_.parent_path());
    if (Outcome outcome = Refresh(); !outcome) return outcome;

    PreferenceText text = text_;
    text.SetTable(name, preferences);
    std::string bytes = text.Bytes();
    if (bytes != onDisk_) error = ReplaceWholeFile(path_, bytes);
    if (error) return Refusal("IDS_TB_ENGINE_PREF_CANNOT_WRITE", error.message());
    text_ = std::move(text);
    onDisk_ = std::move(bytes);
    return Outcome::Done();
}

std::string PreferenceFile::TakeMessage() { return std::exchange(message_, {}); }

// Refused when the file must be left as it is. Of a file that was damaged while the program ran, what was known before
// stays in memory, so that the next writing restores it; of a file that somebody removed nothing stays.
Outcome PreferenceFile::Refresh() {
    std::string bytes;
    onDisk_.clear();
    const std::error_code error = ReadWholeFile(path_, kMaxBytes, bytes);
    if (error == std::errc::no_such_file_or_directory) {
        text_ = {};
        return Outcome::Done();
    }
    if (error) return Refusal("IDS_TB_ENGINE_PREF_CANNOT_READ", error.message());
    switch (text_.Read(bytes)) {
        case PreferenceText::Fault::Newer: return Refusal("IDS_TB_ENGINE_PREF_NEWER", {});
        case PreferenceText::Fault::Damaged: return SetAside();
        case PreferenceText::Fault::None: break;
    }
    onDisk_ = std::move(bytes);
    return Outcome::Done();
}

Outcome PreferenceFile::SetAside() {
    const fs::path aside = AsidePath(path_);
    std::error_code error;
    fs::rename(path_, aside, error);
    if (error) return Refusal("IDS_TB_ENGINE_PREF_DAMAGED_LEFT", error.message());
    message_ = FormatText("IDS_TB_ENGINE_PREF_DAMAGED", {path_.string(), aside.string()});
    return Outcome::Done();
}

Outcome PreferenceFile::Refusal(const char* key, const std::string& detail) const {
    return Outcome::Refused(FormatText(key, {path_.string(), detail}));
}

}  // namespace velda
