#include "SettingsCatalog.h"

#include <algorithm>
#include <cstdio>

#include "base/AsciiText.h"
#include "protocol/IpText.h"

namespace varcfg::sim {
namespace {

// Field builders, so that the catalog below reads as a table.

SettingField Number(std::string name, std::string factory, int64_t min = 0, int64_t max = INT64_MAX) {
    SettingField field;
    field.name = std::move(name);
    field.kind = ValueKind::Number;
    field.min = min;
    field.max = max;
    field.factory = std::move(factory);
    return field;
}

SettingField Flag(std::string name, std::string factory) { return Number(std::move(name), std::move(factory), 0, 1); }

SettingField OneOf(std::string name, std::string factory, std::vector<int64_t> allowed) {
    SettingField field = Number(std::move(name), std::move(factory));
    field.allowed = std::move(allowed);
    return field;
}

SettingField Ip(std::string name, std::string factory) {
    SettingField field = Number(std::move(name), std::move(factory));
    field.kind = ValueKind::Ip;
    return field;
}

SettingField Text(std::string name, std::string factory, int64_t maxLength, int64_t minLength = 0) {
    SettingField field = Number(std::move(name), std::move(factory), minLength, maxLength);
    field.kind = ValueKind::Text;
    return field;
}

SettingField Decimal(std::string name, std::string factory, int64_t min, int64_t max) {
    SettingField field = Number(std::move(name), std::move(factory), min, max);
    field.kind = ValueKind::Decimal;
    return field;
}

SettingField Kind(SettingField field, ValueKind kind) {
    field.kind = kind;
    return field;
}

SettingField With(SettingField field, uint8_t flags) {
    field.flags = static_cast<uint8_t>(field.flags | flags);
    return field;
}

SettingField AlsoNamed(SettingField field, std::string alsoNamed) {
    field.alsoNamed = std::move(alsoNamed);
    return field;
}

SettingSection Section(std::string name, std::vector<SettingField> fields) {
    SettingSection section;
    section.name = std::move(name);
    section.fields = std::move(fields);
    return section;
}

SettingSection WithChildren(SettingSection section, ChildGroup children) {
    section.children = std::move(children);
    return section;
}

ChildGroup Children(std::string container, std::string childPrefix, ChildCount kept, ChildCount shown, int queryGroup,
                    std::vector<SettingField> fields) {
    ChildGroup group;
    group.container = std::move(container);
    group.childPrefix = std::move(childPrefix);
    group.kept = kept;
    group.shown = shown;
    group.queryGroup = queryGroup;
    group.fields = std::move(fields);
    return group;
}

constexpr int64_t kLastSecondOfDay = 86399;
// Calibration values have no range of their own; the recorder keeps them within a million.
constexpr int64_t kCalibrationLimit = 1000000;
constexpr int64_t kMaxUnsigned32 = 4294967295;

std::vector<SettingField> ServerFields(std::string addressType, std::string ip, std::string domain, std::string port) {
    return {Flag("ucFD_AddressType", std::move(addressType)), Ip("uiFD_IP", std::move(ip)),
            Text("strFD_Domain", std::move(domain), 63), Number("usFD_Port", std::move(port))};
}

std::vector<SettingSection> BuildCatalog() {
    std::vector<SettingSection> sections;

    SettingSection version = Section("stVersion", {
        Text("Model", "", 31), Number("iVideoChannelCnt", "4"),
        Text("strMcuVer", "MCU-2.1.7", 31), Text("strUbootVer", "U-Boot-2016.11-r3", 31),
        Text("strKernelVer", "Linux-4.9.37-r6", 31), Text("strRootfsVer", "rootfs-1.8.2", 31),
        Text("strAppVer", "APP-5.3.12-20231214", 31), Text("strDBVer", "DB-3.0.4", 31),
        Text("strWifiVer", "WIFI-1.2.0", 31)});
    for (SettingField& field : version.fields) field.flags = kFromModel;
    version.writable = false;
    sections.push_back(std::move(version));

    sections.push_back(Section("stNetWorkMode", {
        Number("ucFD_NetType", "0"), Number("usFD_GPSInterval", "30"), Flag("ucFD_EnableHR808", "1")}));
    sections.push_back(Section("stLocalEth0", {
        Flag("ucFD_DhcpEnableFlag", "0"), Ip("uiFD_LocalIp", "192.168.1.100"),
        Ip("uiFD_LocalEth1Ip", "192.168.2.100"), Ip("uiFD_NetMask", "255.255.255.0"),
        Ip("uiFD_GateWay", "192.168.1.1"), Text("strFD_Mac", "00:1A:2B:3C:4D:5E", 23)}));
    sections.push_back(Section("stMobileGNet", {
        Number("ucFD_NetType", "0", 0, 3), Text("strFD_Apn", "3gnet", 31), Text("strFD_PhoneNo", "*99#", 31),
        Text("strFD_UserName", "", 31), Text("strFD_UserPasswd", "", 31)}));
    // The panel sends the encryption -1 ("no selection") for an open network; the recorder keeps it as
    // all ones, and takes all ones back.
    const SettingField cryptType = With(OneOf("ucFD_CryptType", "1", {0, 1, 255}), kNegativeAsComplement);
    const SettingField authMode = OneOf("ucFD_AuthMode", "2", {0, 1, 2, 100});
    sections.push_back(Section("stWifi", {
        Number("ucFD_WorkMode", "1", 1, 2), Text("strFD_SSID", "depot", 31), Text("strFD_Passwd", "depot-key-7", 63),
        authMode, cryptType, Flag("ucFD_DhcpEnableFlag", "1"), Ip("uiFD_IP", "192.168.10.100"),
        Ip("uiFD_NetMask", "255.255.255.0"), Ip("uiFD_GateWay", "192.168.10.1"), Ip("uiFD_DNS", "192.168.10.1")}));
    sections.push_back(Section("stWifiAp", {
        Text("strFD_SSID", "MDVR-AP", 31), Text("strFD_Passwd", "12345678", 63), authMode, cryptType}));
    // A vehicle on a fleet's platforms: the centre server, a primary 808 server by address and a backup
    // by name, and the dispatch centre of a push-to-talk service not yet switched on.
    sections.push_back(Section("stCMS", ServerFields("0", "203.0.113.10", "cms.fleet.example", "6608")));
    sections.push_back(Section("st808CMS1", ServerFields("0", "203.0.113.5", "", "7611")));
    sections.push_back(Section("st808CMS2", ServerFields("1", "0.0.0.0", "jt808.fleet.example", "7612")));
    sections.push_back(Section("stPttDcn", ServerFields("0", "198.51.100.9", "", "5060")));
    sections.push_back(Section("stPtt", {Flag("ucFD_Enable", "0"), Number("usFD_GroupNo", "0")}));
    sections.push_back(Section("stCarInfo", {
        Text("strFD_Phonenumber", "013800138000", 20), Text("strFD_ProvincialId", "44", 5),
        Text("strFD_CityDomainId", "300", 5), Text("strFD_CarColors", "1", 3), Text("strFD_TerminalID", "T1234567", 30),
        Text("strFD_CarVIN", "LSVAU2180N2183294", 17), Text("strFD_TerminalType", "MR8", 20),
        Text("strFD_DeviceNum", "D0001", 30), Text("strFD_CarType", "bus", 30), Text("strFD_FacturerID", "70001", 11),
        Text("strFD_DrivingLicense", "DL-42", 31),
        Text("strFD_LicensePlate", "", 16)}));
    sections.push_back(Section("stUserSec", {
        Flag("ucFD_PWEnableFlag", "0"), Text("strFD_NormalPasswd", "000000", 6),
        Text("strFD_AdminPasswd", "888888", 6)}));

    // The video mode mask, the first resolution and bit rate depend on the model: the store sets them.
    sections.push_back(WithChildren(
        Section("stMainStream", {Flag("ucFD_VideoMode", "0"),
                                 With(Number("uiFD_VideoFmt", "0"), kNegativeAsComplement),
                                 Flag("ucFD_VEncFormat", "0")}),
        Children("stVideoPara", "VChn", ChildCount::VideoChannels, ChildCount::VideoChannels, 2,
                 {OneOf("ucFD_Resolution", "2", {2, 4, 5, 6}), Number("ucFD_FrameRate", "25", 1, 60),
                  Number("uiFD_BitRate", "1024", 384, 16384), Flag("uiFD_DisableAudio", "0"),
                  Flag("uiFD_DisableVideo", "0")})));
    sections.push_back(Section("stSubStream", {
        Number("ucFD_EncodeMode", "1", 0, 3), OneOf("ucFD_Resolution", "4", {2, 4}), Number("ucFD_Quality", "1", 0, 2),
        Number("ucFD_FrameRate", "10", 1, 30), Number("uiFD_BitRate", "320", 32, 2048)}));
    sections.push_back(Section("stOSD", {
        Flag("ucFD_DeviceNoEnable", "1"), Flag("ucFD_ChnNameEnable", "1"), Flag("ucFD_TimeEnable", "1"),
        Flag("ucFD_GPSEnable", "1"), Flag("ucFD_LPlateEnable", "1"), Flag("ucFD_SpeedEnable", "1"),
        Flag("ucFD_TempEnable", "0"), Flag("ucFD_IOEnable", "0"), Flag("ucFD_GSensorEnable", "0")}));
    // The panel always writes eight mirror and PTZ slots; the recorder keeps them all and shows its own.
    sections.push_back(WithChildren(
        Section("stVideoMirror", {}),
        Children("stVideoMirrorPara", "VChn", ChildCount::EightChannels, ChildCount::VideoChannels, 0,
                 {Flag("ucFD_LeftRight", "0"), Flag("ucFD_UpDown", "0")})));

    sections.push_back(Section("stRecord", {
        Number("ucFD_RecordMode", "0", 0, 2), Number("ucFD_SDUsage", "0"), Flag("ucFD_EnableIPC", "0"),
        Flag("ucFD_AlarmRecordType", "0"), Number("uiFD_PreRecordTime", "10", 0, 60),
        Number("uiFD_AlarmRecordTime", "30", 5, 1800), Number("uiFD_AlarmRecordDays", "30", 0, 365),
        Flag("uiFD_SaveDayEnable", "0"), Number("ucFD_SaveDays", "30")}));
    sections.push_back(WithChildren(
        Section("stAlarmIn", {Flag("ucDiskFaulAlarm", "1"), Flag("ucDiskSpaceAlarm", "1"),
                              Flag("ucVideoLostAlarm", "1")}),
        Children("stAlarmInIO", "AlarmIO", ChildCount::AlarmInputs, ChildCount::AlarmInputs, 4,
                 {Flag("ucIOEnable", "0"), Number("ucIONumber", "#"), Flag("ucIOLevel", "0"),
                  Number("ucIOFunc", "0", 0, 25), Number("usIOLast", "10")})));
    // Linkage items: one per alarm input, and 27, 28, 30, 31 for the four fixed events; the recorder keeps
    // a table of 32. Output k is the stAlarmOutIO element of item k.
    ChildGroup linkageItems = Children(
        "stAlarmLinkageItem", "AlarmLinkageItem", ChildCount::LinkageItems, ChildCount::LinkageItems, 2,
        {Text("strLinkageName", "", 31), Flag("ucLinkageEnable", "1"), Number("ucAlarmInType", "0"),
         Number("usAlarmOutType", "0"), Number("usAlarmRecordCh", "0"), Number("usAlarmSendCh", "0"),
         Number("usAlarmSnapCh", "0"),
         AlsoNamed(With(Number("ucViewChnNo", "0", 0, 0), kAtMostChannelCount), "usViewChnNo"),
         Number("usAlarmRecordLast", "30")});
    linkageItems.nestedName = "stAlarmOutIO";
    linkageItems.nestedCount = ChildCount::AlarmOutputs;
    linkageItems.nestedFields = {Flag("ucIOEnable", "1"), Number("ucIONumber", "#"), Flag("ucIOLevel", "0"),
                                 Number("ucIOFunc", "0", 0, 6), Number("usIOLast", "10")};
    sections.push_back(WithChildren(Section("stAlarmLinkage", {}), std::move(linkageItems)));
    // A period of one day's seconds; a weekday byte of seven bits.
    sections.push_back(WithChildren(
        Section("stVda", {Number("ucFD_AccLimitMD", "0"), Number("usFD_DelayTime", "10"),
                          Number("usFD_IntervalTime", "30")}),
        Children("stVdaPara", "VChn", ChildCount::VideoChannels, ChildCount::VideoChannels, 1,
                 {Flag("ucFD_Enable", "0"), Number("ucFD_Wday1", "127", 0, 127),
                  Number("uiStartT1", "0", 0, kLastSecondOfDay), Number("uiEndT1", "82800", 0, kLastSecondOfDay),
                  Number("ucFD_Wday2", "0", 0, 127), Number("uiStartT2", "0", 0, kLastSecondOfDay),
                  Number("uiEndT2", "0", 0, kLastSecondOfDay), Number("ucFD_Wday3", "0", 0, 127),
                  Number("uiStartT3", "0", 0, kLastSecondOfDay), Number("uiEndT3", "0", 0, kLastSecondOfDay),
                  Number("ucFD_Percent", "1", 0, 2),
                  Kind(Text("uiFD_Mask", "1023,1023,1023,1023,1023,1023,1023,1023,0,0,0,0,0,0,0,0,"
                                         "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,", 0),
                       ValueKind::MaskRows)})));
    sections.push_back(Section("stGSensor", {
        Flag("ucFD_AlarmEnable", "0"), Decimal("fFD_RAccel", "0.500000", 0, 2),
        Decimal("fFD_RDecel", "0.600000", 0, 2), Decimal("fFD_Crash", "1.500000", 0, 2),
        Decimal("fFD_Swerve", "0.500000", 0, 2), Decimal("fFD_TrunOver", "45.000000", 0, 60),
        Decimal("fFD_X", "0.000000", -kCalibrationLimit, kCalibrationLimit),
        Decimal("fFD_XLimit", "2.000000", -kCalibrationLimit, kCalibrationLimit),
        Decimal("fFD_Y", "0.000000", -kCalibrationLimit, kCalibrationLimit),
        Decimal("fFD_YLimit", "2.000000", -kCalibrationLimit, kCalibrationLimit),
        Decimal("fFD_Z", "0.000000", -kCalibrationLimit, kCalibrationLimit),
        Decimal("fFD_ZLimit", "2.000000", -kCalibrationLimit, kCalibrationLimit),
        With(Number("ReCalibrate", "", 1, 1), kActionOnly)}));

    sections.push_back(WithChildren(
        Section("stSerial", {}),
        Children("stSerialChnPara", "SerialChn", ChildCount::SerialPorts, ChildCount::SerialPorts, 0,
                 {Number("ucFD_DataMode", "0", 0, 56),
                  OneOf("uiBaudRate", "9600", {2400, 4800, 9600, 19200, 38400, 57600, 115200}),
                  Number("ucDataBit", "8", 5, 8), Kind(Number("ucParity", "110"), ValueKind::Parity),
                  Number("ucStopBit", "1", 1, 2), Number("ucCount", "0")})));
    sections.push_back(WithChildren(
        Section("stChnPtz", {}),
        Children("stChnPtzPara", "VChn", ChildCount::EightChannels, ChildCount::VideoChannels, 0,
                 {Number("usPtzAddress", "1", 0, 5), Flag("ucPtzProtocol", "1"), Number("ucSerialIndex", "#")})));
    // Not described further by the panel: kept as sections without attributes.
    sections.push_back(Section("stLedDisplay", {}));
    sections.push_back(Section("stIcReader01", {}));

    sections.push_back(Section("stBaseInfo", {
        Text("strFD_DeviceNo", "VR10001", 12, 5), Number("ucFD_TimeZone", "12", 0, 24),
        OneOf("ucFD_TZAdjust", "0", {0, 15, 30, 45}), Flag("ucFD_DstEnable", "0"),
        Number("ucFD_DstFromMon", "3", 0, 12), Number("ucFD_DstFromDay", "4", 0, 4),
        Number("ucFD_DstToMon", "10", 0, 12), Number("ucFD_DstToDay", "4", 0, 4), Flag("ucFD_NowIsDst", "0"),
        Number("usFD_DstAdjust", "4", 0, 4), Number("ucFD_DateStyle", "0", 0, 2), Number("ucFD_GpsMode", "0"),
        Flag("ucFD_GpsSTFlag", "1"), Number("ucFD_DiskFormatFlag", "0"), Number("usFD_SizeOf2ndPart", "0"),
        Number("usFD_Customize", "0"), Number("usFD_DiskFsType", "0"),
        With(Kind(Text("strFD_CurTime", "2024-01-01 00:00:00", 23), ValueKind::DateTime), kReadOnly)}));
    sections.push_back(Section("stPower", {
        Number("ucPowerMode", "0"), Flag("ucPOnDelayEnable", "1"), Number("usPOffDelayTime", "5"),
        Number("uiTimingPOnTime", "0", 0, kLastSecondOfDay), Number("uiTimingPOffTime", "0", 0, kLastSecondOfDay),
        Number("uiAccOffStopRecCh", "0"), Number("uiPOffOutTimeDelay", "0")}));
    sections.push_back(Section("stSpeedAlarm", {
        Flag("ucFD_LowSpeedIsEnable", "0"), Number("ucFD_LowSpeedUnit", "0", 0, 2),
        Number("usFD_LowSpeed", "10", 0, 200), Number("usFD_ClearLowSpeed", "15", 0, 999),
        Number("usFD_LowDurTime", "10"), Flag("ucFD_OverSpeedIsEnable", "0"), Number("ucFD_OverSpeedUnit", "0", 0, 2),
        Number("usFD_OverSpeed", "100", 0, 200), Number("usFD_ClearOverSpeed", "90", 0, 999),
        Number("usFD_OverDurTime", "10"), Flag("ucFD_PeakingIsEnable", "0"), Number("ucFD_TimeUnit", "0", 0, 0),
        Number("uiFD_OverTime", "600", 0, 999999999), Number("usFD_OverTime", "600"),
        Flag("ucFD_FatigueEnable", "0"), Number("usFD_DrivingTime", "240", 30, 9999),
        Number("usFD_RestTime", "20", 15, 9999)}));
    return sections;
}

int WidthBits(const std::string& name) {
    if (name.compare(0, 2, "uc") == 0) return 8;
    if (name.compare(0, 2, "us") == 0) return 16;
    return 32;
}

std::optional<std::string> CanonicalNumber(const SettingField& field, std::string_view written,
                                           const Capabilities& capabilities) {
    const bool negative = !written.empty() && written.front() == '-';
    if (negative) written.remove_prefix(1);
    const std::optional<uint64_t> magnitude = PlainNumber(written);
    if (!magnitude) return std::nullopt;
    const int bits = WidthBits(field.name);
    const int64_t fieldSize = int64_t{1} << bits;
    auto value = static_cast<int64_t>(*magnitude);
    if (negative) {
        if (!(field.flags & kNegativeAsComplement) || value > fieldSize / 2) return std::nullopt;
        value = value == 0 ? 0 : fieldSize - value;
    }
    if (value >= fieldSize) return std::nullopt;
    if (!field.allowed.empty()) {
        if (std::find(field.allowed.begin(), field.allowed.end(), value) == field.allowed.end()) return std::nullopt;
    } else {
        const int64_t max = (field.flags & kAtMostChannelCount) ? capabilities.videoChannels : field.max;
        if (value < field.min || value > max) return std::nullopt;
    }
    return std::to_string(value);
}

std::optional<std::string> CanonicalIp(std::string_view written) {
    if (std::optional<std::string> dotted = DottedQuad(written)) return dotted;
    const std::optional<uint64_t> number = PlainNumber(written);
    if (!number || *number > static_cast<uint64_t>(kMaxUnsigned32)) return std::nullopt;
    return DottedIp(static_cast<uint32_t>(*number));
}

std::optional<std::string> CanonicalText(const SettingField& field, std::string_view written) {
    const auto length = static_cast<int64_t>(written.size());
    if (length < field.min || length > field.max) return std::nullopt;
    for (const char c : written) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) return std::nullopt;
    }
    return std::string(written);
}

