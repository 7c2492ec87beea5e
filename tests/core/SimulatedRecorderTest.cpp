#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <tinyxml.h>

#include "HostCallback.h"
#include "SimulatedRecorder.h"
#include "TemporaryFolder.h"
#include "protocol/ConfigTask.h"
#include "protocol/Envelope.h"
#include "protocol/IpText.h"
#include "protocol/ModelTable.h"

using varcfg::sim::Faults;
using varcfg::sim::SimulatedRecorder;

namespace {

// Eight channels, six alarm inputs, two alarm outputs, three serial ports.
constexpr char kLargeModel[] = "MR8-Q2";

std::string QueryText(const std::string& section, int startChannel = -1) {
    if (startChannel < 0) return varcfg::QueryText(section);
    return "<VariCfgSec Action=\"DEVICE_QUERY\"><" + section + " StartChn=\"" + std::to_string(startChannel) +
           "\"></VariCfgSec>";
}

// The setting requests of every page by what they set, formatted as the pages format them, deliberate
// faults included.
const std::map<std::string, std::string>& PageSettings() {
    static const std::map<std::string, std::string> settings = {
        {"network mode", R"(<VariCfgSec Action="DEVICE_SET"><stNetWorkMode ucFD_NetType="1" usFD_GPSInterval="15" /></VariCfgSec>)"},
        {"808 link", R"(<VariCfgSec Action="DEVICE_SET"><stNetWorkMode ucFD_EnableHR808="1" /></VariCfgSec>)"},
        {"local ethernet", R"(<VariCfgSec Action="DEVICE_SET"><stLocalEth0 ucFD_DhcpEnableFlag="0" uiFD_LocalIp="10.0.0.5" uiFD_NetMask="255.255.0.0" uiFD_GateWay="10.0.0.1" strFD_Mac="00:11:22:33:44:55" /></VariCfgSec>)"},
        {"mobile network", R"(<VariCfgSec Action="DEVICE_SET"><stMobileGNet ucFD_NetType="2" strFD_Apn="cmnet" strFD_PhoneNo="*99***1#" strFD_UserName="card" strFD_UserPasswd="card" /></VariCfgSec>)"},
        {"wifi client", R"(<VariCfgSec Action="DEVICE_SET"><stWifi ucFD_WorkMode="1" strFD_SSID="depot" strFD_Passwd="secret12" ucFD_AuthMode="2" ucFD_CryptType="1" ucFD_DhcpEnableFlag="1" uiFD_IP="192.168.10.7" uiFD_NetMask="255.255.255.0" uiFD_GateWay="192.168.10.1" /></VariCfgSec>)"},
        {"wifi access point mode", R"(<VariCfgSec Action="DEVICE_SET"><stWifi ucFD_WorkMode="2" /></VariCfgSec>)"},
        {"wifi access point", R"(<VariCfgSec Action="DEVICE_SET"><stWifiAp strFD_SSID="bus-17" strFD_Passwd="" ucFD_AuthMode="100" ucFD_CryptType="-1" /> /></VariCfgSec>)"},
        {"centre server", R"(<Parameter><NETWORK_SET Action="set" DevIDNO="BUS0017"  CenterIP_0="fleet.example.com" ContrlPort_0="7000" /></Parameter>)"},
        {"808 vehicle", R"(<VariCfgSec Action="DEVICE_SET"><stCarInfo strFD_Phonenumber="013800138000" strFD_ProvincialId="44" strFD_CityDomainId="300" strFD_CarColors="2" strFD_TerminalID="T1234567" strFD_CarVIN="LSVAU2180N2183294" strFD_TerminalType="MR8" strFD_DeviceNum="D0001" strFD_CarType="bus" strFD_FacturerID="70001" strFD_DrivingLicense="DL-42" /></VariCfgSec>)"},
        {"808 server 1", R"(<VariCfgSec Action="DEVICE_SET"><st808CMS1 ucFD_AddressType="0" uiFD_IP="203.0.113.5" strFD_Domain="" usFD_Port="7611" /></VariCfgSec>)"},
        {"808 server 2", R"(<VariCfgSec Action="DEVICE_SET"><st808CMS2 ucFD_AddressType="1" uiFD_IP="0.0.0.0" strFD_Domain="jt808.example.com" usFD_Port="7612" /></VariCfgSec>)"},
        {"ptt", R"(<VariCfgSec Action="DEVICE_SET"><stPtt ucFD_Enable="1" usFD_GroupNo="12" /></VariCfgSec>)"},
        {"ptt centre", R"(<VariCfgSec Action="DEVICE_SET"><stPttDcn ucFD_AddressType="0" uiFD_IP="198.51.100.9" usFD_Port="5060" /></VariCfgSec>)"},
        // The mode 4X1080P (0xFFFF2222) arrives through %d as a negative number.
        {"main stream pair", R"(<VariCfgSec Action="DEVICE_SET"><stMainStream ucFD_VideoMode="1" uiFD_VideoFmt="-56798" ucFD_VEncFormat="1" StartChn="2"><stVideoPara><VChn_2 ucFD_Resolution="5" ucFD_FrameRate="30" uiFD_BitRate="2048" uiFD_DisableAudio="1" uiFD_DisableVideo="0" /><VChn_3 ucFD_Resolution="6" ucFD_FrameRate="15" uiFD_BitRate="8192" uiFD_DisableAudio="0" uiFD_DisableVideo="1" /></stVideoPara></stMainStream></VariCfgSec>)"},
        {"camera types", R"(<VariCfgSec Action="DEVICE_SET"><stMainStream uiFD_VideoFmt="34"></stMainStream></VariCfgSec>)"},
        {"sub stream", R"(<VariCfgSec Action="DEVICE_SET"><stSubStream ucFD_EncodeMode="3" ucFD_Resolution="2" ucFD_Quality="2" ucFD_FrameRate="25" uiFD_BitRate="1024" /></VariCfgSec>)"},
        {"osd", R"(<VariCfgSec Action="DEVICE_SET"><stOSD ucFD_DeviceNoEnable="0" ucFD_ChnNameEnable="0" ucFD_TimeEnable="1" ucFD_GPSEnable="0" ucFD_LPlateEnable="0" ucFD_SpeedEnable="1" ucFD_TempEnable="1" ucFD_IOEnable="1" ucFD_GSensorEnable="1" /></VariCfgSec>)"},
        {"mirror", R"(<VariCfgSec Action="DEVICE_SET"><stVideoMirror><stVideoMirrorPara><VChn_0 ucFD_LeftRight="1" ucFD_UpDown="0" /><VChn_1 ucFD_LeftRight="0" ucFD_UpDown="1" /><VChn_2 ucFD_LeftRight="0" ucFD_UpDown="0" /><VChn_3 ucFD_LeftRight="0" ucFD_UpDown="0" /><VChn_4 ucFD_LeftRight="0" ucFD_UpDown="0" /><VChn_5 ucFD_LeftRight="0" ucFD_UpDown="0" /><VChn_6 ucFD_LeftRight="0" ucFD_UpDown="0" /><VChn_7 ucFD_LeftRight="1" ucFD_UpDown="1" /></stVideoMirrorPara></VariCfgSec>)"},
        {"alarm record", R"(<VariCfgSec Action="DEVICE_SET"><stRecord uiFD_PreRecordTime="60" uiFD_AlarmRecordTime="5" ucFD_AlarmRecordType="1"><VariCfgSec>)"},
        {"alarm inputs", R"(<VariCfgSec Action="DEVICE_SET"><stAlarmIn StartChn="4"><stAlarmInIO><AlarmIO_4 ucIOEnable="1" ucIOLevel="1" ucIOFunc="25" /><AlarmIO_5 ucIOEnable="0" ucIOLevel="0" ucIOFunc="3" /></stAlarmInIO></stAlarmIn></VariCfgSec>)"},
        {"alarm outputs", R"(<VariCfgSec Action="DEVICE_SET"><stAlarmLinkage StartChn="0"><stAlarmLinkageItem><AlarmLinkageItem_0><stAlarmOutIO ucIOEnable="1" ucIOLevel="1" ucIOFunc="6"></stAlarmOutIO></AlarmLinkageItem_0><AlarmLinkageItem_1><stAlarmOutIO ucIOEnable="1" ucIOLevel="0" ucIOFunc="2"></stAlarmOutIO></AlarmLinkageItem_1></stAlarmLinkageItem></stAlarmLinkage></VariCfgSec>)"},
        {"alarm linkage", R"(<VariCfgSec Action="DEVICE_SET"><stAlarmLinkage StartChn="30"><stAlarmLinkageItem><AlarmLinkageItem_30 usAlarmRecordCh="5" usAlarmSendCh="1" usAlarmSnapCh="773"  usViewChnNo="8" ucViewChnNo="8"></AlarmLinkageItem_30><AlarmLinkageItem_31 usAlarmRecordCh="0" usAlarmSendCh="0" usAlarmSnapCh="0"  usViewChnNo="0" ucViewChnNo="0"></AlarmLinkageItem_31></stAlarmLinkageItem></stAlarmLinkage></VariCfgSec>)"},
        {"motion detection", R"(<VariCfgSec Action="DEVICE_SET"><stVda StartChn="3"><stVdaPara><VChn_3 ucFD_Enable="1" ucFD_Wday1="62" uiStartT1="28800" uiEndT1="64800" ucFD_Wday2="0" uiStartT2="0" uiEndT2="0" ucFD_Wday3="1" uiStartT3="0" uiEndT3="82800" ucFD_Percent="2" uiFD_Mask="1023,1023,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"></VChn_3></stVdaPara></stVda></VariCfgSec>)"},
        {"g-sensor", R"(<VariCfgSec Action="DEVICE_SET"><stGSensor ucFD_AlarmEnable="1" fFD_RAccel="0.250000" fFD_RDecel="0.500000" fFD_Crash="2.000000" fFD_Swerve="0.400000" fFD_TrunOver="60.000000" fFD_X="-0.125000" fFD_XLimit="1.000000" fFD_Y="0.000000" fFD_YLimit="1.000000" fFD_Z="0.980000" fFD_ZLimit="1.500000" /><VariCfgSec>)"},
        {"recalibrate", R"(<VariCfgSec Action="DEVICE_SET"><stGSensor ReCalibrate="1"/><VariCfgSec>)"},
        {"serial port", R"(<VariCfgSec Action="DEVICE_SET"><stSerial StartChn="2"><stSerialChnPara><SerialChn_2 ucFD_DataMode="43" uiBaudRate="115200" ucDataBit="7"  ucStopBit="2" ucParity="o"></SerialChn_2><stSerialChnPara></stAlarmLinkage></VariCfgSec>)"},
        {"ptz", R"(<VariCfgSec Action="DEVICE_SET"><stChnPtz StartChn="1"><stChnPtzPara><VChn_0 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="0"></VChn_0><VChn_1 usPtzAddress="5" ucPtzProtocol="0" ucSerialIndex="1"></VChn_1><VChn_2 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="2"></VChn_2><VChn_3 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="3"></VChn_3><VChn_4 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="4"></VChn_4><VChn_5 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="5"></VChn_5><VChn_6 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="6"></VChn_6><VChn_7 usPtzAddress="1" ucPtzProtocol="1" ucSerialIndex="7"></VChn_7><stChnPtzPara></stChnPtz></VariCfgSec>)"},
        {"time zone", "<VariCfgSec Action=\"DEVICE_SET\"><stBaseInfo ucFD_TimeZone=\"20\" ucFD_TZAdjust=\"30\" ucFD_GpsSTFlag=\"0\"  "
         "\t\t\tucFD_DstEnable=\"1\" usFD_DstAdjust=\"4\" ucFD_DstFromMon=\"2\" ucFD_DstFromDay=\"4\" ucFD_DstToMon=\"9\" "
         "\t\t\tucFD_DstToDay=\"4\" /></VariCfgSec>"},
        {"power", R"(<VariCfgSec Action="DEVICE_SET"><stPower ucPOnDelayEnable="1" usPOffDelayTime="65535" /></VariCfgSec>)"},
        {"format disk", R"(<VariCfgSec Action="DEVICE_FORMAT"><stDisk DiskNo="3"></VariCfgSec>)"},
        {"clock", R"(<VariCfgSec Action="DEVICE_TIME"><stTime strTime="2024-02-29 23:59:58"></VariCfgSec>)"},
        {"speed alarms", R"(<VariCfgSec Action="DEVICE_SET"><stSpeedAlarm ucFD_LowSpeedIsEnable="1" ucFD_LowSpeedUnit="1" usFD_LowSpeed="20" usFD_ClearLowSpeed="25" usFD_LowDurTime="30" ucFD_OverSpeedIsEnable="1" ucFD_OverSpeedUnit="2" usFD_OverSpeed="200" usFD_ClearOverSpeed="180" usFD_OverDurTime="5" ucFD_PeakingIsEnable="1" ucFD_TimeUnit="0" uiFD_OverTime="3600" usFD_OverTime="3600" ucFD_FatigueEnable="1" usFD_DrivingTime="30" usFD_RestTime="15" /></VariCfgSec>)"},
        // A plate in the ANSI code page, with characters a reply must escape; the panel sends them raw.
        {"licence plate", "<VariCfgSec Action=\"DEVICE_SET\"><stCarInfo strFD_LicensePlate=\"\xD4\xC1" "B-12<3>&\" /></VariCfgSec>"},
        {"passwords", R"(<VariCfgSec Action="DEVICE_SET"><stUserSec ucFD_PWEnableFlag="1" strFD_NormalPasswd="123456" strFD_AdminPasswd="654321"></VariCfgSec>)"},
    };
    return settings;
}

const std::string& Setting(const char* what) { return PageSettings().at(what); }

// Whether the panel's own reply check takes the reply; its refusal lines are not shown.
bool Accepted(const std::optional<std::string>& reply, bool platformMessage) {
    if (!reply) return false;
    testing::internal::CaptureStdout();
    const int result = platformMessage ? varcfg::CheckPlatformReply(*reply) : varcfg::CheckSettingReply(*reply);
    testing::internal::GetCapturedStdout();
    return result == 0;
}

bool Set(SimulatedRecorder& recorder, const std::string& request) {
    return Accepted(recorder.Handle(request), request.rfind("<Parameter>", 0) == 0);
}

// A query reply that has passed the panel's query check.
class Section {
public:
    Section(SimulatedRecorder& recorder, const std::string& query) {
        const std::optional<std::string> text = recorder.Handle(query);
        testing::internal::CaptureStdout();
        accepted_ = text && reply_.Check(*text) == 0;
        testing::internal::GetCapturedStdout();
    }

    bool Accepted() const { return accepted_; }
    const TiXmlElement* Element() const { return reply_.Section(); }

    // An attribute of the element reached by a path of child names below the section ("" for the section).
    std::string Value(const std::string& path, const char* attribute) const {
        const TiXmlElement* element = Element();
        std::istringstream names(path);
        for (std::string name; element != nullptr && std::getline(names, name, '/');) {
            element = element->FirstChildElement(name);
        }
        const char* value = element != nullptr ? element->Attribute(attribute) : nullptr;
        return value != nullptr ? value : "<missing>";
    }

    // The names of the numbered children in the section's container.
    std::vector<std::string> ChildNames() const {
        std::vector<std::string> names;
        const TiXmlElement* container = Element() != nullptr ? Element()->FirstChildElement() : nullptr;
        for (const TiXmlElement* child = container != nullptr ? container->FirstChildElement() : nullptr;
             child != nullptr; child = child->NextSiblingElement()) {
            names.push_back(child->Value());
        }
        return names;
    }

private:
    varcfg::QueryReply reply_;
    bool accepted_ = false;
};

using Names = std::vector<std::string>;

// A folder of its own for one test, removed afterwards.
std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace

TEST(SimulatedRecorder, AcceptsEverySettingThePanelSendsAndShowsItInRepliesThePanelReads) {
    SimulatedRecorder recorder(kLargeModel);
    for (const auto& [what, request] : PageSettings()) EXPECT_TRUE(Set(recorder, request)) << what;

    const struct {
        const char* section;
        int startChannel;
        const char* path;
        const char* attribute;
        const char* expected;
    } kept[] = {
        {"stWifiAp", -1, "", "ucFD_CryptType", "255"},  // -1 for an open network, kept in one byte
        {"stMainStream", 2, "stVideoPara/VChn_3", "uiFD_DisableVideo", "1"},
        {"stAlarmIn", 4, "stAlarmInIO/AlarmIO_4", "ucIOFunc", "25"},
        {"stAlarmLinkage", 0, "stAlarmLinkageItem/AlarmLinkageItem_0/stAlarmOutIO", "ucIOFunc", "6"},
        {"stAlarmLinkage", 30, "stAlarmLinkageItem/AlarmLinkageItem_30", "usViewChnNo", "8"},
        {"stVda", 3, "stVdaPara/VChn_3", "uiFD_Mask", "1023,1023,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"},
        {"stGSensor", -1, "", "fFD_X", "-0.125000"},
        {"stSerial", -1, "stSerialChnPara/SerialChn_2", "ucParity", "111"},  // a number, as the panel expects
        {"stBaseInfo", -1, "", "strFD_CurTime", "2024-02-29 23:59:58"},
        {"stCarInfo", -1, "", "strFD_LicensePlate", "\xD4\xC1" "B-12<3>&"},
    };
    for (const auto& value : kept) {
        SCOPED_TRACE(std::string(value.section) + " " + value.path + " " + value.attribute);
        EXPECT_EQ(Section(recorder, QueryText(value.section, value.startChannel)).Value(value.path, value.attribute),
                  value.expected);
    }

    // The panel's own decoder reads the centre server, by domain name and by IP.
    varcfg::ServerRecord server = {};
    const Section byName(recorder, QueryText("stCMS"));
    ASSERT_TRUE(byName.Accepted() && CConfig_Task::Import_stCMS(*byName.Element(), server));
    EXPECT_EQ(server.addressType, 1);
    EXPECT_STREQ(server.domain, "fleet.example.com");
    EXPECT_EQ(server.port, 7000);
    ASSERT_TRUE(Set(recorder, R"(<Parameter><NETWORK_SET Action="set" DevIDNO="BUS0018"  CenterIP_0="203.0.113.80" )"
                              R"(ContrlPort_0="6608" /></Parameter>)"));
    const Section byIp(recorder, QueryText("stCMS"));
    ASSERT_TRUE(byIp.Accepted() && CConfig_Task::Import_stCMS(*byIp.Element(), server));
    EXPECT_EQ(server.addressType, 0);
    EXPECT_EQ(varcfg::DottedIp(server.ip), "203.0.113.80");
    EXPECT_EQ(Section(recorder, QueryText("stBaseInfo")).Value("", "strFD_DeviceNo"), "BUS0018");
}

TEST(SimulatedRecorder, RefusesWhatARecorderCannotHoldAndKeepsItsSettings) {
    SimulatedRecorder recorder(kLargeModel);
    std::vector<std::string> refused = {
        R"(<VariCfgSec Action="DEVICE_DELETE"><stPtt ucFD_Enable="1" /></VariCfgSec>)",
        R"(<VariCfgSec Action="DEVICE_FORMAT"><stDisk DiskNo="4"></VariCfgSec>)",
        R"(<VariCfgSec Action="DEVICE_TIME"><stTime strTime="2023-02-29 10:00:00"></VariCfgSec>)",
    };
    // DEVICE_SET requests, given by their sections. Valid values beside a refused one are not taken either.
    for (const char* sections : {
             R"(<stNoSuchSection ucFD_Enable="1" />)", R"(<stPtt ucFD_Enable="1" ucFD_Volume="3" />)",
             R"(<stNetWorkMode ucFD_NetType="256" />)", R"(<stPtt usFD_GroupNo="65536" />)",
             R"(<stPower uiAccOffStopRecCh="4294967296" />)", R"(<stPtt usFD_GroupNo="-1" />)",
             R"(<stPtt usFD_GroupNo="12a" />)", R"(<stPtt ucFD_Enable="1" usFD_GroupNo="1"2" />)",
             R"(<stCarInfo strFD_LicensePlate="ABCDEFGHIJKLMNOPQ" />)", R"(<stRecord uiFD_PreRecordTime="61" />)",
             R"(<stGSensor fFD_Crash="2.010000" />)", R"(<stBaseInfo ucFD_TZAdjust="20" />)",
             R"(<stLocalEth0 uiFD_LocalIp="192.168.1.256" />)", R"(<stVersion Model="MR1-J1" />)",
             R"(<stBaseInfo strFD_CurTime="2024-01-01 00:00:00" />)", R"(<stPtt usFD_GroupNo="30" ucFD_Enable="2" />)",
             R"(<stPtt ucFD_Enable="1" /><stPower ucPOnDelayEnable="1" />)",
             R"(<stSerial StartChn="-1"><stSerialChnPara><SerialChn_-1 ucParity="n" /></stSerialChnPara></stSerial>)",
             R"(<stMainStream StartChn="8"><stVideoPara><VChn_8 ucFD_FrameRate="25" /></stVideoPara></stMainStream>)",
             R"(<stAlarmLinkage StartChn="2"><stAlarmLinkageItem><AlarmLinkageItem_2><stAlarmOutIO ucIOLevel="1" />)"
             R"(</AlarmLinkageItem_2></stAlarmLinkageItem></stAlarmLinkage>)"}) {
        refused.push_back(std::string(R"(<VariCfgSec Action="DEVICE_SET">)") + sections + "</VariCfgSec>");
    }
    for (const std::string& request : refused) {
        SCOPED_TRACE(request);
        const std::optional<std::string> reply = recorder.Handle(request);
        ASSERT_TRUE(reply.has_value());
        testing::internal::CaptureStdout();
        EXPECT_EQ(varcfg::CheckSettingReply(*reply), -1);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "CConfig_Task::ParseResponseMsgResult, Result is not 1.\n");
    }
    for (const char* request : {R"(<Parameter><NETWORK_SET Action="set" DevIDNO="1234" /></Parameter>)",
                                R"(<Parameter><NETWORK_SET Action="set" CenterIP_0="" /></Parameter>)",
                                R"(<Parameter><NETWORK_SET Action="set" DevIDNO="BUS0018" ContrlPort_0="70000" /></Parameter>)",
                                R"(<Parameter><NETWORK_SET Action="get" /></Parameter>)"}) {
        EXPECT_FALSE(Accepted(recorder.Handle(request), true)) << request;
    }
    for (const std::string& query : {QueryText("stNoSuchSection"), QueryText("stPower", 0), QueryText("stMainStream", 65536),
                                     std::string(R"(<VariCfgSec Action="DEVICE_QUERY"><stPower><x/></VariCfgSec>)")}) {
        EXPECT_FALSE(Section(recorder, query).Accepted()) << query;
    }
    EXPECT_EQ(Section(recorder, QueryText("stPtt")).Value("", "usFD_GroupNo"), "0");
    EXPECT_EQ(Section(recorder, QueryText("stBaseInfo")).Value("", "strFD_DeviceNo"), "VR10001");
}

