// The three reply checks on any text a host may hand back. The first byte chooses the check; the rest
// is the reply text, read up to its first zero byte as the plug-in reads a reply record.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "protocol/Envelope.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string reply(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 3) {
        case 0: {
            varcfg::QueryReply query;
            const int result = query.Check(reply.c_str());
            Require(result == 0 || result == -1);
            // An accepted reply always yields a section, a refused one never does.
            Require((result == 0) == (query.Section() != nullptr));
            // A second check of the same text on the same object comes to the same result.
            Require(query.Check(reply) == result);
            break;
        }
        case 1: {
            const int result = varcfg::CheckSettingReply(reply.c_str());
            Require(result == 0 || result == -1);
            break;
        }
        default: {
            const int result = varcfg::CheckPlatformReply(reply.c_str());
            Require(result == 0 || result == -1);
            break;
        }
    }
    return 0;
}
