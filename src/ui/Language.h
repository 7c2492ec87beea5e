// CLanguage: the process-wide table of visible texts. Each text is read by numeric id from the language
// file the host names (section STRING, the id in decimal as the key) and kept until the file changes,
// because the profile reader opens and scans the whole file on every read.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

class CLanguage {
public:
    // The module's table, created on the first call; that call happens on the user-interface thread.
    static CLanguage& Instance();

    CLanguage() = default;
    CLanguage(const CLanguage&) = delete;
    CLanguage& operator=(const CLanguage&) = delete;

    // Clears out, then fills it with the text of id; it stays empty when the file has no text for the id.
    std::wstring& GetText(uint32_t id, std::wstring& out);
    std::wstring Text(uint32_t id);

    // 1 when the table switched to the file at path and forgot every cached text. 0 when path is the
    // current one (compared exactly, letter case included) or cannot be opened: the current file and
    // its cached texts stay in force.
    int SetLanguagePath(const std::wstring& path);
    // The file in force; empty before one could be opened.
    std::wstring Path();

private:
    // The only lock of the module: a lookup never sees a half-switched file.
    std::mutex lock_;
    std::wstring path_;
    // Only non-empty texts are kept, so an id without a text is read again on every request.
    std::map<uint32_t, std::wstring> cache_;
};

namespace varcfg {

// The language the host's user chose, from <roaming app data>\<host name>\Lang.ini: 1 when only
// English is allowed (CONFIG / OnlyEnglish non-zero), else LANGUAGE / CUR_LANG (0 when missing).
int CurrentLanguageNumber();

}  // namespace varcfg