TEST(SimulatedRecorder, IsShapedByItsModel) {
    SimulatedRecorder eightChannels("mr8-o1");  // model texts are matched without regard to case
    Names channels;
    for (int start = 0; start < 10; start += 2) {
        const Names group = Section(eightChannels, QueryText("stMainStream", start)).ChildNames();
        channels.insert(channels.end(), group.begin(), group.end());
    }
    EXPECT_EQ(channels, (Names{"VChn_0", "VChn_1", "VChn_2", "VChn_3", "VChn_4", "VChn_5", "VChn_6", "VChn_7"}));
    const Section version(eightChannels, varcfg::kVersionQueryText);
    EXPECT_EQ(version.Value("", "Model"), "mr8-o1");
    EXPECT_EQ(version.Value("", "iVideoChannelCnt"), "8");

    SimulatedRecorder sixInputs(kLargeModel);
    EXPECT_EQ(Section(sixInputs, QueryText("stAlarmIn", 4)).ChildNames(), (Names{"AlarmIO_4", "AlarmIO_5"}));
    EXPECT_EQ(Section(sixInputs, QueryText("stSerial")).ChildNames(), (Names{"SerialChn_0", "SerialChn_1", "SerialChn_2"}));

    // Profile J: one channel, no alarm inputs, no alarm outputs, no serial ports.
    SimulatedRecorder bare("MR1-J1");
    const Section alarmIn(bare, QueryText("stAlarmIn", 0));
    ASSERT_TRUE(alarmIn.Accepted());
    EXPECT_TRUE(alarmIn.ChildNames().empty());
    EXPECT_TRUE(Section(bare, QueryText("stSerial")).ChildNames().empty());
    EXPECT_EQ(Section(bare, QueryText("stVideoMirror")).ChildNames(), Names{"VChn_0"});
    EXPECT_EQ(bare.Handle(QueryText("stAlarmLinkage", 0)).value().find("stAlarmOutIO"), std::string::npos);
    // Its alarm input page saves no rows; the mirror page always saves eight.
    EXPECT_TRUE(Set(bare, R"(<VariCfgSec Action="DEVICE_SET"><stAlarmIn StartChn="0"><stAlarmInIO></stAlarmInIO>)"
                          R"(</stAlarmIn></VariCfgSec>)"));
    EXPECT_TRUE(Set(bare, Setting("mirror")));

    SimulatedRecorder unknown("NOT-IN-TABLE");
    EXPECT_EQ(Section(unknown, varcfg::kVersionQueryText).Value("", "iVideoChannelCnt"), "4");
    EXPECT_TRUE(Section(unknown, QueryText("stAlarmIn", 0)).ChildNames().empty());
}

