// The bindings of a server section (stCMS, st808CMS1, st808CMS2, stPttDcn: one server by IP address or
// domain name, and its port) to a page's controls. A control id of 0 leaves its member decoded but not
// shown; the port is shown and taken as text, so that it is sent as typed.
#pragma once

#include "pages/base/Section.h"
#include "protocol/SectionRecords.h"

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
    const auto addressType = VARCFG_BIND(ServerRecord, addressType, "ucFD_AddressType", Integer);
    const auto domain = VARCFG_BIND(ServerRecord, domain, "strFD_Domain", Text);
    return {{controls.addressType != 0 ? addressType.InComboIndex(controls.addressType, varcfg::Unlisted::Clear)
                                       : addressType,
             VARCFG_BIND(ServerRecord, ip, "uiFD_IP", Ip).InIpAddress(controls.ip),
             controls.domain != 0 ? domain.InText(controls.domain) : domain,
             VARCFG_BIND(ServerRecord, port, "usFD_Port", Integer).InText(controls.port)}};
}
