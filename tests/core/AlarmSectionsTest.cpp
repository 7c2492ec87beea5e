// The alarm sections whose entries are numbered children, and the motion mask text.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <tinyxml.h>

#include "protocol/AlarmSections.h"

using namespace varcfg;

namespace {

const TiXmlElement& Parse(TiXmlDocument& document, const std::string& text) {
    document.Parse(text.c_str());
    return *document.FirstChildElement();
}

}  // namespace

TEST(AlarmSections, InputsAreTakenByTheirNumberUntilOneIsTooLargeOrMalformed) {
    struct Case {
        const char* name;
        const char* children;
        bool decoded;
        int function3;   // input 3's function after decoding
        int function11;  // input 11's
    };
    const Case cases[] = {
        {"by number, not by position", R"(<AlarmIO_11 ucIOFunc="7"/><AlarmIO_3 ucIOFunc="5"/>)", true, 5, 7},
        {"a number of 12 ends the list, keeping what came before",
         R"(<AlarmIO_3 ucIOFunc="5"/><AlarmIO_12 ucIOFunc="9"/><AlarmIO_11 ucIOFunc="7"/>)", true, 5, 0},
        {"a name with nothing after its underscore fails the section",
         R"(<AlarmIO_3 ucIOFunc="5"/><AlarmIO_ ucIOFunc="9"/><AlarmIO_11 ucIOFunc="7"/>)", false, 5, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TiXmlDocument document;
        auto record = std::make_unique<AlarmInRecord>();
        const TiXmlElement& section =
            Parse(document, std::string(R"(<stAlarmIn ucVideoLostAlarm="1"><stAlarmInIO>)") + c.children +
                                "</stAlarmInIO></stAlarmIn>");
        EXPECT_EQ(DecodeAlarmIn(section, *record), c.decoded);
        EXPECT_EQ(record->videoLostAlarm, 1);
        EXPECT_EQ(record->inputs[3].function, c.function3);
        EXPECT_EQ(record->inputs[11].function, c.function11);
    }
}

TEST(AlarmSections, LinkageItemsCarryTheirOutputAndBothViewAttributesFillOneChannel) {
    TiXmlDocument document;
    auto record = std::make_unique<AlarmLinkageRecord>();
    const TiXmlElement& section = Parse(document, R"(<stAlarmLinkage><stAlarmLinkageItem>)"
                                                  R"(<AlarmLinkageItem_27 usAlarmSnapCh="770" ucViewChnNo="2" usViewChnNo="3">)"
                                                  R"(<stAlarmOutIO ucIOLevel="1" ucIOFunc="4"/></AlarmLinkageItem_27>)"
                                                  R"(<AlarmLinkageItem_31 usAlarmRecordCh="15"/>)"
                                                  R"(<AlarmLinkageItem_32 usAlarmRecordCh="99"/>)"
                                                  R"(</stAlarmLinkageItem></stAlarmLinkage>)");
    ASSERT_TRUE(DecodeAlarmLinkage(section, *record));
    EXPECT_EQ(record->items[27].snapshotWord, 770);
    EXPECT_EQ(record->items[27].viewChannel, 3) << "the later of the two view attributes wins";
    EXPECT_EQ(record->items[27].output.level, 1);
    EXPECT_EQ(record->items[27].output.function, 4);
    EXPECT_EQ(record->items[31].recordChannels, 15);
    EXPECT_EQ(record->items[0].recordChannels, 0);
}

TEST(AlarmSections, MaskRowsReadUpToTheLastCommaAndWriteBackTheSame) {
    uint32_t rows[32] = {};
    ParseMaskRows("1023,-1,0,5,77", rows);
    EXPECT_EQ(rows[0], 1023u);
    EXPECT_EQ(rows[1], 0xFFFFFFFFu);
    EXPECT_EQ(rows[3], 5u);
    EXPECT_EQ(rows[4], 0u) << "text after the last comma is not read";
    EXPECT_EQ(MaskText(rows).substr(0, 15), "1023,-1,0,5,0,0");

    uint32_t stopped[32] = {};
    ParseMaskRows("3,12345678901234567,4,", stopped);
    EXPECT_EQ(stopped[0], 3u);
    EXPECT_EQ(stopped[1], 0u) << "a piece longer than 16 characters stops the reading";
    EXPECT_EQ(stopped[2], 0u);

    uint32_t back[32] = {};
    ParseMaskRows(MaskText(rows).c_str(), back);
    EXPECT_EQ(std::string(MaskText(back)), MaskText(rows));
}
