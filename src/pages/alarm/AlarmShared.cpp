#include "pages/alarm/AlarmShared.h"

#include "base/AnsiText.h"
#include "base/TemplateText.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

namespace varcfg {

void AddTextEntries(HWND dialog, int id, std::initializer_list<uint32_t> textIds) {
    for (uint32_t textId : textIds) ComboAdd(dialog, id, CLanguage::Instance().Text(textId), ComboCount(dialog, id));
}

void AddInputFunctions(HWND dialog, int id, int count) {
    // Values 3 to 24 follow the language ids 24012 to 24033.
    for (int function = 0; function < count; ++function) {
        const uint32_t textId = function == 0    ? 13018
                                : function == 1  ? 13017
                                : function == 2  ? 13019
                                : function <= 24 ? static_cast<uint32_t>(24009 + function)
                                                 : 24097;
        AddTextEntries(dialog, id, {textId});
    }
}

void AddNumberedEntries(HWND dialog, int id, uint32_t textId, int count) {
    const std::wstring text = CLanguage::Instance().Text(textId);
    for (int n = 1; n <= count; ++n) ComboAdd(dialog, id, FillTemplate(L"%s%d", {text, n}), ComboCount(dialog, id));
}

void AddFixedEntries(HWND dialog, int id, std::initializer_list<const wchar_t*> texts) {
    for (const wchar_t* text : texts) ComboAdd(dialog, id, text, ComboCount(dialog, id));
}

std::string StartChnQuery(const char* section, int startChn) {
    return ToAnsi(FillTemplate(L"<VariCfgSec Action=\"DEVICE_QUERY\"><%s StartChn=\"%d\"></VariCfgSec>",
                               {FromAnsi(section), startChn}));
}

}  // namespace varcfg