// Every section the panel queries is answered, by every model, and every value shown can be written
// back as it stands: factory values keep to the recorder's own rules, and replies and settings use the
// same forms.
TEST(SimulatedRecorder, AnswersEveryQueryAndTakesBackEveryReplyOfEveryModel) {
    const auto writeBack = [](SimulatedRecorder& recorder, const std::string& name, const Section& section) {
        ASSERT_TRUE(section.Accepted());
        EXPECT_EQ(section.Element()->ValueStr(), name);
        TiXmlElement written(*section.Element());
        written.RemoveAttribute("strFD_CurTime");  // the clock is set by DEVICE_TIME only
        TiXmlPrinter printer;
        printer.SetStreamPrinting();
        written.Accept(&printer);
        EXPECT_TRUE(Set(recorder, "<VariCfgSec Action=\"DEVICE_SET\">" + printer.Str() + "</VariCfgSec>"))
            << printer.Str();
    };
    for (const auto& entry : varcfg::BuiltInModelTable().Entries()) {
        SimulatedRecorder recorder(entry.text);
        for (const std::string name :
             {"stNetWorkMode", "stLocalEth0", "stMobileGNet", "stWifi", "stWifiAp", "stCMS", "st808CMS1", "st808CMS2",
              "stPtt", "stPttDcn", "stCarInfo", "stUserSec", "stSubStream", "stOSD", "stRecord", "stGSensor",
              "stLedDisplay", "stIcReader01", "stBaseInfo", "stPower", "stSpeedAlarm"}) {
            SCOPED_TRACE(entry.text + " " + name);
            writeBack(recorder, name, Section(recorder, QueryText(name)));
        }
        for (const std::string name :
             {"stMainStream", "stVideoMirror", "stAlarmIn", "stAlarmLinkage", "stVda", "stSerial", "stChnPtz"}) {
            // Group by group, until a group comes back empty.
            for (std::size_t start = 0, children = 1; children > 0; start += children) {
                SCOPED_TRACE(entry.text + " " + name + " " + std::to_string(start));
                const Section group(recorder, QueryText(name, static_cast<int>(start)));
                writeBack(recorder, name, group);
                children = group.ChildNames().size();
            }
        }
    }
}