// Digits are summed into a double directly, so the result does not depend on the C locale's decimal
// point; the same goes for the text written back.
std::optional<std::string> CanonicalDecimal(const SettingField& field, std::string_view written) {
    constexpr std::size_t kLongestDecimal = 40;
    if (written.empty() || written.size() > kLongestDecimal) return std::nullopt;
    const bool negative = written.front() == '-';
    if (negative || written.front() == '+') written.remove_prefix(1);
    double value = 0;
    std::size_t integerDigits = 0;
    std::size_t i = 0;
    for (; i < written.size() && IsDecimalDigit(written[i]); ++i, ++integerDigits) {
        value = value * 10 + (written[i] - '0');
    }
    if (integerDigits == 0) return std::nullopt;
    if (i < written.size() && written[i] == '.') {
        double scale = 0.1;
        for (++i; i < written.size() && IsDecimalDigit(written[i]); ++i, scale /= 10) {
            value += (written[i] - '0') * scale;
        }
    }
    if (i != written.size()) return std::nullopt;
    if (negative && value != 0) value = -value;
    if (value < static_cast<double>(field.min) || value > static_cast<double>(field.max)) return std::nullopt;
    char text[64];
    std::snprintf(text, sizeof text, "%f", static_cast<double>(static_cast<float>(value)));
    std::string canonical(text);
    for (char& c : canonical) {
        if (!IsDecimalDigit(c) && c != '-') c = '.';
    }
    return canonical;
}

