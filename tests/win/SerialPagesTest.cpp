// The serial pages: the ports page's per-port cache and its one-port write, the PTZ page's
// per-channel cache and its eight-slot write.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "PageHarness.h"
#include "pages/serial/CDlgTabSerialCfg.h"
#include "pages/serial/CDlgTabSerialCfgPtz.h"
#include "res/resource.h"

using varcfg::test::UseEnglishTexts;
using varcfg::test::Enter;
using varcfg::test::PageCase;
using varcfg::test::PageUnderTest;
using varcfg::test::RunPageCase;
using varcfg::test::Shown;

namespace {

std::string SerialReply(const std::string& ports) {
    return R"(<VariCfgSec Action="DEVICE_QUERY"><stSerial><stSerialChnPara>)" + ports +
           "</stSerialChnPara></stSerial></VariCfgSec>";
}

std::string SerialPort(int number, int peripheral, int baudRate, int dataBits, const std::string& parity,
                       int stopBits) {
    return "<SerialChn_" + std::to_string(number) + R"( ucFD_DataMode=")" + std::to_string(peripheral) +
           R"(" uiBaudRate=")" + std::to_string(baudRate) + R"(" ucDataBit=")" + std::to_string(dataBits) +
           R"(" ucParity=")" + parity + R"(" ucStopBit=")" + std::to_string(stopBits) + R"(" ucCount="0" />)";
}

// The write of one port, with its two blanks before ucStopBit and its closing part as the recorder takes it.
std::string SerialSetting(int port, int peripheral, int baudRate, int dataBits, int stopBits, char parity) {
    const std::string number = std::to_string(port);
    return R"(<VariCfgSec Action="DEVICE_SET"><stSerial StartChn=")" + number +
           R"("><stSerialChnPara><SerialChn_)" + number + R"( ucFD_DataMode=")" + std::to_string(peripheral) +
           R"(" uiBaudRate=")" + std::to_string(baudRate) + R"(" ucDataBit=")" + std::to_string(dataBits) +
           R"("  ucStopBit=")" + std::to_string(stopBits) + R"(" ucParity=")" + std::string(1, parity) +
           R"("></SerialChn_)" + number + "><stSerialChnPara></stAlarmLinkage></VariCfgSec>";
}

constexpr char kAccepted[] = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";

std::string PtzReply(const std::string& channels) {
    return R"(<VariCfgSec Action="DEVICE_QUERY"><stChnPtz><stChnPtzPara>)" + channels +
           "</stChnPtzPara></stChnPtz></VariCfgSec>";
}

std::string PtzChannel(int number, int address, int protocol) {
    return "<VChn_" + std::to_string(number) + R"( usPtzAddress=")" + std::to_string(address) +
           R"(" ucPtzProtocol=")" + std::to_string(protocol) + R"(" ucSerialIndex="0" />)";
}

// The write: the selected channel, then eight slots of address and protocol.
std::string PtzSetting(int channel, const std::vector<std::pair<int, int>>& slots) {
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stChnPtz StartChn=")" + std::to_string(channel) +
                       R"("><stChnPtzPara>)";
    for (int n = 0; n < 8; ++n) {
        const std::string slot = std::to_string(n);
        text += "<VChn_" + slot + R"( usPtzAddress=")" + std::to_string(slots[n].first) + R"(" ucPtzProtocol=")" +
                std::to_string(slots[n].second) + R"(" ucSerialIndex=")" + slot + R"("></VChn_)" + slot + ">";
    }
    return text + "<stChnPtzPara></stChnPtz></VariCfgSec>";
}

}  // namespace

TEST(PtzPage, ShowsTheProtocolByTheAddressAndWritesAllEightSlots) {
    UseEnglishTexts();
    PageUnderTest page(std::make_unique<CDlgTabSerialCfgPtz>(), "MR4-A1");  // four channels
    // Channel 5 is read but not kept: the profile has four channels.
    page.recorder.SetQueryReply("stChnPtz", PtzReply(PtzChannel(0, 0, 1) + PtzChannel(1, 1, 0) + PtzChannel(2, 3, 1) +
                                                     PtzChannel(5, 4, 1)));
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_CHANNEL), L"CH 1");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"0");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_PROTOCOL), L"Pelco P");  // protocol 1, but address 0
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"1");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_PROTOCOL), L"Pelco D");  // protocol 0, but address 1
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 3");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"3");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_PROTOCOL), L"");  // an address above 1 leaves no protocol
    page.TakeSettings();

    Enter(page.Hwnd(), IDC_PTZ_PROTOCOL, L"Pelco D");
    EXPECT_EQ(page.Page().Save(), 1);
    const std::vector<std::pair<int, int>> written = {{0, 1}, {1, 0}, {3, 1}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}};
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{PtzSetting(2, written)});

    // The written values are kept: another channel's write carries them.
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 4");
    Enter(page.Hwnd(), IDC_PTZ_ADDRESS, L"5");
    page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
    EXPECT_EQ(page.Page().Save(), 0);
    page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 3");
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 1");
    EXPECT_EQ(page.Page().Save(), 1);
    const std::vector<std::string> sent = page.TakeSettings();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1], PtzSetting(0, {{0, 0}, {1, 0}, {3, 1}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}}))
        << "the refused write to channel 4 was not kept";
}