TEST(SimulatedRecorder, KeepsItsSettingsInTheStateFile) {
    const TemporaryFolder folder;
    const std::string stateFile = (folder.path / "recorder.state").string();
    {
        SimulatedRecorder first(kLargeModel, stateFile);
        ASSERT_TRUE(Set(first, Setting("ptt")));
        ASSERT_TRUE(Set(first, Setting("alarm outputs")));  // inside linkage items
        ASSERT_TRUE(Set(first, Setting("clock")));
        EXPECT_EQ(first.StateFileProblem(), "");
    }
    Names entries;  // no temporary file left behind
    for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
        entries.push_back(entry.path().filename().string());
    }
    EXPECT_EQ(entries, Names{"recorder.state"});
    const std::string saved = ReadFile(stateFile);

    SimulatedRecorder second(kLargeModel, stateFile);
    EXPECT_EQ(second.StateFileProblem(), "");
    EXPECT_EQ(Section(second, QueryText("stPtt")).Value("", "usFD_GroupNo"), "12");
    EXPECT_EQ(Section(second, QueryText("stAlarmLinkage", 0))
                  .Value("stAlarmLinkageItem/AlarmLinkageItem_1/stAlarmOutIO", "ucIOFunc"),
              "2");
    EXPECT_EQ(Section(second, QueryText("stBaseInfo")).Value("", "strFD_CurTime"), "2024-02-29 23:59:58");
    ASSERT_FALSE(Set(second, R"(<VariCfgSec Action="DEVICE_SET"><stPtt usFD_GroupNo="65536" /></VariCfgSec>)"));
    EXPECT_EQ(ReadFile(stateFile), saved);

    // A file edited by hand: its good lines are taken; the others are counted, the first named, and
    // written back as they were at the next save.
    const std::vector<std::string> untaken = {"stPtt usFD_GroupNo=99999", "stVersion Model=MR1-J1", "nonsense"};
    {
        std::ofstream edit(stateFile, std::ios::binary | std::ios::app);
        edit << "stPtt usFD_GroupNo=77\r\n";
        for (const std::string& line : untaken) edit << line << '\n';
    }
    SimulatedRecorder third(kLargeModel, stateFile);
    EXPECT_EQ(Section(third, QueryText("stPtt")).Value("", "usFD_GroupNo"), "77");
    EXPECT_EQ(Section(third, varcfg::kVersionQueryText).Value("", "Model"), kLargeModel);
    const std::string firstBadLine = "line " + std::to_string(std::count(saved.begin(), saved.end(), '\n') + 2) + ":";
    EXPECT_NE(third.StateFileProblem().find("3 line(s) not taken (kept as written), the first at " + firstBadLine),
              std::string::npos)
        << third.StateFileProblem();
    ASSERT_TRUE(Set(third, Setting("ptt centre")));
    const std::string rewritten = ReadFile(stateFile);
    for (const std::string& line : untaken) EXPECT_NE(rewritten.find('\n' + line + '\n'), std::string::npos) << line;
}

