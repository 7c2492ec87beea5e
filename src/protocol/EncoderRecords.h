// Plain records of the encoder sections: main stream, sub stream, OSD and mirror.
#pragma once

#include <cstdint>

namespace varcfg {

// stMainStream: the settings shared by all channels; each stVideoPara child fills a MainStreamChannel.
struct MainStreamRecord {
    uint8_t videoMode;    // 0 PAL, 1 NTSC
    uint32_t videoFmt;    // four bits per channel, channel 1 lowest: 0 960H, 1 720P, 2 1080P, 15 unused
    uint8_t vEncFormat;   // 0 H.264, 1 H.265
};

struct MainStreamChannel {
    uint8_t resolution;  // 6 1080P, 5 720P, 2 D1, 4 CIF
    uint8_t frameRate;
    uint32_t bitRate;    // kbit/s
    uint32_t disableAudio;
    uint32_t disableVideo;
};

// stSubStream: one setting for all channels.
struct SubStreamRecord {
    uint8_t encodeMode;  // presets 0-2, 3 custom
    uint8_t resolution;  // 2 D1, 4 CIF
    uint8_t quality;
    uint8_t frameRate;
    uint32_t bitRate;    // kbit/s
};

// stOSD: the items overlaid on the recorded video, each on or off.
struct OsdRecord {
    uint8_t deviceNoEnable;
    uint8_t chnNameEnable;
    uint8_t timeEnable;
    uint8_t gpsEnable;
    uint8_t lPlateEnable;
    uint8_t speedEnable;
    uint8_t tempEnable;
    uint8_t ioEnable;
    uint8_t gSensorEnable;
};

// One stVideoMirrorPara child of stVideoMirror.
struct MirrorChannel {
    uint8_t leftRight;
    uint8_t upDown;
};

}  // namespace varcfg
