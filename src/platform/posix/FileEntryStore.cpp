#include "platform/FileEntryStore.h"

#include <algorithm>
#include <cstdlib>

#include <SimpleIni.h>
#include <fmt/format.h>

#include "platform/Files.h"
#include "platform/LockFile.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr uint64_t longestStore = 16 << 20;  // bytes; a larger file isn't ours

/// An ini line can't hold a line break, and blanks at its ends are lost.
std::string Escaped(std::string_view utf8) {
    std::string escaped;
    for (size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const bool atEnd = i == 0 || i + 1 == utf8.size();
        switch (c) {
            case '\\':
                escaped += "\\\\";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\r':
                escaped += "\\r";
                break;
            case '\t':
                escaped += "\\t";
                break;
            case '\0':
                escaped += "\\0";
                break;
            case ' ':
                escaped += atEnd ? "\\s" : " ";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string Unescaped(std::string_view escaped) {
    std::string utf8;
    for (size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '\\' || i + 1 == escaped.size()) {
            utf8 += escaped[i];
            continue;
        }
        switch (const char c = escaped[++i]) {
            case 'n':
                utf8 += '\n';
                break;
            case 'r':
                utf8 += '\r';
                break;
            case 't':
                utf8 += '\t';
                break;
            case 's':
                utf8 += ' ';
                break;
            case '0':
                utf8 += '\0';
                break;
            default:
                utf8 += c;
        }
    }
    return utf8;
}

}  // namespace

/// The parsed file, and by what it was known to be unchanged.
class FileEntryStore::Document {
public:
    CSimpleIniCaseA ini{/*utf8=*/true};
    std::filesystem::file_time_type time;
    uint64_t size = 0;
};

FileEntryStore::FileEntryStore(std::filesystem::path path) : path_(std::move(path)) {}
FileEntryStore::~FileEntryStore() = default;

Outcome FileEntryStore::Refresh() const {
    std::error_code missing;
    const auto time = std::filesystem::last_write_time(path_, missing);
    if (missing == std::errc::no_such_file_or_directory) {
        document_ = std::make_unique<Document>();
        return std::monostate{};
    }
    std::error_code ignored;
    const uint64_t size = std::filesystem::file_size(path_, ignored);
    if (document_ && document_->time == time && document_->size == size) return std::monostate{};

    const auto content = ReadFile(path_, longestStore);
    if (!content) return content.Failure();
    auto document = std::make_unique<Document>();
    if (document->ini.LoadData(content->data(), content->size()) < 0) {
        return SystemFailure{0, fmt::format("cannot understand {}", path_.string())};
    }
    document->time = time;
    document->size = size;
    document_ = std::move(document);
    return std::monostate{};
}

template <typename Change>
Outcome FileEntryStore::ChangeDocument(Change change) {
    const std::lock_guard guard(mutex_);
    std::filesystem::path lockPath = path_;
    lockPath += ".lock";
    const auto lock = LockFile::Take(lockPath, Milliseconds(2000));
    if (!lock) return SystemFailure{0, fmt::format("cannot lock {}", path_.string())};
    document_.reset();
    if (const Outcome outcome = Refresh(); !outcome) return outcome;
    change(document_->ini);
    std::string content;
    document_->ini.Save(content);
    const Outcome outcome = WriteFileAtomically(path_, content);
    document_.reset();
    return outcome;
}

std::optional<std::u16string> FileEntryStore::GetText(const std::string& section,
                                                      const std::string& entry) const {
    const std::lock_guard guard(mutex_);
    if (!Refresh()) return std::nullopt;
    const char* value = document_->ini.GetValue(section.c_str(), entry.c_str());
    if (value == nullptr) return std::nullopt;
    std::u16string text = Utf8ToText(Unescaped(value));
    if (text == u"Empty") return std::nullopt;
    return text;
}

Outcome FileEntryStore::SetText(const std::string& section, const std::string& entry,
                                std::u16string_view text) {
    const std::string value = Escaped(TextToUtf8(text));
    return ChangeDocument(
        [&](CSimpleIniCaseA& ini) { ini.SetValue(section.c_str(), entry.c_str(), value.c_str()); });
}

Outcome FileEntryStore::Remove(const std::string& section, const std::string& entry) {
    return ChangeDocument([&](CSimpleIniCaseA& ini) { ini.Delete(section.c_str(), entry.c_str(), true); });
}

std::vector<std::string> FileEntryStore::Entries(const std::string& section) const {
    const std::lock_guard guard(mutex_);
    std::vector<std::string> names;
    if (!Refresh()) return names;
    CSimpleIniCaseA::TNamesDepend keys;
    document_->ini.GetAllKeys(section.c_str(), keys);
    for (const auto& key : keys)
        names.emplace_back(key.pItem);
    std::sort(names.begin(), names.end());
    return names;
}

std::unique_ptr<EntryStore> OpenUserStore() {
    return std::make_unique<FileEntryStore>(ConfigurationFolder() / "Corvanta" / "Tarnbridge.conf");
}

}  // namespace tarnbridge
