// CDlgTabEncoderCfgSub: the sub (network) stream shared by all channels (stSubStream): encoding mode,
// resolution, quality, frame rate and bit rate. The three preset modes choose the frame and bit rate
// and grey the lists; the custom mode leaves them to the user. Models with the extended sub stream get
// the large rate lists and may change the resolution. Every save writes.
#pragma once

#include <string>

#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgSub : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgSub();

    // 1 when read, 0 when the transport failed, -1 when the reply was refused.
    int Refresh() override;
    // 1 when written and accepted, else 0.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    // Fills the lists that depend on the model, once per model.
    void FillModelLists();
    // Enables the custom lists in the custom mode and greys them otherwise.
    void EnableCustomLists(int mode);

    std::string listsModel_;
    bool listsFilled_ = false;
};
