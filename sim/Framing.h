// The framing of mdvr-sim's TCP link: a 4-byte little-endian length, then that many bytes of text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varcfg::sim {

inline constexpr std::size_t kFrameHeaderSize = 4;

inline std::string Frame(std::string_view text) {
    const auto length = static_cast<uint32_t>(text.size());
    std::string frame;
    for (int shift = 0; shift < 32; shift += 8) frame += static_cast<char>((length >> shift) & 0xFFu);
    return frame.append(text);
}

// The text length a frame header announces; header holds at least kFrameHeaderSize bytes.
inline uint32_t AnnouncedLength(const char* header) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(header);
    return bytes[0] | (bytes[1] << 8) | (bytes[2] << 16) | (uint32_t{bytes[3]} << 24);
}

}  // namespace varcfg::sim
