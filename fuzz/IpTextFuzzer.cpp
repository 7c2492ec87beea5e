// The IP text rule on any attribute text, and the dotted form of any record value.
//
// - The dotted form of a value reads back as the same value.
// - A text in neither number form reads as the C library's inet_aton reads it (0 where inet_aton refuses
//   it): both follow the sockets library's rule for dotted addresses.
#include <arpa/inet.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "protocol/IpText.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

bool InNumberForm(std::string_view text) {
    if (text.size() >= 2 && text[0] == '0' && text[1] == 'x') return true;
    if (text.empty()) return false;
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const uint32_t ip = varcfg::IpFromText(text);

    if (!InNumberForm(text)) {
        in_addr address{};
        const uint32_t expected = inet_aton(text.c_str(), &address) != 0 ? address.s_addr : 0;
        Require(ip == expected);
    }

    if (size >= sizeof(uint32_t)) {
        uint32_t value = 0;
        std::memcpy(&value, data, sizeof value);
        Require(varcfg::IpFromText(varcfg::DottedIp(value)) == value);
    }
    return 0;
}