TEST(PtzPage, ChannelEightEndsTheListAndAMalformedNameFailsTheRead) {
    UseEnglishTexts();
    PageUnderTest page(std::make_unique<CDlgTabSerialCfgPtz>(), "MR4-A1");
    page.recorder.SetQueryReply("stChnPtz", PtzReply(PtzChannel(0, 2, 0) + "<VChn_8 usPtzAddress=\"1\" />" +
                                                     PtzChannel(1, 4, 1)));
    ASSERT_EQ(page.Page().Refresh(), 1);
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"0") << "channel 1 comes after channel 8: not read";

    page.recorder.SetQueryReply("stChnPtz", PtzReply(PtzChannel(1, 5, 1) + "<VChn_10 usPtzAddress=\"1\" />"));
    EXPECT_EQ(page.Page().Refresh(), 0);
    page.recorder.SetQueryReply("stChnPtz", "not xml");
    EXPECT_EQ(page.Page().Refresh(), -1);
    page.TakeSettings();
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(),
              std::vector<std::string>{PtzSetting(1, {{2, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}})})
        << "failed reads left the kept values";
}

// Load, save and a second save of the ports page; parity is read as a character code (111 odd, 101
// even) and written as a letter.
TEST(SerialPortsPage, ShowsAndWritesTheShownPort) {
    UseEnglishTexts();
    const std::string twoPorts =
        SerialReply(SerialPort(0, 21, 115200, 7, "111", 2) + SerialPort(1, 43, 4800, 5, "101", 1));
    const std::string written = SerialSetting(0, 21, 115200, 7, 2, 'o');
    const std::string portTwoEndsTheList = SerialReply(
        SerialPort(0, 28, 19200, 6, "111", 2) + SerialPort(2, 5, 9600, 8, "101", 1) + SerialPort(1, 5, 9600, 8, "101", 1));
    // The recorder's whole stSerial reply, then the case.
    const std::pair<std::string, PageCase> cases[] = {
        {twoPorts,
         {"the first port is shown and only it is written",
          {},
          {{IDC_SERIAL_PORT_LABEL, L"Port"}, {IDC_SERIAL_PARITY_LABEL, L"Parity"}, {IDC_SERIAL_PORT, L"Serial port 1"},
           {IDC_SERIAL_DEVICE, L"Collision warning"}, {IDC_SERIAL_BAUD, L"115200"}, {IDC_SERIAL_DATA_BITS, L"7"},
           {IDC_SERIAL_STOP_BITS, L"2"}, {IDC_SERIAL_PARITY, L"Odd"}},
          {},
          {written}, 1, {written}, "MR4-C1", 1, kAccepted}},
        {twoPorts,
         {"the second port shows its own values and writes its own number",
          {},
          {},
          {{IDC_SERIAL_PORT, L"Serial port 2"}},
          {SerialSetting(1, 43, 4800, 5, 1, 'e')}, 1, {SerialSetting(1, 43, 4800, 5, 1, 'e')}, "MR4-C1", 1, kAccepted}},
        {twoPorts,
         {"edits are written with the parity letter",
          {},
          {},
          {{IDC_SERIAL_DEVICE, L"KWatch"}, {IDC_SERIAL_BAUD, L"38400"}, {IDC_SERIAL_PARITY, L"None"}},
          {SerialSetting(0, 56, 38400, 7, 2, 'n')}, 1,
          {SerialSetting(0, 56, 38400, 7, 2, 'n')}, "MR4-C1", 1, kAccepted}},
        {SerialReply(SerialPort(0, 57, 1200, 9, "e", 3)),
         {"a parity letter shows none; values no entry offers leave the defaults",
          {},
          {{IDC_SERIAL_DEVICE, L"PTZ"}, {IDC_SERIAL_BAUD, L"2400"}, {IDC_SERIAL_DATA_BITS, L"8"},
           {IDC_SERIAL_STOP_BITS, L"1"}, {IDC_SERIAL_PARITY, L"None"}},
          {},
          {SerialSetting(0, 1, 2400, 8, 1, 'n')}, 1, {SerialSetting(0, 1, 2400, 8, 1, 'n')}, "MR4-C1", 1, kAccepted}},
        {portTwoEndsTheList,
         {"ports from 2 up hold zeros: their lists keep what the shown port selected",
          {},
          {{IDC_SERIAL_DEVICE, L"ADVS"}},
          {{IDC_SERIAL_PORT, L"Serial port 3"}},
          {SerialSetting(2, 0, 19200, 6, 2, 'n')}, 1, {SerialSetting(2, 0, 19200, 6, 2, 'n')}, "MR4-F1", 1, kAccepted}},
        {portTwoEndsTheList,
         {"a port after port 2 is not read",
          {},
          {},
          {{IDC_SERIAL_PORT, L"Serial port 2"}},
          {SerialSetting(1, 0, 19200, 6, 2, 'n')}, 1, {SerialSetting(1, 0, 19200, 6, 2, 'n')}, "MR4-F1", 1, kAccepted}},
        {SerialReply(SerialPort(0, 28, 19200, 6, "111", 2) + SerialPort(10, 5, 9600, 8, "101", 1)),
         {"a port numbered 10 fails the read and the defaults stay",
          {},
          {{IDC_SERIAL_DEVICE, L"PTZ"}, {IDC_SERIAL_BAUD, L"2400"}},
          {},
          {SerialSetting(0, 1, 2400, 8, 1, 'n')}, 1, {SerialSetting(0, 1, 2400, 8, 1, 'n')}, "MR4-C1", 0, kAccepted}},
        {R"(<VariCfgSec Action="DEVICE_QUERY"><stSerial /></VariCfgSec>)",
         {"a section without its port list reads as zeros",
          {},
          {{IDC_SERIAL_DEVICE, L"Transparent"}, {IDC_SERIAL_BAUD, L"2400"}, {IDC_SERIAL_PARITY, L"None"}},
          {},
          {SerialSetting(0, 0, 2400, 8, 1, 'n')}, 1, {SerialSetting(0, 0, 2400, 8, 1, 'n')}, "MR4-A1", 1, kAccepted}},
        {twoPorts,
         {"a model without serial ports writes port -1",
          {},
          {{IDC_SERIAL_PORT, L""}},
          {},
          {SerialSetting(-1, 1, 2400, 8, 1, 'n')}, 1, {SerialSetting(-1, 1, 2400, 8, 1, 'n')}, "MR1-H1", 1, kAccepted}},
        {twoPorts,
         {"a refused write reports failure and is sent again",
          {},
          {},
          {},
          {written}, 0, {written}, "MR4-C1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)"}},
    };
    for (const auto& [reply, pageCase] : cases) {
        PageCase withReply = pageCase;
        withReply.replies = {{"stSerial", reply}};
        RunPageCase<CDlgTabSerialCfg>(withReply);
    }
}

