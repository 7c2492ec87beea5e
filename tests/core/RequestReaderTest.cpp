#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "RequestReader.h"

using varcfg::sim::ReadRequest;
using varcfg::sim::RequestElement;

namespace {

// A compact picture of a tree: name(attribute=value,...)[child child ...].
std::string Outline(const RequestElement& element) {
    std::string text = element.name;
    if (!element.attributes.empty()) {
        text += '(';
        for (std::size_t i = 0; i < element.attributes.size(); ++i) {
            if (i > 0) text += ',';
            text += element.attributes[i].name + '=' + element.attributes[i].value;
        }
        text += ')';
    }
    if (!element.children.empty()) {
        text += '[';
        for (std::size_t i = 0; i < element.children.size(); ++i) {
            if (i > 0) text += ' ';
            text += Outline(element.children[i]);
        }
        text += ']';
    }
    return text;
}

std::string OutlineOf(const std::string& text) {
    const std::optional<RequestElement> root = ReadRequest(text);
    return root ? Outline(*root) : "unreadable";
}

}  // namespace

TEST(ReadRequest, ReadsTheFormsThePanelSendsAsTheRecorderMeansThem) {
    const struct {
        const char* text;
        const char* outline;
    } forms[] = {
        {R"(<VariCfgSec Action="DEVICE_QUERY"><stAlarmIn StartChn="4"></VariCfgSec>)",
         "VariCfgSec(Action=DEVICE_QUERY)[stAlarmIn(StartChn=4)]"},
        {R"(<VariCfgSec Action="DEVICE_SET"><stRecord uiFD_PreRecordTime="10" ucFD_AlarmRecordType="1"><VariCfgSec>)",
         "VariCfgSec(Action=DEVICE_SET)[stRecord(uiFD_PreRecordTime=10,ucFD_AlarmRecordType=1)]"},
        {R"(<VariCfgSec Action="DEVICE_SET"><stGSensor ReCalibrate="1"/><VariCfgSec><stPower a="1"/>)",
         "VariCfgSec(Action=DEVICE_SET)[stGSensor(ReCalibrate=1)]"},
        {R"(<VariCfgSec Action="DEVICE_SET"><stWifiAp strFD_SSID="a" ucFD_CryptType="1" /> /></VariCfgSec>)",
         "VariCfgSec(Action=DEVICE_SET)[stWifiAp(strFD_SSID=a,ucFD_CryptType=1)]"},
        {"<VariCfgSec Action=\"DEVICE_SET\"><stBaseInfo ucFD_GpsSTFlag=\"1\"  \t\t\tucFD_DstEnable=\"0\" "
         "\t\t\tucFD_DstToDay=\"4\" /></VariCfgSec>",
         "VariCfgSec(Action=DEVICE_SET)[stBaseInfo(ucFD_GpsSTFlag=1,ucFD_DstEnable=0,ucFD_DstToDay=4)]"},
        // The container opened again, and an end tag of an element never opened.
        {R"(<VariCfgSec Action="DEVICE_SET"><stSerial StartChn="0"><stSerialChnPara><SerialChn_0 ucParity="e">)"
         R"(</SerialChn_0><stSerialChnPara></stAlarmLinkage></VariCfgSec>)",
         "VariCfgSec(Action=DEVICE_SET)[stSerial(StartChn=0)[stSerialChnPara[SerialChn_0(ucParity=e)]]]"},
        {R"(<VariCfgSec Action="DEVICE_SET"><stVideoMirror><stVideoMirrorPara><VChn_0 a="1" /></stVideoMirrorPara></VariCfgSec>)",
         "VariCfgSec(Action=DEVICE_SET)[stVideoMirror[stVideoMirrorPara[VChn_0(a=1)]]]"},
        {R"(<VariCfgSec Action="DEVICE_SET"><stUserSec strFD_NormalPasswd="1>2" strFD_AdminPasswd='3"4'></VariCfgSec>)",
         "VariCfgSec(Action=DEVICE_SET)[stUserSec(strFD_NormalPasswd=1>2,strFD_AdminPasswd=3\"4)]"},
        {"<?xml version=\"1.0\"?> <!-- a note --> text <Parameter><NETWORK_SET Action=\"set\"a=\"1\"/></Parameter>",
         "Parameter[NETWORK_SET(Action=set,a=1)]"},
    };
    for (const auto& form : forms) {
        SCOPED_TRACE(form.text);
        EXPECT_EQ(OutlineOf(form.text), form.outline);
    }
}

TEST(ReadRequest, RefusesTextItCannotRead) {
    const std::string tooDeep = "<a><b><c><d><e><f><g><h><i>";
    std::string tooMany = "<a>";
    for (int i = 0; i < 600; ++i) tooMany += "<b/>";
    for (const std::string& text :
         {std::string(), std::string("no element at all"), std::string(R"(<VariCfgSec Action="DEVICE_SET")"),
          std::string(R"(<VariCfgSec Action=DEVICE_SET>)"), std::string(R"(<VariCfgSec Action>)"),
          std::string(R"(<VariCfgSec Action="x><a/>)"), std::string("<1st/>"), std::string("< a/>"),
          std::string("<!DOCTYPE a><a/>"), std::string("<!-- never ends <a/>"), std::string("<? never ends"),
          std::string("<a></ b>"), tooDeep, tooMany}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(ReadRequest(text).has_value());
    }
    EXPECT_TRUE(ReadRequest(tooDeep.substr(0, tooDeep.size() - 3)).has_value());
}
