#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "channel/HostBridge.h"
#include "channel/RequestChannel.h"
#include "base/TraceFile.h"

namespace {

std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

int32_t AnswerOne(int32_t, MDVR_MsgRecord*, MDVR_MsgRecord* reply, void*) {
    reply->data[0] = 'x';
    return 1;
}

}  // namespace

TEST(TraceFile, RedactsEveryPasswordAttributeWhateverItsCase) {
    EXPECT_EQ(CTraceFile2::Redact(R"(<stUserSec ucFD_PWEnableFlag="1" strFD_NormalPasswd="123456" )"
                                  R"(STRFD_ADMINPASSWD="654321"/>)"),
              R"(<stUserSec ucFD_PWEnableFlag="1" strFD_NormalPasswd="***" STRFD_ADMINPASSWD="***"/>)");
    EXPECT_EQ(CTraceFile2::Redact(R"(<a strFD_Passwd="k e y" Password="p" userPwd="q" strFD_SSID="net"/>)"),
              R"(<a strFD_Passwd="***" Password="***" userPwd="***" strFD_SSID="net"/>)");
    // A value cut short by the 1023-character limit is hidden to its end.
    EXPECT_EQ(CTraceFile2::Redact(R"(<a strFD_UserPasswd="secr)"), R"(<a strFD_UserPasswd="***)");
}

TEST(TraceFile, AppendsTimeStampedLinesToTheNamedLogWithoutPasswords) {
    const auto folder = std::filesystem::temp_directory_path() / "varcfg-trace-test";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);

    CTraceFile2& log = CTraceFile2::Instance();
    EXPECT_EQ(CTraceFile2::Existing(), &log);
    log.SetFolder(folder.wstring() + L"/");
    log.SetLogName("libvarcfg");
    log.Write("first %d", 1);

    varcfg::SetConfigFunction(AnswerOne, nullptr, nullptr);
    std::string reply;
    ASSERT_TRUE(varcfg::Exchange(R"(<VariCfgSec Action="DEVICE_SET"><stUserSec strFD_AdminPasswd="987654" /></VariCfgSec>)",
                                 varcfg::kSettingForm, reply));
    varcfg::SetConfigFunction(nullptr, nullptr, nullptr);

    const std::string text = ReadAll(folder / "libvarcfg.log");
    EXPECT_NE(text.find(" first 1\n"), std::string::npos) << text;
    EXPECT_NE(text.find("strFD_AdminPasswd=\"***\""), std::string::npos) << text;
    EXPECT_EQ(text.find("987654"), std::string::npos) << text;
    // Each line begins with a date and a time with milliseconds.
    EXPECT_EQ(text.substr(4, 1), "-");
    EXPECT_EQ(text.substr(19, 1), ".");
    std::filesystem::remove_all(folder);
}