std::optional<std::string> CanonicalParity(std::string_view written) {
    if (written.size() == 1) {
        const char letter = LowerAscii(written.front());
        if (letter == 'n' || letter == 'o' || letter == 'e') return std::to_string(static_cast<int>(letter));
        return std::nullopt;
    }
    const std::optional<uint64_t> code = PlainNumber(written);
    if (code && (*code == 'n' || *code == 'o' || *code == 'e')) return std::to_string(*code);
    return std::nullopt;
}

std::optional<std::string> CanonicalMaskRows(std::string_view written) {
    constexpr int kMaxRows = 32;
    std::string canonical;
    int rows = 0;
    while (!written.empty()) {
        const std::size_t comma = written.find(',');
        if (comma == std::string_view::npos || ++rows > kMaxRows) return std::nullopt;
        const std::optional<uint64_t> row = PlainNumber(written.substr(0, comma));
        if (!row || *row > static_cast<uint64_t>(kMaxUnsigned32)) return std::nullopt;
        canonical += std::to_string(*row) + ',';
        written.remove_prefix(comma + 1);
    }
    if (rows == 0) return std::nullopt;
    return canonical;
}

int DaysInMonth(int year, int month) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

std::optional<std::string> CanonicalDateTime(std::string_view written) {
    static constexpr std::string_view kForm = "0000-00-00 00:00:00";
    if (written.size() != kForm.size()) return std::nullopt;
    for (std::size_t i = 0; i < kForm.size(); ++i) {
        if (kForm[i] == '0' ? !IsDecimalDigit(written[i]) : written[i] != kForm[i]) return std::nullopt;
    }
    const auto part = [&](std::size_t at, std::size_t length) {
        return static_cast<int>(*PlainNumber(written.substr(at, length)));
    };
    const int year = part(0, 4);
    const int month = part(5, 2);
    const int day = part(8, 2);
    const bool valid = year >= 2000 && year <= 2099 && month >= 1 && month <= 12 && day >= 1 &&
                       day <= DaysInMonth(year, month) && part(11, 2) <= 23 && part(14, 2) <= 59 && part(17, 2) <= 59;
    if (!valid) return std::nullopt;
    return std::string(written);
}

}  // namespace

