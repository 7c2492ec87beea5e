#include "protocol/Envelope.h"

#include <cstdio>
#include <cstring>

#include "base/TraceFile.h"

namespace varcfg {
namespace {

constexpr int kAccepted = 0;
constexpr int kRefused = -1;

int Refuse(const char* line) {
    CTraceFile2::Diagnose(line);
    return kRefused;
}

// Parses into document, which is cleared first. False when TinyXML reports a fault.
// Replies are 8-bit text in the system's code page, so they are read as such whatever their declaration
// says: read as UTF-8, a text cut inside a multi-byte sequence would make TinyXML read past its end,
// and a code-page byte before a closing quote would swallow the quote. A leading UTF-8 byte-order mark
// is skipped.
bool ParseFresh(TiXmlDocument& document, const char* text) {
    static constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
    document.Clear();
    document.ClearError();
    if (text == nullptr) text = "";
    if (std::strncmp(text, kByteOrderMark, 3) == 0) text += 3;
    document.Parse(text, nullptr, TIXML_ENCODING_LEGACY);
    return !document.Error();
}

bool IsActionAttribute(const TiXmlAttribute& attribute) { return std::strcmp(attribute.Name(), "Action") == 0; }

// The diagnostic lines of one check that looks at Action and the attribute after it.
struct ResultLines {
    const char* noFirstAttribute;
    const char* firstIsNotAction;
    const char* noResult;
    const char* resultIsNotOne;
};

int CheckActionAndResult(const TiXmlElement& element, const ResultLines& lines) {
    const TiXmlAttribute* action = element.FirstAttribute();
    if (action == nullptr) return Refuse(lines.noFirstAttribute);
    if (!IsActionAttribute(*action)) return Refuse(lines.firstIsNotAction);
    const TiXmlAttribute* result = action->Next();
    if (result == nullptr) return Refuse(lines.noResult);
    if (std::strcmp(result->Value(), "1") != 0) return Refuse(lines.resultIsNotOne);
    return kAccepted;
}

}  // namespace

std::string QueryText(std::string_view section) {
    std::string text = "<VariCfgSec Action=\"DEVICE_QUERY\"><";
    text += section;
    text += "></VariCfgSec>";
    return text;
}

int QueryReply::Check(const char* replyText) {
    section_ = nullptr;
    const TiXmlElement* root = ParseFresh(document_, replyText) ? document_.FirstChildElement("VariCfgSec") : nullptr;
    if (root == nullptr) return Refuse("CDlgCfgBase::GetParaValue, xmlDoc.FirstChildElement[VariCfgSec] failed.\n");
    const TiXmlAttribute* action = root->FirstAttribute();
    if (action == nullptr) return Refuse("CDlgCfgBase::GetParaCmdType, get first pAttribute failed.\n");
    if (!IsActionAttribute(*action)) {
        return Refuse("CDlgCfgBase::GetParaCmdType, first attribute name is not Action.\n");
    }
    const TiXmlElement* section = root->FirstChildElement();
    if (section == nullptr) return Refuse("CNetCtrl::GetParaValue,  get paraElement failed.\n");
    section_ = section;
    return kAccepted;
}

int CheckSettingReply(const char* replyText) {
    static constexpr ResultLines kLines = {
        "CConfig_Task::ParseResponseMsgResult, get first pAttribute failed.\n",
        "CConfig_Task::ParseResponseMsgResult, first attribute name is not Action.\n",
        "CConfig_Task::ParseResponseMsgResult, get Result pAttribute failed.\n",
        "CConfig_Task::ParseResponseMsgResult, Result is not 1.\n",
    };
    TiXmlDocument document;
    const TiXmlElement* root = ParseFresh(document, replyText) ? document.FirstChildElement("VariCfgSec") : nullptr;
    if (root == nullptr) return Refuse("CConfig_Task::ParseResponseMsgResult, xmlDoc.FirstChildElement failed.\n");
    return CheckActionAndResult(*root, kLines);
}

int CheckPlatformReply(const char* replyText) {
    static constexpr ResultLines kLines = {
        "CConfig_Task::ParseResponseKOVMsgResult, get first pAttribute failed.\n",
        "CConfig_Task::ParseResponseKOVMsgResult, first attribute name is not Action.\n",
        "CConfig_Task::ParseResponseKOVMsgResult, get Result pAttribute failed.\n",
        "CConfig_Task::ParseResponseKOVMsgResult, Result is not 1.\n",
    };
    static constexpr char kNoElement[] = "CConfig_Task::ParseResponseKOVMsgResult, xmlDoc.FirstChildElement failed.\n";
    TiXmlDocument document;
    const TiXmlElement* outer = ParseFresh(document, replyText) ? document.FirstChildElement() : nullptr;
    if (outer == nullptr) return Refuse(kNoElement);
    const TiXmlElement* inner = outer->FirstChildElement();
    if (inner == nullptr) return Refuse(kNoElement);
    return CheckActionAndResult(*inner, kLines);
}

}  // namespace varcfg