// A file that ends inside a line, or that lacks the end line of a saved file, was cut: the cut line is
// not taken, and the recorder says so instead of quietly using factory values for what is missing.
TEST(SimulatedRecorder, ReportsAStateFileThatWasCutShort) {
    const TemporaryFolder folder;
    const std::string stateFile = (folder.path / "recorder.state").string();
    {
        SimulatedRecorder first(kLargeModel, stateFile);
        ASSERT_TRUE(Set(first, Setting("ptt")));
    }
    const std::string saved = ReadFile(stateFile);
    const std::size_t groupLine = saved.find("stPtt usFD_GroupNo=12\n");
    ASSERT_NE(groupLine, std::string::npos);
    struct Case {
        const char* what;
        std::string text;
        bool cutShort;
        const char* groupNumber;
    };
    const Case cases[] = {
        {"whole", saved, false, "12"},
        {"cut inside a value", saved.substr(0, groupLine + std::strlen("stPtt usFD_GroupNo=1")), true, "0"},
        {"cut after a line", saved.substr(0, groupLine + std::strlen("stPtt usFD_GroupNo=12\n")), true, "12"},
        {"written by hand, without header or end line", "stPtt usFD_GroupNo=5\n", false, "5"},
    };
    for (const Case& c : cases) {
        std::ofstream(stateFile, std::ios::binary | std::ios::trunc) << c.text;
        SimulatedRecorder recorder(kLargeModel, stateFile);
        EXPECT_EQ(recorder.StateFileProblem().find("cut short") != std::string::npos, c.cutShort)
            << c.what << ": " << recorder.StateFileProblem();
        EXPECT_EQ(Section(recorder, QueryText("stPtt")).Value("", "usFD_GroupNo"), c.groupNumber) << c.what;
    }
}

