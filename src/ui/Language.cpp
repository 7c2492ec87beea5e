#include "ui/Language.h"

#include "base/Platform.h"

namespace {

// The profile reader gets a 260-character buffer with 259 passed as its size, so it cuts texts at 258.
constexpr std::size_t kTextBufferSize = 259;

// Keys are the id formatted as a signed decimal: ids above 2147483647 name negative keys.
std::wstring KeyOf(uint32_t id) {
    const int64_t signedId = id <= 0x7FFFFFFFu ? int64_t{id} : int64_t{id} - 0x100000000LL;
    return std::to_wstring(signedId);
}

}  // namespace

CLanguage& CLanguage::Instance() {
    static CLanguage table;
    return table;
}

std::wstring& CLanguage::GetText(uint32_t id, std::wstring& out) {
    out.clear();
    std::lock_guard<std::mutex> hold(lock_);
    const auto cached = cache_.find(id);
    if (cached != cache_.end()) {
        out = cached->second;
        return out;
    }
    // Before the host names a file there is nothing to read, and the Windows reader must not go
    // looking for a nameless file in the Windows folder.
    if (path_.empty()) return out;
    out = varcfg::CurrentPlatform().ReadProfileText(path_, L"STRING", KeyOf(id), L"", kTextBufferSize);
    if (!out.empty()) cache_.emplace(id, out);
    return out;
}

std::wstring CLanguage::Text(uint32_t id) {
    std::wstring text;
    GetText(id, text);
    return text;
}

std::wstring CLanguage::Path() {
    std::lock_guard<std::mutex> hold(lock_);
    return path_;
}

int CLanguage::SetLanguagePath(const std::wstring& path) {
    std::lock_guard<std::mutex> hold(lock_);
    if (path == path_) return 0;
    if (!varcfg::CurrentPlatform().CanOpenForReading(path)) return 0;
    path_ = path;
    cache_.clear();
    return 1;
}

namespace varcfg {

int CurrentLanguageNumber() {
    Platform& platform = CurrentPlatform();
    const std::wstring langIni = HostUserFolder() + L"Lang.ini";
    if (platform.ReadProfileInt(langIni, L"CONFIG", L"OnlyEnglish", 0) != 0) return 1;
    return platform.ReadProfileInt(langIni, L"LANGUAGE", L"CUR_LANG", 0);
}

}  // namespace varcfg
