#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

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
};

constexpr Field<Sample> kSampleFields[] = {
    VARCFG_FIELD(Sample, u8, "ucValue", Integer),   VARCFG_FIELD(Sample, u16, "usValue", Integer),
    VARCFG_FIELD(Sample, u32, "uiValue", Integer),  VARCFG_FIELD(Sample, i32, "iValue", Integer),
    VARCFG_FIELD(Sample, i32, "iOther", Integer),   VARCFG_FIELD(Sample, f, "fValue", Float),
    VARCFG_FIELD(Sample, d, "dValue", Float),       VARCFG_FIELD(Sample, text, "strValue", Text),
};

struct Entry {
    uint16_t level;
};
constexpr Field<Entry> kEntryFields[] = {VARCFG_FIELD(Entry, level, "usLevel", Integer)};
constexpr uint16_t kUntouched = 0xEEEE;

// N entries followed by one more, which no decode may reach.
template <std::size_t N>
struct Entries {
    Entries() { std::fill(std::begin(slots), std::end(slots), guard); }
    // The levels of the entries and of the guard; -1 for one that no decode reached.
    std::vector<int> Levels() const {
        std::vector<int> levels;
        for (const Entry& entry : slots) levels.push_back(entry.level == kUntouched ? -1 : entry.level);
        levels.push_back(guard.level == kUntouched ? -1 : guard.level);
        return levels;
    }
    Entry slots[N];
    Entry guard = {kUntouched};
};

struct Xml {
    explicit Xml(const std::string& text) { document.Parse(text.c_str()); }
    const TiXmlElement& Root() const { return *document.RootElement(); }
    TiXmlDocument document;
};

// A decoded sample as text: u8 u16 u32 i32 f d text, with the zero bytes of the text member as dots.
std::string Decoded(const std::string& xml) {
    Sample s{};
    EXPECT_TRUE(DecodeAttributes(Xml(xml).Root(), kSampleFields, s).Succeeded());
    std::ostringstream out;
    out.precision(17);
    out << +s.u8 << ' ' << s.u16 << ' ' << s.u32 << ' ' << s.i32 << ' ' << s.f << ' ' << s.d << ' ';
    for (const char c : s.text) out << (c != '\0' ? c : '.');
    return out.str();
}

}  // namespace

TEST(DecodeAttributes, MatchesNamesWithoutRegardToCaseAndConvertsEachKindIntoItsMember) {
    // Unknown names are skipped, and of two names bound to one member the later in the element wins. Numbers
    // are cut to the member's width, texts to one less than the member's size.
    EXPECT_EQ(Decoded(R"(<s UCVALUE="300" ucValu="1" ucValueX="2" usValue="70000" uiValue="4294967295")"
                      R"( IOTHER="9" iValue="-5" fValue="2.500000" dValue="-0.125" strvALUE="1234567890"/>)"),
              "44 4464 4294967295 -5 2.5 -0.125 1234567.");
    // As atoi reads them, and never undefined: larger numbers keep their low 32 bits.
    EXPECT_EQ(Decoded(R"(<s ucValue="-1" usValue=" +12abc" uiValue="abc" iValue="99999999999999999999")"
                      R"( fValue="1e300" dValue="x"/>)"),
              "255 12 0 1661992959 inf 0 ........");
    // A shorter later text leaves nothing of the earlier one behind its terminator.
    EXPECT_EQ(Decoded(R"(<s strValue="abcdefg" STRVALUE="xy"/>)"), "0 0 0 0 0 0 xy......");
}

TEST(DecodeChannels, TakesTheFoundContainersChildrenByPositionUpToTheChannelCount) {
    const Xml section(R"(<stVideoMirror><other/><stVideoMirrorPara><VChn_3 usLevel="10"/><VChn_0 usLevel="11"/>)"
                      R"(<Other usLevel="12"/></stVideoMirrorPara></stVideoMirror>)");
    testing::internal::CaptureStdout();
    const TiXmlElement* container = FindContainer(section.Root(), "stVideoMirrorPara", "Import_stVideoMirror");
    EXPECT_EQ(FindContainer(section.Root(), "stAlarmInIO", "Import_stAlarmIn"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "CConfig_Task::Import_stAlarmIn, pVariElement.FirstChildElement failed.\n");
    ASSERT_NE(container, nullptr);
    Entries<8> channels;
    ASSERT_TRUE(DecodeChannels(*container, kEntryFields, channels.slots).Succeeded());
    EXPECT_EQ(channels.Levels(), (std::vector<int>{10, 11, 12, -1, -1, -1, -1, -1, -1}));

    std::string ten = "<c>";
    for (int i = 0; i < 10; ++i) ten += "<VChn_" + std::to_string(i) + " usLevel=\"" + std::to_string(100 + i) + "\"/>";
    ASSERT_TRUE(DecodeChannels(Xml(ten + "</c>").Root(), kEntryFields, channels.slots).Succeeded());
    EXPECT_EQ(channels.Levels(), (std::vector<int>{100, 101, 102, 103, 104, 105, 106, 107, -1}));
}

TEST(DecodeIndexedChildren, NumbersEntriesByTheDigitsAfterTheFirstUnderscoreUpToTheLimit) {
    // "IO_3" and "-1" start with no digit: entry 0. Reaching the limit ends decoding, and is no fault.
    Entries<16> alarms;
    const Xml alarmIO(R"(<c><AlarmIO_11 usLevel="11"/><Alarm_IO_3 usLevel="3"/><AlarmIO_2x usLevel="2"/>)"
                      R"(<AlarmIO_-1 usLevel="100"/><AlarmIO_12 usLevel="12"/><AlarmIO_5 usLevel="5"/></c>)");
    EXPECT_TRUE(DecodeIndexedChildren(alarmIO.Root(), IndexSuffix::AtLeastOneCharacter, 12, kEntryFields, alarms.slots)
                    .Succeeded());
    EXPECT_EQ(alarms.Levels(), (std::vector<int>{100, -1, 2, -1, -1, -1, -1, -1, -1, -1, -1, 11, -1, -1, -1, -1, -1}));

    // The limit never reaches beyond the array, and a long number cannot overflow.
    Entries<2> ports;
    const Xml serial(R"(<c><Item_1 usLevel="1"/><Item_2 usLevel="2"/></c>)");
    EXPECT_TRUE(DecodeIndexedChildren(serial.Root(), IndexSuffix::ExactlyOneCharacter, 9, kEntryFields, ports.slots)
                    .Succeeded());
    const Xml huge(R"(<c><Item_99999999999999999999999 usLevel="7"/><Item_0 usLevel="7"/></c>)");
    EXPECT_TRUE(
        DecodeIndexedChildren(huge.Root(), IndexSuffix::AtLeastOneCharacter, SIZE_MAX, kEntryFields, ports.slots)
            .Succeeded());
    EXPECT_EQ(ports.Levels(), (std::vector<int>{-1, 1, -1}));
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
        // The entries read before a malformed name are kept.
        const std::vector<int> levels = c.status == DecodeStatus::Decoded ? std::vector<int>{2, 3, -1, -1, -1}
                                                                          : std::vector<int>{1, -1, -1, -1, -1};
        EXPECT_EQ(entries.Levels(), levels);
    }
}
