#include <gtest/gtest.h>

#include <string>

#include "protocol/Envelope.h"

using namespace varcfg;

namespace {

using Check = int (*)(const char*);

int CheckQuery(const char* reply) { return QueryReply().Check(reply); }

// Runs a check and returns what it printed; result receives its result.
std::string Printed(Check check, const char* reply, int& result) {
    testing::internal::CaptureStdout();
    result = check(reply);
    return testing::internal::GetCapturedStdout();
}

constexpr char kNoQueryRoot[] = "CDlgCfgBase::GetParaValue, xmlDoc.FirstChildElement[VariCfgSec] failed.\n";
constexpr char kNoSettingRoot[] = "CConfig_Task::ParseResponseMsgResult, xmlDoc.FirstChildElement failed.\n";
constexpr char kNoPlatformElement[] = "CConfig_Task::ParseResponseKOVMsgResult, xmlDoc.FirstChildElement failed.\n";
constexpr char kSettingNotOne[] = "CConfig_Task::ParseResponseMsgResult, Result is not 1.\n";

}  // namespace

TEST(QueryText, LeavesTheSectionElementOpenExceptForTheVersionQuery) {
    EXPECT_EQ(QueryText("stPower"), "<VariCfgSec Action=\"DEVICE_QUERY\"><stPower></VariCfgSec>");
    EXPECT_STREQ(kVersionQueryText, "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>");
}

TEST(ReplyChecks, AcceptSilently) {
    const struct {
        Check check;
        const char* reply;
    } accepted[] = {
        {CheckQuery, R"(<VariCfgSec Action="any"><stPower/></VariCfgSec>)"},  // no Result needed
        {CheckQuery, R"(<Other/><VariCfgSec Action="" Result="0">text<x/></VariCfgSec>)"},
        {CheckSettingReply, R"(<VariCfgSec Action="DEVICE_SET" Result="1"/>)"},
        {CheckSettingReply, R"(<Other/><VariCfgSec Action="DEVICE_TIME" Status="1" Result="0"/>)"},
        {CheckPlatformReply, R"(<Parameter><NETWORK_SET Action="set" Result="1"/></Parameter>)"},
        {CheckPlatformReply, R"(<A><B Action="x" Other="1"/><C/></A>)"},
        // Replies are code-page text whatever they declare; a byte-order mark is skipped.
        {CheckQuery, "<?xml version=\"1.0\" encoding=\"UTF-8\"?><VariCfgSec Action=\"q\"><stCarInfo "
                     "strFD_LicensePlate=\"\xBE\xA9\xE0\"/></VariCfgSec>"},
        {CheckSettingReply, "\xEF\xBB\xBF<VariCfgSec Action=\"DEVICE_SET\" Result=\"1\"/>"},
    };
    for (const auto& c : accepted) {
        SCOPED_TRACE(c.reply);
        int result = -2;
        EXPECT_EQ(Printed(c.check, c.reply, result), "");
        EXPECT_EQ(result, 0);
    }
}