// What cannot keep settings is refused before anything is opened (a named pipe would block the
// opener), and a setting that cannot be saved is refused with the reason given to the program.
TEST(SimulatedRecorder, RefusesStateFilesThatCannotKeepSettingsAndSaysWhy) {
    const TemporaryFolder folder;
    const std::filesystem::path blockedFile = folder.path / "blocked.state";
    std::filesystem::create_directory(folder.path / "blocked.state.tmp");
    ASSERT_EQ(mkfifo((folder.path / "pipe").c_str(), 0600), 0);
    struct Case {
        std::filesystem::path path;
        const char* reason;
    };
    const Case cases[] = {
        {folder.path, "is a folder, not a file"},
        {folder.path / "pipe", "is a named pipe, not a file"},
        {folder.path / "no-such-folder" / "recorder.state", "no-such-folder does not exist"},
        {blockedFile, "blocked.state.tmp is in the way: it is a folder"},
    };
    for (const Case& c : cases) {
        EXPECT_NE(varcfg::sim::StateFile(c.path).Fault().find(c.reason), std::string::npos)
            << c.path << ": " << varcfg::sim::StateFile(c.path).Fault();
    }
    EXPECT_EQ(varcfg::sim::StateFile(folder.path / "new.state").Fault(), "");
    EXPECT_FALSE(std::filesystem::exists(folder.path / "new.state.tmp")) << "the check leaves nothing behind";

    const std::string stateFile = (folder.path / "recorder.state").string();
    SimulatedRecorder recorder(kLargeModel, stateFile);
    std::vector<std::string> reported;
    recorder.OnSaveFailure([&reported](const std::string& reason) { reported.push_back(reason); });
    ASSERT_TRUE(Set(recorder, Setting("ptt centre")));
    std::filesystem::create_directory(stateFile + ".tmp");  // in the way from now on
    EXPECT_FALSE(Set(recorder, Setting("ptt")));
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_NE(reported[0].find("cannot save the settings: " + stateFile + ".tmp: "), std::string::npos) << reported[0];
    EXPECT_EQ(Section(recorder, QueryText("stPtt")).Value("", "usFD_GroupNo"), "0");
    EXPECT_EQ(reported[0], recorder.StateFileProblem());
}

