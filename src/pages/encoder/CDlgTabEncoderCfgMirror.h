// CDlgTabEncoderCfgMirror: left-right and up-down mirroring of each camera (stVideoMirror). Rows of
// channels the recorder does not have are hidden; every save still writes all eight channels, those
// with the states last held for them.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgMirror : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgMirror();

    // 1 when read, 0 when the transport failed, -1 when the reply was refused.
    int Refresh() override;
    // 1 when written and accepted, else 0, with the boxes left as the user set them.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