// The kept values: a written port keeps what was written, a refused write and failed reads keep the old.
TEST(SerialPortsPage, KeepsWrittenValuesAndIgnoresFailedExchanges) {
    UseEnglishTexts();
    PageUnderTest page(std::make_unique<CDlgTabSerialCfg>(), "MR4-C1");
    page.recorder.SetQueryReply(
        "stSerial", SerialReply(SerialPort(0, 2, 9600, 8, "110", 1) + SerialPort(1, 3, 57600, 7, "111", 2)));
    ASSERT_EQ(page.Page().Refresh(), 1);
    Enter(page.Hwnd(), IDC_SERIAL_BAUD, L"115200");
    Enter(page.Hwnd(), IDC_SERIAL_PARITY, L"Even");
    EXPECT_EQ(page.Page().Save(), 1);
    Enter(page.Hwnd(), IDC_SERIAL_PORT, L"Serial port 2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SERIAL_BAUD), L"57600");
    Enter(page.Hwnd(), IDC_SERIAL_DATA_BITS, L"5");
    page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
    EXPECT_EQ(page.Page().Save(), 0);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SERIAL_DATA_BITS), L"5") << "a failed write keeps the edit on screen";

    page.recorder.transportFails = true;
    EXPECT_EQ(page.Page().Refresh(), 0);
    page.recorder.transportFails = false;
    page.recorder.SetQueryReply("stSerial", "not xml");
    EXPECT_EQ(page.Page().Refresh(), -1);
    page.recorder.SetQueryReply("stSerial", SerialReply("<SerialChn0 ucDataBit=\"6\" />"));
    EXPECT_EQ(page.Page().Refresh(), 0);

    Enter(page.Hwnd(), IDC_SERIAL_PORT, L"Serial port 1");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SERIAL_BAUD), L"115200");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SERIAL_PARITY), L"Even") << "the written letter is kept as its code";
    Enter(page.Hwnd(), IDC_SERIAL_PORT, L"Serial port 2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SERIAL_DATA_BITS), L"7") << "the refused write was not kept";
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SERIAL_PARITY), L"Odd");
}
