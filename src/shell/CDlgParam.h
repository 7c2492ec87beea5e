// CDlgParam: the panel the host shows. It holds the category menu on the left and the setup area on
// the right, and the four hidden test buttons. It owns itself: it lives as long as its window.
#pragma once

#include <memory>

#include "shell/CDlgCtrl.h"
#include "shell/CDlgSetup.h"

class CDlgParam : public varcfg::Dialog {
public:
    CDlgParam();

    // Creates a panel inside parent, covering its client area; null when it could not be created.
    static CDlgParam* CreateIn(HWND parent);

    CDlgCtrl* Menu() const { return menu_.get(); }
    CDlgSetup* Setup() const { return setup_.get(); }

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    void OnSize(int width, int height) override;
    void OnDestroy() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnFinalMessage() override { delete this; }

private:
    std::unique_ptr<CDlgCtrl> menu_;
    std::unique_ptr<CDlgSetup> setup_;
};
