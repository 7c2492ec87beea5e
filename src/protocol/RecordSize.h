// The record pair an exchange travels in.
#pragma once

namespace varcfg {

// The standard records hold 2060 bytes of text; a few sections answer in records with a 9708-byte text
// area instead.
enum class RecordSize { Standard, Large };

}  // namespace varcfg
