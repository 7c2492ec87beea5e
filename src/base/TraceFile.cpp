#include "base/TraceFile.h"

#include <cctype>
#include <chrono>
#include <cstdarg>
#include <ctime>
#include <memory>

namespace {

std::unique_ptr<CTraceFile2>& Slot() {
    static std::unique_ptr<CTraceFile2> instance;
    return instance;
}

std::FILE* OpenForAppend(const std::wstring& path) {
#ifdef _WIN32
    return _wfopen(path.c_str(), L"ab");
#else
    // Native builds only log in tests, where paths are plain ASCII.
    return std::fopen(std::string(path.begin(), path.end()).c_str(), "ab");
#endif
}

bool NamesPassword(std::string_view name) {
    std::string lower;
    for (char c : name) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower.find("passwd") != std::string::npos || lower.find("password") != std::string::npos ||
           lower.find("pwd") != std::string::npos;
}

bool IsNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == ':' || c == '.';
}

}  // namespace

CTraceFile2& CTraceFile2::Instance() {
    auto& slot = Slot();
    if (!slot) slot.reset(new CTraceFile2());
    return *slot;
}

CTraceFile2* CTraceFile2::Existing() { return Slot().get(); }

void CTraceFile2::SetFolder(std::wstring folder) { folder_ = std::move(folder); }

void CTraceFile2::SetLogName(std::string_view name) { logName_ = std::string(name); }

std::wstring CTraceFile2::FilePath() const {
    if (logName_.empty()) return {};
    return folder_ + std::wstring(logName_.begin(), logName_.end()) + L".log";
}

void CTraceFile2::Write(const char* format, ...) {
    const std::wstring path = FilePath();
    if (path.empty()) return;
    std::FILE* file = OpenForAppend(path);
    if (file == nullptr) return;

    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto millis =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    char stamp[32] = {};
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", std::localtime(&seconds));
    std::fprintf(file, "%s.%03d ", stamp, static_cast<int>(millis));

    va_list args;
    va_start(args, format);
    std::vfprintf(file, format, args);
    va_end(args);
    std::fputs("\n", file);
    std::fclose(file);
}

std::string CTraceFile2::Redact(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        // An attribute value starts at ="; its name is the run of name characters before the '='.
        if (text[i] == '=' && i + 1 < text.size() && text[i + 1] == '"') {
            std::size_t nameStart = i;
            while (nameStart > 0 && IsNameChar(text[nameStart - 1])) --nameStart;
            const std::size_t valueEnd = text.find('"', i + 2);
            if (NamesPassword(text.substr(nameStart, i - nameStart))) {
                out += "=\"***";
                if (valueEnd == std::string_view::npos) return out;
                i = valueEnd;  // the closing quote is copied below
                continue;
            }
        }
        out += text[i++];
    }
    return out;
}

void CTraceFile2::Diagnose(const std::string& line) {
    std::fputs(line.c_str(), stdout);
    CTraceFile2* log = Existing();
    if (log == nullptr) return;
    std::string text = line;
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    log->Write("%s", text.c_str());
}
