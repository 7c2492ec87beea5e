#include <gtest/gtest.h>

#include <cstdint>

#include "protocol/IpText.h"

using namespace varcfg;

TEST(IpFromText, ReadsEachFormAndGivesZeroForAnyOtherText) {
    const struct {
        const char* text;
        uint32_t value;
    } cases[] = {
        // Dotted, as inet_addr reads it, in network byte order.
        {"1.2.3.4", 0x04030201u}, {"192.168.1.10", 0x0A01A8C0u}, {"255.255.255.255", 0xFFFFFFFFu},
        {"127.1", 0x0100007Fu}, {"10.1.258", 0x0201010Au}, {"10.0x10.010.1", 0x0108100Au},
        {"0X01020304", 0x04030201u}, {"1.2.3.4 trailing", 0x04030201u},
        // Numbers, stored unchanged; the digits-only form is decimal even with a leading 0.
        {"0xC0A8010A", 0xC0A8010Au}, {"0x12zz", 0x12u}, {"0x", 0u}, {"0xFFFFFFFFF", 0xFFFFFFFFu},
        {"3232235786", 3232235786u}, {"010", 10u}, {"4294967296", 0u},
        // Anything else.
        {"", 0u}, {" 1.2.3.4", 0u}, {"abc", 0u}, {"-1", 0u}, {"1.2.3.4.5", 0u}, {"1.2.3.", 0u}, {"1..2", 0u},
        {"256.1.1.1", 0u}, {"1.2.3.256", 0u}, {"1.2.65536", 0u}, {"1.16777216", 0u}, {"08.1.1.1", 0u},
        {"0X.1.1.1", 0u}, {"1.2.3.4x", 0u}, {"1.99999999999999999999", 0u},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(IpFromText(c.text), c.value);
    }
}

TEST(DottedIp, PrintsTheFirstAddressByteFirst) {
    EXPECT_EQ(DottedIp(0x04030201u), "1.2.3.4");
    EXPECT_EQ(DottedIp(0xFFFFFFFFu), "255.255.255.255");
    EXPECT_EQ(DottedIp(IpFromText("3232235786")), "10.1.168.192");
    for (const char* address : {"0.0.0.0", "192.168.1.10", "255.255.255.0"}) {
        EXPECT_EQ(DottedIp(IpFromText(address)), address);
    }
}
