// CDlgCfgBase: the base of every configuration page and tab host. The setup area loads a page with
// Refresh the first time it is shown, marks it loaded, and saves it with Save on the write button.
#pragma once

#include <string>

#include "plugin/RequestChannel.h"
#include "protocol/Envelope.h"
#include "ui/win/Dialog.h"

class CDlgCfgBase : public varcfg::Dialog {
public:
    using Dialog::Dialog;

    // Validates the controls, sends the page's settings and checks the replies. Positive on success,
    // 0 when the exchange or the recorder refused, -1 when the page refused its own input and has told
    // the user. A page without settings of its own saves nothing and returns 0.
    virtual int Save() { return 0; }
    // Reads the page's sections from the recorder and fills the controls; non-zero on success.
    virtual int Refresh() { return 0; }

    void SetLoaded() { loaded_ = 1; }
    int IsLoaded() const { return loaded_; }

    static int IsDigitString(const std::wstring& text);
    static int IsDecimalString(const std::wstring& text);

protected:
    // The page's requests, all through the one request channel. Both return 1 when the recorder
    // answered and the reply passed its check, 0 when the transport failed, -1 when the reply was
    // refused.
    // A query: on 1, reply.Section() is the section element to decode.
    static int Query(const std::string& queryText, varcfg::QueryReply& reply,
                     varcfg::RecordSize size = varcfg::RecordSize::Standard);
    // A setting: the wide text is converted to the ANSI code page; either text is cut at 1023 characters.
    static int SendSetting(const std::wstring& settingText);
    static int SendSetting(const std::string& ansiSettingText);

private:
    int loaded_ = 0;
};

namespace varcfg {

// printf-style formatting of wide request templates and captions. Use %ls for wide texts and %hs for
// 8-bit ones, so that the same format means the same under every compiler's runtime.
std::wstring FormatText(const wchar_t* format, ...);

}  // namespace varcfg