const std::vector<SettingSection>& Catalog() {
    static const std::vector<SettingSection> catalog = BuildCatalog();
    return catalog;
}

const SettingSection* FindSection(std::string_view name) {
    for (const SettingSection& section : Catalog()) {
        if (section.name == name) return &section;
    }
    return nullptr;
}

const SettingField* FindField(const std::vector<SettingField>& fields, std::string_view attributeName) {
    for (const SettingField& field : fields) {
        if (EqualsIgnoringAsciiCase(field.name, attributeName) ||
            (!field.alsoNamed.empty() && EqualsIgnoringAsciiCase(field.alsoNamed, attributeName))) {
            return &field;
        }
    }
    return nullptr;
}

std::size_t FieldIndex(const std::vector<SettingField>& fields, const SettingField& field) {
    return static_cast<std::size_t>(&field - fields.data());
}

int Count(ChildCount count, const Capabilities& capabilities) {
    constexpr int kEightChannels = 8;
    constexpr int kLinkageItems = 32;
    switch (count) {
        case ChildCount::VideoChannels:
            return capabilities.videoChannels;
        case ChildCount::EightChannels:
            return kEightChannels;
        case ChildCount::AlarmInputs:
            return capabilities.alarmInputs;
        case ChildCount::AlarmOutputs:
            return capabilities.alarmOutputs;
        case ChildCount::SerialPorts:
            return capabilities.serialPorts;
        case ChildCount::LinkageItems:
            return kLinkageItems;
    }
    return 0;
}

