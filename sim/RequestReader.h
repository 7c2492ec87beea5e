// Reads a request's elements the way the recorder does: leniently, because the panel sends several
// forms that are not well-formed XML and the recorder accepts them all.
//
// - An element left open is closed by the end tag of an element around it, or by the end of the text
//   ("<stPower></VariCfgSec>").
// - A start tag without attributes that names an element already open closes that element
//   ("<VariCfgSec>" written where "</VariCfgSec>" belongs, a container opened again after its children).
// - An end tag that names no open element is ignored ("</stAlarmLinkage>" after serial ports).
// - Text between tags is ignored (the second " />" of "/> />").
// - Blanks, tabs and line breaks separate attributes alike.
// - Everything after the first element has closed is ignored.
//
// Refused: a tag that never ends, a name that is not a name, an attribute without a quoted value, a
// declaration other than a comment or a processing instruction, nesting deeper than the protocol's
// deepest request allows, or more elements than any request holds.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varcfg::sim {

struct RequestAttribute {
    std::string name;
    std::string value;  // as written: the panel does not escape, so neither does the reader unescape
};

struct RequestElement {
    std::string name;
    std::vector<RequestAttribute> attributes;  // in document order, repeats included
    std::vector<RequestElement> children;

    // The last attribute of exactly that name (a repeated attribute's later value wins), or null.
    const RequestAttribute* Attribute(std::string_view attributeName) const;
};

// The first element of the text with everything inside it; nothing when the text is unreadable.
std::optional<RequestElement> ReadRequest(std::string_view text);

}  // namespace varcfg::sim