// The file holds passwords in clear: a new one is for its owner only, an existing one keeps its mode,
// and a link to it stays a link.
TEST(SimulatedRecorder, SavesThroughLinksAndKeepsTheStateFileMode) {
    namespace fs = std::filesystem;
    const TemporaryFolder folder;
    const fs::path created = folder.path / "created.state";
    const fs::path shared = folder.path / "shared.state";
    const fs::path link = folder.path / "link.state";
    std::ofstream(shared) << "";
    fs::permissions(shared, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink("shared.state", link);

    for (const fs::path& path : {created, link}) {
        SimulatedRecorder recorder(kLargeModel, path.string());
        ASSERT_TRUE(Set(recorder, Setting("ptt"))) << path;
    }
    EXPECT_EQ(fs::status(created).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(shared).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_NE(ReadFile(shared.string()).find("stPtt usFD_GroupNo=12\n"), std::string::npos);
}

TEST(SimulatedRecorder, AnswersTheHostWithinItsRecordsAndShowsTheFaultsItIsGiven) {
    SimulatedRecorder recorder(kLargeModel);
    MDVR_MsgRecord request = {};
    MDVR_MsgRecord reply = {};
    const auto exchange = [&](const std::string& text) {
        std::memset(&request, 0, sizeof request);
        std::memcpy(request.data, text.data(), std::min(text.size(), sizeof request.data));
        std::memset(reply.data, 'x', sizeof reply.data);
        return varcfg::sim::AnswerHostRequest(0, &request, &reply, &recorder);
    };
    // A request record without a terminator is read to its end and no further.
    ASSERT_EQ(exchange(std::string(sizeof request.data, '<')), 1);
    EXPECT_EQ(reply.length, static_cast<int32_t>(std::strlen(reply.data)));
    EXPECT_EQ(reply.data[reply.length + 1], 'x');
    EXPECT_EQ(varcfg::sim::AnswerHostRequest(0, nullptr, &reply, &recorder), 0);
    EXPECT_EQ(varcfg::sim::AnswerHostRequest(0, &request, &reply, nullptr), 0);

    Faults faults;
    faults.lostRequestAt = 2;
    faults.garbledReplyAt = 3;
    recorder.SetFaults(faults);
    EXPECT_EQ(exchange(QueryText("stPtt")), 1);
    EXPECT_EQ(exchange(Setting("ptt")), 0);  // lost
    EXPECT_EQ(reply.data[0], 'x');           // and the reply record untouched
    ASSERT_EQ(exchange(Setting("ptt")), 1);  // garbled
    testing::internal::CaptureStdout();
    EXPECT_EQ(varcfg::CheckSettingReply(reply.data), -1);
    EXPECT_EQ(varcfg::CheckPlatformReply(reply.data), -1);
    EXPECT_EQ(varcfg::QueryReply().Check(reply.data), -1);
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(Section(recorder, QueryText("stPtt")).Value("", "ucFD_Enable"), "0");  // neither took effect

    faults = Faults();
    faults.refusedSettingAt = 2;  // queries are not counted
    recorder.SetFaults(faults);
    EXPECT_TRUE(Section(recorder, QueryText("stPtt")).Accepted());
    EXPECT_TRUE(Set(recorder, Setting("network mode")));
    EXPECT_FALSE(Set(recorder, Setting("ptt")));
    EXPECT_TRUE(Set(recorder, Setting("ptt centre")));
    EXPECT_EQ(Section(recorder, QueryText("stPtt")).Value("", "ucFD_Enable"), "0");

    faults = Faults();
    faults.refuseEverySetting = true;
    faults.latency = std::chrono::milliseconds(40);
    recorder.SetFaults(faults);
    for (const char* what : {"ptt", "centre server", "clock", "format disk"}) {
        EXPECT_FALSE(Set(recorder, Setting(what))) << what;
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(Section(recorder, QueryText("stPtt")).Accepted());
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(40));
}
