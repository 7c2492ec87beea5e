// CDlgTabEncoderCfgOsd: the items the recorder overlays on its video (stOSD): device number, channel
// name, time, GPS, licence plate, speed, temperature, I/O state and G-sensor, each on or off. Every
// save writes all nine.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgOsd : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgOsd();

    // 1 when read, 0 when the transport failed, -1 when the reply was refused.
    int Refresh() override;
    // 1 when written and accepted, else 0, with the boxes left as the user set them.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
