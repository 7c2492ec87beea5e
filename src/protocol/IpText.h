// IP addresses as the recorder writes them in attributes, and as the pages show them.
//
// A record keeps an IP in network byte order: the address's first byte is the value's least
// significant byte, which is the lowest-addressed byte on the little-endian machines the plug-in runs
// on. That is what the sockets library's inet_addr returns and what its inet_ntoa reads.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varcfg {

// The value an IP attribute stores in its 32-bit record field:
// - "0x" followed by hexadecimal digits: that number, unchanged (reading stops at the first character
//   that is not a hexadecimal digit);
// - decimal digits only: that number, unchanged;
// - otherwise an address in the sockets library's dotted form: one to four parts, each decimal, octal
//   (leading 0) or hexadecimal (leading 0x or 0X), the last part filling the remaining bytes, optionally
//   followed by white space and anything after it; "1.2.3.4" gives 0x04030201;
// - any other text, a part too large for its place among them, gives 0.
// The two number forms keep the low 32 bits of a larger number.
uint32_t IpFromText(std::string_view text);

// The dotted form of a record's IP value, first address byte first: "%u.%u.%u.%u".
std::string DottedIp(uint32_t ip);

}  // namespace varcfg
