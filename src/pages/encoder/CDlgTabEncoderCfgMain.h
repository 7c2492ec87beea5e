// CDlgTabEncoderCfgMain: the main (recording) stream (stMainStream): the video system, the video mode,
// the encoding format, and per channel the resolution, frame rate, bit rate, audio and video. The
// recorder answers two channels per request (StartChn 0, 2, ...), so the page reads and writes by
// pairs. What the lists offer follows the model: its resolution class and its feature groups.
#pragma once

#include <cstdint>
#include <string>

#include "pages/base/CDlgCfgBase.h"
#include "protocol/EncoderRecords.h"

class CDlgTabEncoderCfgMain : public CDlgCfgBase {
public:
    static constexpr int kMaxChannels = 8;

    CDlgTabEncoderCfgMain();

    // The result of the last pair: 1 read, 0 transport failed, -1 reply refused; 0 without channels.
    int Refresh() override;
    // The result of the last pair: 1 written and accepted, else 0; 1 without channels.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    int ChannelCount() const;
    // Fills the lists that depend on the model and shows its rows, once per model and channel count.
    void FillModelLists();
    int LoadPair(int startChannel);
    int SavePair(int startChannel);
    // Shows a decoded channel in row n: its bit rates follow its resolution.
    void ShowChannel(int n, const varcfg::MainStreamChannel& channel);
    // Refills a channel's bit rates from the row of a resolution code, with that row's default.
    void FillBitRates(int n, int resolution);
    // Refills a channel's frame rates up to the system's maximum (and, with caps, the model's limit at
    // 1080P), selecting its stored rate.
    void FillFrameRates(int n, bool capped);
    void FillAllFrameRates(bool capped);
    void OnResolutionChanged(int n);
    void OnCameraTypes();

    std::string listsModel_;
    int listsChannels_ = -1;
    bool modeFixed_ = false;
    uint32_t keptVideoFmt_ = 0;
    varcfg::MainStreamChannel decoded_[kMaxChannels]{};
    int storedFrameRates_[kMaxChannels]{};
};
