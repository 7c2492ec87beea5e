#include "shell/CfgBase.h"

#include <cstdarg>
#include <cwchar>
#include <vector>

#include "plugin/AnsiText.h"
#include "shell/Validators.h"

int CDlgCfgBase::IsDigitString(const std::wstring& text) { return varcfg::IsDigitString(text); }

int CDlgCfgBase::IsDecimalString(const std::wstring& text) { return varcfg::IsDecimalString(text); }

int CDlgCfgBase::Query(const std::string& queryText, varcfg::QueryReply& reply, varcfg::RecordSize size) {
    std::string replyText;
    if (!varcfg::Exchange(queryText, varcfg::kQueryForm, replyText, size)) return 0;
    return reply.Check(replyText) == 0 ? 1 : -1;
}

int CDlgCfgBase::SendSetting(const std::wstring& settingText) { return SendSetting(varcfg::ToAnsi(settingText)); }

int CDlgCfgBase::SendSetting(const std::string& ansiSettingText) {
    std::string replyText;
    if (!varcfg::Exchange(ansiSettingText, varcfg::kSettingForm, replyText)) return 0;
    return varcfg::CheckSettingReply(replyText) == 0 ? 1 : -1;
}

namespace varcfg {

std::wstring FormatText(const wchar_t* format, ...) {
    std::vector<wchar_t> buffer(512);
    for (;;) {
        va_list args;
        va_start(args, format);
        const int written = std::vswprintf(buffer.data(), buffer.size(), format, args);
        va_end(args);
        if (written >= 0 && static_cast<std::size_t>(written) < buffer.size()) {
            return std::wstring(buffer.data(), static_cast<std::size_t>(written));
        }
        // vswprintf reports neither the needed size nor the cause of a failure: grow and try again,
        // up to a size no request or caption comes near.
        if (buffer.size() >= (1u << 20)) return std::wstring();
        buffer.resize(buffer.size() * 2);
    }
}

}  // namespace varcfg
