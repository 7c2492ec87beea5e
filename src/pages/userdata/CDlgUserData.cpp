#include "pages/userdata/CDlgUserData.h"

#include "base/AnsiText.h"
#include "res/resource.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

namespace {

// The debugger output takes at most this many characters of the request.
constexpr std::size_t kDebugOutputLimit = 510;

}  // namespace

CDlgUserData::CDlgUserData() : CDlgCfgBase(IDD_USER_DATA) {}

BOOL CDlgUserData::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_USER_DATA_REPLY_LABEL, 21203}, {IDC_USER_DATA_REQUEST_LABEL, 21202}});
    return TRUE;
}

void CDlgUserData::DoDataExchange(DataExchange& dx) {
    dx.Text(IDC_USER_DATA_REQUEST, request_);
    dx.Text(IDC_USER_DATA_REPLY, reply_);
}

int CDlgUserData::Save() {
    UpdateData(true);
    const std::wstring request = FillTemplate(L"%s", {request_});
    OutputDebugStringW(request.substr(0, kDebugOutputLimit).c_str());
    std::string reply;
    if (!Exchange(ToAnsi(request), kRawForm, reply)) return 0;
    reply_ = FromAnsi(reply);
    UpdateData(false);
    return 1;
}
