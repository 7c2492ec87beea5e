// The VariCfgSec envelope: query texts, and the three checks that decide whether a reply is accepted.
//
// Each check parses the reply text into a fresh document and returns 0 (accepted) or -1 (refused). A
// refusal prints one line naming the check and the reason on standard output; callers report only the
// result. Text that TinyXML cannot parse is refused at the first step, with that step's line, even
// where TinyXML kept the elements it read before the fault.
#pragma once

#include <string>
#include <string_view>

#include <tinyxml.h>

namespace varcfg {

// "<VariCfgSec Action="DEVICE_QUERY"><section></VariCfgSec>": the section element is left open,
// which is the form the recorder expects.
std::string QueryText(std::string_view section);

// The version query is the one query that closes its element.
inline constexpr char kVersionQueryText[] = "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>";

// A query reply and, once accepted, its section element (which lives inside the reply's document).
class QueryReply {
public:
    QueryReply() = default;
    QueryReply(const QueryReply&) = delete;
    QueryReply& operator=(const QueryReply&) = delete;

    // Accepts a reply whose first element named VariCfgSec has Action as its first attribute (the value
    // is not examined) and a child element of any name: that child becomes the section. No Result is
    // required. Each call starts from a fresh document; after a refusal Section() is null.
    int Check(const char* replyText);
    int Check(const std::string& replyText) { return Check(replyText.c_str()); }

    const TiXmlElement* Section() const { return section_; }

private:
    TiXmlDocument document_;
    const TiXmlElement* section_ = nullptr;
};

// The reply to a DEVICE_SET, DEVICE_TIME or DEVICE_FORMAT request: the first element named VariCfgSec
// must carry Action as its first attribute and, right after it, an attribute whose value is exactly "1".
// The recorder calls that attribute Result, but only its position counts, not its name.
int CheckSettingReply(const char* replyText);
inline int CheckSettingReply(const std::string& replyText) { return CheckSettingReply(replyText.c_str()); }

// The reply to the centre server's Parameter message: the same attribute rules as a setting reply, on
// the first child element of the document's first element, whatever both are called.
int CheckPlatformReply(const char* replyText);
inline int CheckPlatformReply(const std::string& replyText) { return CheckPlatformReply(replyText.c_str()); }

}  // namespace varcfg
