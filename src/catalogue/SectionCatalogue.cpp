#include "catalogue/SectionCatalogue.h"

#include <iterator>

#include "catalogue/AlarmCatalogue.h"
#include "catalogue/EncoderCatalogue.h"
#include "catalogue/NetworkCatalogue.h"
#include "catalogue/SerialCatalogue.h"
#include "catalogue/SystemCatalogue.h"

namespace varcfg {
namespace {

// In the order of the panel's menu and tabs.
const SectionDeclaration* const kCatalogue[] = {
    &kNetWorkModeSection, &kLocalEthSection,   &kWifiSection,       &kWifiAccessPointSection,
    &kMobileSection,      &kPttSection,        &kPttCentreSection,
    &kCarInfoSection,     &k808Server1Section, &k808Server2Section, &kSubStreamSection, &kOsdSection,
    &kMirrorSection,      &kRecordingSection,  &kAlarmInSection,    &kGSensorSection,  &kSerialSection,
    &kSpeedAlarmSection,  &kUserSecuritySection, &kBaseInfoSection, &kPowerSection,
};

}  // namespace

AttributeRole SectionDeclaration::RoleOf(const char* attribute) const {
    for (std::size_t i = 0; i < roleCount; ++i) {
        if (SameName(roles[i].attribute, attribute)) return roles[i].role;
    }
    return AttributeRole::Setting;
}

const SectionDeclaration* const* CatalogueBegin() { return std::begin(kCatalogue); }
const SectionDeclaration* const* CatalogueEnd() { return std::end(kCatalogue); }

const SectionDeclaration* FindCatalogueSection(const char* name) {
    for (const SectionDeclaration* section : kCatalogue) {
        if (SameName(section->name, name)) return section;
    }
    return nullptr;
}

}  // namespace varcfg
