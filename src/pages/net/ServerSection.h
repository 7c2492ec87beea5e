// The bindings of a server section (stCMS, st808CMS1, st808CMS2, stPttDcn: one server by IP address or
// domain name, and its port) to a page's controls. A control id of 0 leaves its member decoded but not
// shown; the port is shown and taken as text, so that it is sent as typed.
#pragma once

#include "pages/base/Section.h"
#include "catalogue/NetworkCatalogue.h"

struct ServerControls {
    int addressType;
    int ip;
    int domain;
    int port;
};

struct ServerBindings {
    varcfg::Binding<varcfg::ServerRecord> rows[4];
};

constexpr ServerBindings BindServer(const ServerControls& controls) {
    using varcfg::ServerRecord;
    using varcfg::BindAttribute;
    using varcfg::kServerFields;
    const auto addressType = BindAttribute(kServerFields, "ucFD_AddressType");
    const auto domain = BindAttribute(kServerFields, "strFD_Domain");
    return {{controls.addressType != 0 ? addressType.InComboIndex(controls.addressType, varcfg::Unlisted::Clear)
                                       : addressType,
             BindAttribute(kServerFields, "uiFD_IP").InIpAddress(controls.ip),
             controls.domain != 0 ? domain.InText(controls.domain) : domain,
             BindAttribute(kServerFields, "usFD_Port").InText(controls.port)}};
}
