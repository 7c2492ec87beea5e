#include "protocol/IpText.h"

#include <cstddef>

#include "base/AsciiText.h"

namespace varcfg {
namespace {

// The value of a hexadecimal digit, or -1.
int HexDigitValue(char c) {
    if (IsDecimalDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Unsigned arithmetic wraps, so larger numbers keep their low 32 bits.
uint32_t HexNumber(std::string_view digits) {
    uint32_t value = 0;
    for (const char c : digits) {
        const int digit = HexDigitValue(c);
        if (digit < 0) break;
        value = value * 16u + static_cast<uint32_t>(digit);
    }
    return value;
}

uint32_t DecimalNumber(std::string_view digits) {
    uint32_t value = 0;
    for (const char c : digits) value = value * 10u + static_cast<uint32_t>(c - '0');
    return value;
}

bool AllDecimalDigits(std::string_view text) {
    if (text.empty()) return false;
    for (const char c : text) {
        if (!IsDecimalDigit(c)) return false;
    }
    return true;
}

// One part of a dotted address, starting at pos; pos is left on the first character after it.
// False when the part has no digits, has 8 or 9 in octal, or exceeds 32 bits.
bool ReadAddressPart(std::string_view text, std::size_t& pos, uint32_t& part) {
    unsigned base = 10;
    bool hasDigit = false;
    if (pos < text.size() && text[pos] == '0') {
        ++pos;
        if (pos < text.size() && (text[pos] == 'x' || text[pos] == 'X')) {
            base = 16;
            ++pos;
        } else {
            base = 8;
            hasDigit = true;
        }
    }
    uint64_t value = 0;
    for (; pos < text.size(); ++pos) {
        const int digit = HexDigitValue(text[pos]);
        if (digit < 0 || (base != 16 && digit > 9)) break;
        if (digit >= static_cast<int>(base)) return false;  // 8 or 9 in an octal part
        value = value * base + static_cast<unsigned>(digit);
        if (value > 0xFFFFFFFFu) return false;
        hasDigit = true;
    }
    part = static_cast<uint32_t>(value);
    return hasDigit;
}

// The dotted form as the host-order number that inet_addr would byte-swap, or false.
bool ReadDottedAddress(std::string_view text, uint32_t& hostOrder) {
    uint32_t parts[4] = {};
    std::size_t count = 0;
    std::size_t pos = 0;
    for (;;) {
        if (!ReadAddressPart(text, pos, parts[count])) return false;
        ++count;
        if (pos < text.size() && text[pos] == '.') {
            if (count == 4 || parts[count - 1] > 0xFFu) return false;
            ++pos;
            continue;
        }
        break;
    }
    if (pos < text.size() && text[pos] != '\0' && !IsAsciiSpace(text[pos])) return false;

    // The last part fills the bytes that the earlier parts leave.
    const uint32_t last = parts[count - 1];
    const unsigned lastBits = 32 - 8 * static_cast<unsigned>(count - 1);
    if (lastBits < 32 && (last >> lastBits) != 0) return false;
    hostOrder = last;
    for (std::size_t i = 0; i + 1 < count; ++i) hostOrder |= parts[i] << (24 - 8 * i);
    return true;
}

uint32_t NetworkOrder(uint32_t hostOrder) {
    return (hostOrder >> 24) | ((hostOrder >> 8) & 0xFF00u) | ((hostOrder << 8) & 0xFF0000u) | (hostOrder << 24);
}

}  // namespace

uint32_t IpFromText(std::string_view text) {
    if (text.size() >= 2 && text[0] == '0' && text[1] == 'x') return HexNumber(text.substr(2));
    if (AllDecimalDigits(text)) return DecimalNumber(text);
    uint32_t hostOrder = 0;
    return ReadDottedAddress(text, hostOrder) ? NetworkOrder(hostOrder) : 0;
}

std::string DottedIp(uint32_t ip) {
    std::string text;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        if (shift != 0) text += '.';
        text += std::to_string((ip >> shift) & 0xFFu);
    }
    return text;
}

}  // namespace varcfg
