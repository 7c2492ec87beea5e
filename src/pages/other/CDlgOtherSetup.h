// CDlgOtherSetup: the recorder's time zone and daylight saving time (stBaseInfo), its power-off delay
// (stPower), and two actions that take effect at once: formatting a disk and setting the recorder's
// clock, each asked first. The time picker follows the local clock while its box is ticked.
#pragma once

#include "pages/base/CDlgCfgBase.h"
#include "protocol/SectionRecords.h"

class CDlgOtherSetup : public CDlgCfgBase {
public:
    CDlgOtherSetup();

    // The base information, then the power section. -1 when either reply was refused (a refused base
    // information is not followed by the power query); 1 when the power section was read, or when its
    // transport failed after the base information was read; 0 otherwise. A section that does not decode
    // (a device number of other than 5 to 12 characters) leaves its controls as they were.
    int Refresh() override;
    // The base information when it differs from the last one read or written, then the delay when it
    // differs from its last value. A refused base information stops the save (0); a transport failure
    // does not. -1, sending nothing, when the typed delay is refused.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    void OnTimer(UINT_PTR timer) override;

private:
    void FormatDisk();
    void SetDeviceClock();
    // A picker's value, "YYYY-MM-DD HH:MM:SS".
    std::wstring PickerText(int control);
    // The time picker's time, " HH:MM:SS", to follow a date.
    std::wstring TimeOfDay();

    // The base information as last written (at first, as a zeroed record gives it), or empty after a
    // read: a save writes the base information when its setting differs, so the first save after a read
    // always writes it.
    std::wstring lastBaseInfoSetting_;
    bool followLocalClock_ = true;
};
