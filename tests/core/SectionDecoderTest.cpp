#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include <tinyxml.h>

#include "protocol/SectionDecoder.h"

using namespace varcfg;

namespace {

struct Sample {
    uint8_t u8;
    uint16_t u16;
    uint32_t u32;
    int32_t i32;
    float f;
    double d;
    char text[8];
    uint32_t ip;
};

constexpr Field<Sample> kSampleFields[] = {
    VARCFG_FIELD(Sample, u8, "ucValue", Integer),
    VARCFG_FIELD(Sample, u16, "usValue", Integer),
    VARCFG_FIELD(Sample, u32, "uiValue", Integer),
    VARCFG_FIELD(Sample, i32, "iValue", Integer),
    VARCFG_FIELD(Sample, i32, "iOther", Integer),
    VARCFG_FIELD(Sample, f, "fValue", Float),
    VARCFG_FIELD(Sample, d, "dValue", Float),
    VARCFG_FIELD(Sample, text, "strValue", Text),
    VARCFG_FIELD(Sample, ip, "uiIp", Ip),
};

constexpr Field<Sample> kRuledFields[] = {
    VARCFG_FIELD(Sample, text, "strId", Text).AcceptingTextLength(2, 4),
    VARCFG_FIELD(Sample, u8, "ucValue", Integer),
};

struct Entry {
    uint8_t enable;
    uint16_t level;
};

constexpr Field<Entry> kEntryFields[] = {
    VARCFG_FIELD(Entry, enable, "ucEnable", Integer),
    VARCFG_FIELD(Entry, level, "usLevel", Integer),
};

constexpr uint16_t kUntouched = 0xEEEE;

// Entries followed by one more, which no decode may reach.
template <std::size_t N>
struct Entries {
    Entries() {
        for (Entry& entry : slots) entry = {0xEE, kUntouched};
        guard = {0xEE, kUntouched};
    }
    Entry slots[N];
    Entry guard;
};

class Xml {
public:
    explicit Xml(const std::string& text) { document_.Parse(text.c_str()); }
    const TiXmlElement& Root() const { return *document_.RootElement(); }

private:
    TiXmlDocument document_;
};

Sample Decode(const std::string& xml) {
    Sample sample{};
    EXPECT_TRUE(DecodeAttributes(Xml(xml).Root(), kSampleFields, sample).Succeeded());
    return sample;
}

}  // namespace

TEST(DecodeAttributes, MatchesNamesWithoutRegardToCaseSkipsUnknownOnesAndTheLaterWins) {
    const Sample sample = Decode(R"(<s UCVALUE="7" ucValu="1" ucValueX="2" iValue="1" IOTHER="2" strvALUE="abc"/>)");
    EXPECT_EQ(sample.u8, 7);
    EXPECT_EQ(sample.i32, 2);
    EXPECT_STREQ(sample.text, "abc");
    EXPECT_EQ(Decode(R"(<s iOther="2" iValue="1"/>)").i32, 1);
}

TEST(DecodeAttributes, ConvertsEachKindIntoItsMember) {
    Sample sample = Decode(R"(<s ucValue="300" usValue="70000" uiValue="4294967295" iValue="-5" fValue="2.500000")"
                           R"( dValue="-0.125" strValue="1234567890" uiIp="1.2.3.4"/>)");
    EXPECT_EQ(sample.u8, 44);  // cut to the member's width
    EXPECT_EQ(sample.u16, 4464);
    EXPECT_EQ(sample.u32, 0xFFFFFFFFu);
    EXPECT_EQ(sample.i32, -5);
    EXPECT_EQ(sample.f, 2.5f);
    EXPECT_EQ(sample.d, -0.125);
    EXPECT_STREQ(sample.text, "1234567");  // one less than the member's size
    EXPECT_EQ(sample.ip, 0x04030201u);

    // As atoi reads them, and never undefined: larger numbers keep their low 32 bits.
    sample = Decode(R"(<s ucValue="-1" usValue=" +12abc" uiValue="abc" iValue="99999999999999999999")"
                    R"( fValue="1e300" dValue="x" uiIp="garbage"/>)");
    EXPECT_EQ(sample.u8, 255);
    EXPECT_EQ(sample.u16, 12);
    EXPECT_EQ(sample.u32, 0u);
    EXPECT_EQ(sample.i32, 0x630FFFFF);
    EXPECT_TRUE(std::isinf(sample.f));
    EXPECT_EQ(sample.d, 0.0);
    EXPECT_EQ(sample.ip, 0u);

    // A shorter later text leaves nothing of the earlier one behind its terminator.
    sample = Decode(R"(<s strValue="abcdefg" STRVALUE="xy"/>)");
    const char expected[8] = {'x', 'y'};
    EXPECT_EQ(std::memcmp(sample.text, expected, sizeof expected), 0);
}

TEST(DecodeAttributes, ATextBreakingItsLengthRuleStopsDecodingAndIsReported) {
    Sample sample{};
    DecodeResult result =
        DecodeAttributes(Xml(R"(<s ucValue="1" STRID="abcde" UCVALUE="2"/>)").Root(), kRuledFields, sample);
    EXPECT_EQ(result.status, DecodeStatus::TextRefused);
    EXPECT_STREQ(result.refusedAttribute, "strId");
    EXPECT_EQ(result.refusedText, "abcde");
    EXPECT_STREQ(sample.text, "");
    EXPECT_EQ(sample.u8, 1);

    // Leaving the field out of the table leaves its rule out too.
    result = DecodeAttributes(Xml(R"(<s strId="a" ucValue="2"/>)").Root(), FieldTable(kRuledFields).WithoutFirst(1),
                              sample);
    EXPECT_TRUE(result.Succeeded());
    EXPECT_STREQ(sample.text, "");
    EXPECT_EQ(sample.u8, 2);
}

