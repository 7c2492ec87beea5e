#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include <tinyxml.h>

#include "protocol/ConfigTask.h"

using namespace varcfg;

namespace {

class Section {
public:
    explicit Section(const std::string& text) { document_.Parse(text.c_str()); }
    const TiXmlElement& Element() const { return *document_.RootElement(); }

private:
    TiXmlDocument document_;
};

// Imports a base-information section into record; returns what it printed, and whether it decoded.
std::string ImportBaseInfo(const std::string& attributes, BaseInfoRecord& record, bool& decoded,
                           CConfig_Task::DeviceNo deviceNo = CConfig_Task::DeviceNo::Check) {
    const Section section("<stBaseInfo " + attributes + "/>");
    testing::internal::CaptureStdout();
    decoded = CConfig_Task::Import_stBaseInfo(section.Element(), record, deviceNo);
    return testing::internal::GetCapturedStdout();
}

}  // namespace

TEST(ImportVersion, FillsTheVersionBlock) {
    VersionRecord version{};
    ASSERT_TRUE(CConfig_Task::Import_stVersion(
        Section(R"(<stVersion model="MDVR-4G" VideoCnt="4" iVideoChannelCnt="8" strMcuVer="m1" strUbootVer="u2")"
                R"( strKernelVer="k3" strRootfsVer="r4" strAppVer="a5" strDBVer="d6" strWifiVer="w7"/>)")
            .Element(),
        version));
    const VersionRecord expected{8, "MDVR-4G", "m1", "u2", "k3", "r4", "a5", "d6", "w7"};
    EXPECT_EQ(std::memcmp(&version, &expected, sizeof version), 0);

    ASSERT_TRUE(CConfig_Task::Import_stVersion(
        Section(R"(<stVersion iVideoChannelCnt="8" VideoCnt="4" Model=")" + std::string(40, 'M') + R"("/>)").Element(),
        version));
    EXPECT_EQ(version.videoChannelCount, 4);
    EXPECT_EQ(version.model, std::string(31, 'M'));
}

TEST(ImportBaseInfo, FillsEveryFieldInItsPlace) {
    BaseInfoRecord info{};
    bool decoded = false;
    EXPECT_EQ(ImportBaseInfo(R"(strFD_DeviceNo="10001" ucFD_TimeZone="20" ucFD_TZAdjust="30" ucFD_DstEnable="1")"
                             R"( ucFD_DstFromMon="3" ucFD_DstFromDay="2" ucFD_DstToMon="10" ucFD_DstToDay="4")"
                             R"( ucFD_NowIsDst="9" usFD_DstAdjust="2" ucFD_DateStyle="5" ucFD_GpsMode="6")"
                             R"( ucFD_GpsSTFlag="7" ucFD_DiskFormatFlag="8" usFD_SizeOf2ndPart="1000")"
                             R"( usFD_Customize="1001" usFD_DiskFsType="1002")"
                             R"( strFD_CurTime="2024-01-02 03:04:05 and more")",
                             info, decoded),
              "");
    EXPECT_TRUE(decoded);
    const BaseInfoRecord expected{"10001", 20, 30, 1, 3, 2, 10, 4, 9, 2, 5, 6, 7, 8, 1000, 1001, 1002,
                                  "2024-01-02 03:04:05 and"};
    EXPECT_EQ(std::memcmp(&info, &expected, sizeof info), 0);
}

TEST(ImportBaseInfo, AcceptsDeviceNumbersOfFiveToTwelveCharactersOnly) {
    for (const std::string number : {"11111", "222222222222"}) {
        BaseInfoRecord info{};
        bool decoded = false;
        EXPECT_EQ(ImportBaseInfo("strFD_DeviceNo=\"" + number + "\"", info, decoded), "");
        EXPECT_TRUE(decoded);
        EXPECT_EQ(info.deviceNo, number);
    }
    for (const std::string number : {"1111", "2222222222222", ""}) {
        BaseInfoRecord info{};
        bool decoded = true;
        const std::string attributes = "ucFD_TZAdjust=\"15\" STRFD_DEVICENO=\"" + number + "\" ucFD_TimeZone=\"3\"";
        EXPECT_EQ(ImportBaseInfo(attributes, info, decoded),
                  "CConfig_Task::Import_stBaseInfo, invalid device id:" + number + ".\n");
        EXPECT_FALSE(decoded);
        EXPECT_STREQ(info.deviceNo, "");
        EXPECT_EQ(info.tzAdjust, 15);  // read before the device number
        EXPECT_EQ(info.timeZone, 0);   // decoding stopped at it
    }
}

TEST(ImportBaseInfo, SkippingTheDeviceNumberIgnoresItEntirely) {
    for (const std::string number : {"1234", "123456"}) {
        BaseInfoRecord info{};
        bool decoded = false;
        EXPECT_EQ(ImportBaseInfo("strFD_DeviceNo=\"" + number + "\" ucFD_TimeZone=\"3\"", info, decoded,
                                 CConfig_Task::DeviceNo::Skip),
                  "");
        EXPECT_TRUE(decoded);
        EXPECT_STREQ(info.deviceNo, "");
        EXPECT_EQ(info.timeZone, 3);
    }
}

TEST(ImportSections, FillEveryFieldInItsPlace) {
    NetWorkModeRecord mode{};
    ASSERT_TRUE(CConfig_Task::Import_stNetWorkMode(
        Section(R"(<stNetWorkMode ucFD_NetType="2" ucFD_EnableHR808="1" usFD_GPSInterval="300"/>)").Element(), mode));
    EXPECT_EQ(mode.netType, 2);
    EXPECT_EQ(mode.enableHr808, 1);
    EXPECT_EQ(mode.gpsInterval, 300);

    PowerRecord power{};
    ASSERT_TRUE(CConfig_Task::Import_stPower(
        Section(R"(<stPower ucPowerMode="1" ucPOnDelayEnable="2" usPOffDelayTime="65535" uiTimingPOnTime="4")"
                R"( uiTimingPOffTime="5" uiAccOffStopRecCh="4294967295" uiPOffOutTimeDelay="7"/>)")
            .Element(),
        power));
    const PowerRecord expectedPower{1, 2, 65535, 4, 5, 0xFFFFFFFFu, 7};
    EXPECT_EQ(std::memcmp(&power, &expectedPower, sizeof power), 0);

    ServerRecord server{};
    ASSERT_TRUE(CConfig_Task::Import_stCMS(Section(R"(<stCMS ucFD_AddressType="1" uiFD_IP="10.0.0.1" strFD_Domain=")" +
                                                   std::string(70, 'd') + R"(" usFD_Port="6608"/>)")
                                               .Element(),
                                           server));
    EXPECT_EQ(server.addressType, 1);
    EXPECT_EQ(server.ip, 0x0100000Au);
    EXPECT_EQ(server.domain, std::string(63, 'd'));
    EXPECT_EQ(server.port, 6608);
}
