#include "ui/win/ModuleState.h"

#include "ui/win/Dialog.h"

namespace varcfg {
namespace {

// The activation context of the manifest in this module's resources (id 2), made once.
HANDLE ModuleActivationContext() {
    static const HANDLE context = [] {
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        description.hModule = ResourceModule();
        description.lpResourceName = MAKEINTRESOURCEW(2);
        return CreateActCtxW(&description);
    }();
    return context;
}

}  // namespace

ModuleState::ModuleState() {
    const HANDLE context = ModuleActivationContext();
    active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != FALSE;
}

ModuleState::~ModuleState() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace varcfg