std::optional<std::string> CanonicalValue(const SettingField& field, std::string_view written,
                                          const Capabilities& capabilities) {
    switch (field.kind) {
        case ValueKind::Number:
            return CanonicalNumber(field, written, capabilities);
        case ValueKind::Ip:
            return CanonicalIp(written);
        case ValueKind::Text:
            return CanonicalText(field, written);
        case ValueKind::Decimal:
            return CanonicalDecimal(field, written);
        case ValueKind::Parity:
            return CanonicalParity(written);
        case ValueKind::MaskRows:
            return CanonicalMaskRows(written);
        case ValueKind::DateTime:
            return CanonicalDateTime(written);
    }
    return std::nullopt;
}

std::optional<std::string> DottedQuad(std::string_view text) {
    std::string dotted;
    for (int part = 0; part < 4; ++part) {
        if (part > 0) {
            if (text.empty() || text.front() != '.') return std::nullopt;
            text.remove_prefix(1);
        }
        std::size_t digits = 0;
        while (digits < text.size() && digits < 4 && IsDecimalDigit(text[digits])) ++digits;
        if (digits == 0 || digits > 3) return std::nullopt;
        const uint64_t value = *PlainNumber(text.substr(0, digits));
        if (value > 255) return std::nullopt;
        if (part > 0) dotted += '.';
        dotted += std::to_string(value);
        text.remove_prefix(digits);
    }
    if (!text.empty()) return std::nullopt;
    return dotted;
}

std::optional<uint64_t> PlainNumber(std::string_view text) {
    constexpr std::size_t kMostDigits = 10;
    if (text.empty() || text.size() > kMostDigits) return std::nullopt;
    uint64_t value = 0;
    for (const char c : text) {
        if (!IsDecimalDigit(c)) return std::nullopt;
        value = value * 10 + static_cast<uint64_t>(c - '0');
    }
    return value;
}

}  // namespace varcfg::sim
