// The encoder sections: sub stream, on-screen display and mirror.
#pragma once

#include "catalogue/SectionCatalogue.h"
#include "protocol/EncoderRecords.h"

namespace varcfg {

inline constexpr Field<SubStreamRecord> kSubStreamFields[] = {
    VARCFG_FIELD(SubStreamRecord, encodeMode, "ucFD_EncodeMode", Integer),
    VARCFG_FIELD(SubStreamRecord, resolution, "ucFD_Resolution", Integer),
    VARCFG_FIELD(SubStreamRecord, quality, "ucFD_Quality", Integer),
    VARCFG_FIELD(SubStreamRecord, frameRate, "ucFD_FrameRate", Integer),
    VARCFG_FIELD(SubStreamRecord, bitRate, "uiFD_BitRate", Integer),
};
inline constexpr PlaceholderSource kSubStreamSources[] = {
    FromAttribute("ucFD_EncodeMode"), FromAttribute("ucFD_Resolution"), FromAttribute("ucFD_Quality"),
    FromAttribute("ucFD_FrameRate"), FromAttribute("uiFD_BitRate")};
inline constexpr SettingTemplate kSubStreamSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stSubStream ucFD_EncodeMode=\"%d\" ucFD_Resolution=\"%d\" "
     L"ucFD_Quality=\"%d\" ucFD_FrameRate=\"%d\" uiFD_BitRate=\"%d\" /></VariCfgSec>",
     kSubStreamSources},
};
// The recorder's answer to this query may be longer than the standard record holds.
inline constexpr SectionDeclaration kSubStreamSection{"stSubStream", kSubStreamFields, kSubStreamSettings,
                                                      RecordSize::Large};

inline constexpr Field<OsdRecord> kOsdFields[] = {
    VARCFG_FIELD(OsdRecord, deviceNoEnable, "ucFD_DeviceNoEnable", Integer),
    VARCFG_FIELD(OsdRecord, chnNameEnable, "ucFD_ChnNameEnable", Integer),
    VARCFG_FIELD(OsdRecord, timeEnable, "ucFD_TimeEnable", Integer),
    VARCFG_FIELD(OsdRecord, gpsEnable, "ucFD_GPSEnable", Integer),
    VARCFG_FIELD(OsdRecord, lPlateEnable, "ucFD_LPlateEnable", Integer),
    VARCFG_FIELD(OsdRecord, speedEnable, "ucFD_SpeedEnable", Integer),
    VARCFG_FIELD(OsdRecord, tempEnable, "ucFD_TempEnable", Integer),
    VARCFG_FIELD(OsdRecord, ioEnable, "ucFD_IOEnable", Integer),
    VARCFG_FIELD(OsdRecord, gSensorEnable, "ucFD_GSensorEnable", Integer),
};
inline constexpr PlaceholderSource kOsdSources[] = {
    FromAttribute("ucFD_DeviceNoEnable"), FromAttribute("ucFD_ChnNameEnable"), FromAttribute("ucFD_TimeEnable"),
    FromAttribute("ucFD_GPSEnable"),      FromAttribute("ucFD_LPlateEnable"),  FromAttribute("ucFD_SpeedEnable"),
    FromAttribute("ucFD_TempEnable"),     FromAttribute("ucFD_IOEnable"),      FromAttribute("ucFD_GSensorEnable")};
inline constexpr SettingTemplate kOsdSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stOSD ucFD_DeviceNoEnable=\"%d\" ucFD_ChnNameEnable=\"%d\" "
     L"ucFD_TimeEnable=\"%d\" ucFD_GPSEnable=\"%d\" ucFD_LPlateEnable=\"%d\" ucFD_SpeedEnable=\"%d\" "
     L"ucFD_TempEnable=\"%d\" ucFD_IOEnable=\"%d\" ucFD_GSensorEnable=\"%d\" /></VariCfgSec>",
     kOsdSources},
};
inline constexpr SectionDeclaration kOsdSection{"stOSD", kOsdFields, kOsdSettings};

// stVideoMirror: each channel's picture mirrored left to right and up and down; one entry per channel,
// all eight written at once.
inline constexpr Field<MirrorChannel> kMirrorFields[] = {
    VARCFG_FIELD(MirrorChannel, leftRight, "ucFD_LeftRight", Integer),
    VARCFG_FIELD(MirrorChannel, upDown, "ucFD_UpDown", Integer),
};
inline constexpr PlaceholderSource kMirrorEntrySources[] = {kEntryNumber, FromAttribute("ucFD_LeftRight"),
                                                            FromAttribute("ucFD_UpDown")};
inline constexpr SettingTemplate kMirrorSettings[] = {
    {{L"<VariCfgSec Action=\"DEVICE_SET\"><stVideoMirror><stVideoMirrorPara>"},
     {L"<VChn_%d ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" />", kMirrorEntrySources},
     {L"</stVideoMirrorPara></VariCfgSec>"}},
};
inline constexpr SectionDeclaration kMirrorSection{"stVideoMirror", kMirrorFields, kMirrorSettings};

}  // namespace varcfg