TEST(FindContainer, PrintsTheOperationsLineWhenTheContainerIsMissing) {
    const Xml section(R"(<stVideoMirror><other/><stVideoMirrorPara/></stVideoMirror>)");
    testing::internal::CaptureStdout();
    EXPECT_NE(FindContainer(section.Root(), "stVideoMirrorPara", "Import_stVideoMirror"), nullptr);
    EXPECT_EQ(FindContainer(section.Root(), "stAlarmInIO", "Import_stAlarmIn"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "CConfig_Task::Import_stAlarmIn, pVariElement.FirstChildElement failed.\n");
}

TEST(DecodeChannels, TakesChildrenByPositionUpToTheChannelCount) {
    Entries<8> channels;
    const Xml three(R"(<c><VChn_3 ucEnable="1" usLevel="10"/><VChn_0 usLevel="11"/><Other usLevel="12"/></c>)");
    ASSERT_TRUE(DecodeChannels(three.Root(), kEntryFields, channels.slots).Succeeded());
    EXPECT_EQ(channels.slots[0].enable, 1);
    EXPECT_EQ(channels.slots[0].level, 10);
    EXPECT_EQ(channels.slots[1].level, 11);
    EXPECT_EQ(channels.slots[2].level, 12);
    for (int i = 3; i < 8; ++i) EXPECT_EQ(channels.slots[i].level, kUntouched) << i;

    std::string ten = "<c>";
    for (int i = 0; i < 10; ++i) ten += "<VChn_" + std::to_string(i) + " usLevel=\"" + std::to_string(100 + i) + "\"/>";
    ASSERT_TRUE(DecodeChannels(Xml(ten + "</c>").Root(), kEntryFields, channels.slots).Succeeded());
    EXPECT_EQ(channels.slots[7].level, 107);
    EXPECT_EQ(channels.guard.level, kUntouched);
}

TEST(DecodeIndexedChildren, NumbersEntriesByTheDigitsAfterTheFirstUnderscoreUpToTheLimit) {
    Entries<16> entries;
    const Xml alarms(R"(<c><AlarmIO_11 usLevel="11"/><Alarm_IO_3 usLevel="3"/><AlarmIO_2x usLevel="2"/>)"
                     R"(<AlarmIO_-1 usLevel="100"/><AlarmIO_12 usLevel="12"/><AlarmIO_5 usLevel="5"/></c>)");
    EXPECT_TRUE(DecodeIndexedChildren(alarms.Root(), IndexSuffix::AtLeastOneCharacter, 12, kEntryFields, entries.slots)
                    .Succeeded());  // reaching the limit ends decoding, it is no fault
    EXPECT_EQ(entries.slots[11].level, 11);
    EXPECT_EQ(entries.slots[2].level, 2);
    EXPECT_EQ(entries.slots[0].level, 100);  // "IO_3" and "-1" start with no digit
    EXPECT_EQ(entries.slots[5].level, kUntouched);
    EXPECT_EQ(entries.slots[12].level, kUntouched);

    // The limit never reaches beyond the array, and a long number cannot overflow.
    Entries<2> ports;
    const Xml serial(R"(<c><Item_1 usLevel="1"/><Item_2 usLevel="2"/></c>)");
    EXPECT_TRUE(DecodeIndexedChildren(serial.Root(), IndexSuffix::ExactlyOneCharacter, 9, kEntryFields, ports.slots)
                    .Succeeded());
    EXPECT_EQ(ports.slots[1].level, 1);
    EXPECT_EQ(ports.guard.level, kUntouched);
    const Xml huge(R"(<c><Item_99999999999999999999999 usLevel="7"/><Item_0 usLevel="7"/></c>)");
    EXPECT_TRUE(
        DecodeIndexedChildren(huge.Root(), IndexSuffix::AtLeastOneCharacter, SIZE_MAX, kEntryFields, ports.slots)
            .Succeeded());
    EXPECT_EQ(ports.slots[0].level, kUntouched);
}

TEST(DecodeIndexedChildren, ANameBreakingTheSuffixRuleEndsDecodingAsMalformed) {
    const struct {
        const char* second;
        IndexSuffix rule;
        DecodeStatus status;
    } cases[] = {
        {"AlarmIO_", IndexSuffix::AtLeastOneCharacter, DecodeStatus::MalformedChildName},
        {"AlarmIO", IndexSuffix::AtLeastOneCharacter, DecodeStatus::MalformedChildName},
        {"Serial_10", IndexSuffix::ExactlyOneCharacter, DecodeStatus::MalformedChildName},
        {"Serial_", IndexSuffix::ExactlyOneCharacter, DecodeStatus::MalformedChildName},
        {"Serial_x", IndexSuffix::ExactlyOneCharacter, DecodeStatus::Decoded},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.second);
        Entries<4> entries;
        const Xml container(std::string(R"(<c><E_0 usLevel="1"/><)") + c.second +
                            R"( usLevel="2"/><E_1 usLevel="3"/></c>)");
        EXPECT_EQ(DecodeIndexedChildren(container.Root(), c.rule, 4, kEntryFields, entries.slots).status, c.status);
        EXPECT_EQ(entries.slots[0].level, c.status == DecodeStatus::Decoded ? 2 : 1);  // entries read before are kept
        EXPECT_EQ(entries.slots[1].level, c.status == DecodeStatus::Decoded ? 3 : kUntouched);
    }
}
