#include "pages/serial/CDlgTabSerialCfg.h"

#include <algorithm>
#include <initializer_list>

#include "channel/DeviceVersion.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

// Parity arrives as a character code; the page keeps it as the index of its list.
constexpr Binding<SerialPortRecord> kSerialBindings[] = {
    BindAttribute(kSerialPortFields, "ucFD_DataMode").InComboIndex(IDC_SERIAL_DEVICE, Unlisted::Keep),
    BindAttribute(kSerialPortFields, "uiBaudRate").InComboData(IDC_SERIAL_BAUD, Unlisted::Keep),
    BindAttribute(kSerialPortFields, "ucDataBit").InComboData(IDC_SERIAL_DATA_BITS, Unlisted::Keep),
    BindAttribute(kSerialPortFields, "ucParity").InComboIndex(IDC_SERIAL_PARITY, Unlisted::Keep),
    BindAttribute(kSerialPortFields, "ucStopBit").InComboData(IDC_SERIAL_STOP_BITS, Unlisted::Keep),
    BindAttribute(kSerialPortFields, "ucCount"),
};
constexpr Section<SerialPortRecord> kSerial{kSerialSection, kSerialBindings};

// The recorder reports ports 0 and 1 only; a higher number ends its list.
constexpr int kReportedPorts = 2;

// The peripheral list: the item index is the recorder's peripheral code, so the order is fixed. Items
// 0 to 27 are named by the language file, the rest by their fixed names ("NONE" is a code of its own).
constexpr uint32_t kNamedPeripherals[] = {
    24075, 24076, 24077, 24078, 24079, 24080, 24081, 24082, 24083, 24084, 24085, 24086, 24087, 24100,
    24101, 24102, 24103, 24104, 24105, 24160, 24161, 24159, 24158, 24170, 24171, 24172, 24173, 24174,
};
constexpr const wchar_t* kFixedPeripherals[] = {
    L"ADVS",     L"XHSFYB-MY26", L"ROZ-PSmart", L"Angle",      L"E-Box",     L"Skyeaglee",  L"SYRIS-RFID",
    L"HOLLOO-OBD", L"BUS-SCR",   L"BSD",        L"OIL-JT",     L"P-COUNTER", L"EVAL-SCR",   L"GPS-OUT",
    L"AL-ALARM", L"NONE",        L"JHYALG-OUT", L"OBD-TTL",    L"PIR-TTL",   L"RFID-4CH",   L"MP5",
    L"OBD-QY",   L"Vietnam",     L"MP5-YX",     L"RFID-WY",    L"OBD-J1708", L"FZDYSK_WW",  L"KLWEIGHT",
    L"KWatch",
};
constexpr int kDefaultPeripheral = 1;

// Only the codes of 'o' and 'e' mean odd and even, so a recorder that answers with a capital letter
// shows none.
uint8_t ParityIndex(uint8_t code) { return code == 'o' ? 1 : code == 'e' ? 2 : 0; }

void AddNumbers(HWND dialog, int id, std::initializer_list<int> numbers, int selected) {
    for (int number : numbers) ComboAdd(dialog, id, FillTemplate(L"%d", {number}), number);
    ComboSelect(dialog, id, selected);
}

}  // namespace

CDlgTabSerialCfg::CDlgTabSerialCfg() : CDlgCfgBase(IDD_SERIAL_PORTS) {}

BOOL CDlgTabSerialCfg::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_SERIAL_PORT_LABEL, 24070},
                         {IDC_SERIAL_DEVICE_LABEL, 24071},
                         {IDC_SERIAL_BAUD_LABEL, 24072},
                         {IDC_SERIAL_DATA_BITS_LABEL, 24073},
                         {IDC_SERIAL_STOP_BITS_LABEL, 24074},
                         {IDC_SERIAL_PARITY_LABEL, 24069}});
    const std::wstring port = CLanguage::Instance().Text(21209);
    for (int i = 0; i < Device().capabilities.serialPorts; ++i) {
        ComboAdd(Hwnd(), IDC_SERIAL_PORT, FillTemplate(L"%s %d", {port, i + 1}), i);
    }
    ComboSelect(Hwnd(), IDC_SERIAL_PORT, 0);

    int code = 0;
    for (uint32_t id : kNamedPeripherals) ComboAdd(Hwnd(), IDC_SERIAL_DEVICE, CLanguage::Instance().Text(id), code++);
    for (const wchar_t* name : kFixedPeripherals) ComboAdd(Hwnd(), IDC_SERIAL_DEVICE, name, code++);
    ComboSelect(Hwnd(), IDC_SERIAL_DEVICE, kDefaultPeripheral);

    AddNumbers(Hwnd(), IDC_SERIAL_BAUD, {2400, 4800, 9600, 19200, 38400, 57600, 115200}, 0);
    AddNumbers(Hwnd(), IDC_SERIAL_DATA_BITS, {5, 6, 7, 8}, 3);
    AddNumbers(Hwnd(), IDC_SERIAL_STOP_BITS, {1, 2}, 0);
    ComboAdd(Hwnd(), IDC_SERIAL_PARITY, L"None", 0);
    ComboAdd(Hwnd(), IDC_SERIAL_PARITY, L"Odd", 1);
    ComboAdd(Hwnd(), IDC_SERIAL_PARITY, L"Even", 2);
    ComboSelect(Hwnd(), IDC_SERIAL_PARITY, 0);
    return TRUE;
}

void CDlgTabSerialCfg::OnCommand(int id, int code) {
    if (id == IDC_SERIAL_PORT && code == CBN_SELCHANGE) {
        ShowPort();
        return;
    }
    CDlgCfgBase::OnCommand(id, code);
}

std::vector<SectionInfo> CDlgTabSerialCfg::DeclaredSections() const { return {Info(kSerial)}; }

int CDlgTabSerialCfg::Refresh() {
    QueryReply reply;
    const int result = Query(QueryText(kSerial.name), reply);
    if (result != 1) return result;
    // Ports the recorder does not report are kept as zeros.
    SerialPortRecord decoded[kKeptPorts] = {};
    if (!DecodeNumberedEntries(kSerial, *reply.Section(), "stSerialChnPara", kReportedPorts, decoded)) return 0;
    for (SerialPortRecord& port : decoded) port.parity = ParityIndex(port.parity);
    std::copy_n(decoded, std::clamp(Device().capabilities.serialPorts, 0, kKeptPorts), ports_);
    ShowPort();
    Redraw();
    return 1;
}

void CDlgTabSerialCfg::ShowPort() {
    const int port = ComboSelection(Hwnd(), IDC_SERIAL_PORT);
    if (port < 0 || port >= kKeptPorts) return;
    ShowSection(kSerial, ports_[port]);
}

int CDlgTabSerialCfg::Save() {
    if (!TakeSection(kSerial)) return -1;
    const int port = ComboSelection(Hwnd(), IDC_SERIAL_PORT);
    const int result = SendSection(kSerial, 0, port);
    Redraw();
    if (result != 1) return 0;
    if (port >= 0 && port < kKeptPorts) StoreSection(kSerial, ports_[port]);
    return 1;
}