TEST(ReplyChecks, RefuseWithTheLineOfTheFailingStep) {
    const struct {
        Check check;
        const char* reply;
        const char* line;
    } refused[] = {
        {CheckQuery, R"(<variCfgSec Action="x"><s/></variCfgSec>)", kNoQueryRoot},
        {CheckQuery, R"(<VariCfgSec><s/></VariCfgSec>)", "CDlgCfgBase::GetParaCmdType, get first pAttribute failed.\n"},
        {CheckQuery, R"(<VariCfgSec Result="1" Action="x"><s/></VariCfgSec>)",
         "CDlgCfgBase::GetParaCmdType, first attribute name is not Action.\n"},
        {CheckQuery, R"(<VariCfgSec action="x"><s/></VariCfgSec>)",
         "CDlgCfgBase::GetParaCmdType, first attribute name is not Action.\n"},
        {CheckQuery, R"(<VariCfgSec Action="x" Result="1">text</VariCfgSec>)",
         "CNetCtrl::GetParaValue,  get paraElement failed.\n"},

        {CheckSettingReply, R"(<Parameter Action="x" Result="1"/>)", kNoSettingRoot},
        {CheckSettingReply, "<VariCfgSec/>", "CConfig_Task::ParseResponseMsgResult, get first pAttribute failed.\n"},
        {CheckSettingReply, R"(<VariCfgSec Result="1" Action="x"/>)",
         "CConfig_Task::ParseResponseMsgResult, first attribute name is not Action.\n"},
        {CheckSettingReply, R"(<VariCfgSec action="x" Result="1"/>)",
         "CConfig_Task::ParseResponseMsgResult, first attribute name is not Action.\n"},
        {CheckSettingReply, R"(<VariCfgSec Action="x"><Result/></VariCfgSec>)",
         "CConfig_Task::ParseResponseMsgResult, get Result pAttribute failed.\n"},
        {CheckSettingReply, R"(<VariCfgSec Action="x" Result="0"/>)", kSettingNotOne},
        {CheckSettingReply, R"(<VariCfgSec Action="x" Result="11"/>)", kSettingNotOne},
        {CheckSettingReply, R"(<VariCfgSec Action="x" Result=" 1"/>)", kSettingNotOne},
        {CheckSettingReply, R"(<VariCfgSec Action="x" Other="0" Result="1"/>)", kSettingNotOne},

        {CheckPlatformReply, R"(<Parameter Action="set" Result="1">text</Parameter>)", kNoPlatformElement},
        {CheckPlatformReply, R"(<P Action="set" Result="1"><N/></P>)",  // the outer attributes do not count
         "CConfig_Task::ParseResponseKOVMsgResult, get first pAttribute failed.\n"},
        {CheckPlatformReply, R"(<P><N ACTION="set" Result="1"/></P>)",
         "CConfig_Task::ParseResponseKOVMsgResult, first attribute name is not Action.\n"},
        {CheckPlatformReply, R"(<P><N Action="set"/></P>)",
         "CConfig_Task::ParseResponseKOVMsgResult, get Result pAttribute failed.\n"},
        {CheckPlatformReply, R"(<P><N Action="set" Result="11"/></P>)",
         "CConfig_Task::ParseResponseKOVMsgResult, Result is not 1.\n"},
    };
    for (const auto& c : refused) {
        SCOPED_TRACE(c.reply);
        int result = 0;
        EXPECT_EQ(Printed(c.check, c.reply, result), c.line);
        EXPECT_EQ(result, -1);
    }
}

TEST(ReplyChecks, RefuseUnparsableTextAtTheFirstStep) {
    // TinyXML keeps the elements it read before a fault: that must not pass for a reply.
    for (const char* text : {"", "garbage", R"(<VariCfgSec Action="x" Result="1">)",
                             R"(<VariCfgSec Action="x" Result="1"><P><N Action="x" Result="1"/></VariCfgSec>)",
                             R"(<VariCfgSec Action="x" Result="1" Result="1"/>)"}) {
        SCOPED_TRACE(text);
        int result = 0;
        EXPECT_EQ(Printed(CheckQuery, text, result), kNoQueryRoot);
        EXPECT_EQ(Printed(CheckSettingReply, text, result), kNoSettingRoot);
        EXPECT_EQ(Printed(CheckPlatformReply, text, result), kNoPlatformElement);
        EXPECT_EQ(result, -1);
    }
}

TEST(QueryReply, YieldsTheFirstChildAndForgetsItOnTheNextCheck) {
    QueryReply reply;
    ASSERT_EQ(reply.Check(std::string(R"(<VariCfgSec Action="x"><stPower a="1"/><stOther/></VariCfgSec>)")), 0);
    ASSERT_NE(reply.Section(), nullptr);
    EXPECT_STREQ(reply.Section()->Value(), "stPower");
    EXPECT_STREQ(reply.Section()->Attribute("a"), "1");

    testing::internal::CaptureStdout();
    EXPECT_EQ(reply.Check("<Other/>"), -1);
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(reply.Section(), nullptr);
}
