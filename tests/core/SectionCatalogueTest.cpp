// The section catalogue as data: each section declared once, each template's placeholders matched by
// sources that the section can fill, roles naming attributes that exist.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "catalogue/SectionCatalogue.h"

using namespace varcfg;

namespace {

// The printf conversions of a template ("%%" writes a percent sign and takes no value).
std::size_t Conversions(const wchar_t* text) {
    std::size_t count = 0;
    for (const wchar_t* c = text; *c != L'\0'; ++c) {
        if (*c != L'%') continue;
        if (c[1] == L'%') {
            ++c;
            continue;
        }
        ++count;
    }
    return count;
}

bool Declares(const SectionDeclaration& section, const char* attribute) {
    for (std::size_t a = 0; a < section.attributes.size(); ++a) {
        if (SameName(section.attributes[a].attribute, attribute)) return true;
    }
    return false;
}

}  // namespace

TEST(SectionCatalogue, EverySectionIsDeclaredOnceWithTemplatesItsAttributesCanFill) {
    std::set<std::string> names;
    for (auto entry = CatalogueBegin(); entry != CatalogueEnd(); ++entry) {
        const SectionDeclaration& section = **entry;
        SCOPED_TRACE(section.name);
        EXPECT_TRUE(names.insert(section.name).second) << "declared twice";
        EXPECT_EQ(FindCatalogueSection(section.name), &section);
        ASSERT_GT(section.settingCount, 0u);
        for (std::size_t t = 0; t < section.settingCount; ++t) {
            const SettingTemplate& setting = section.settings[t];
            const std::string name = section.name;
            EXPECT_NE(std::wstring(setting.head.text).find(std::wstring(name.begin(), name.end())), std::wstring::npos)
                << "template " << t << " names its section";
            EXPECT_EQ(setting.repeated, std::wstring(setting.entry.text) != L"") << "template " << t;
            for (const TemplateText* part : {&setting.head, &setting.entry, &setting.tail}) {
                EXPECT_EQ(Conversions(part->text), part->sourceCount) << "template " << t;
                for (std::size_t p = 0; p < part->sourceCount; ++p) {
                    const PlaceholderSource& source = part->sources[p];
                    EXPECT_TRUE(source.kind != SourceKind::Attribute || Declares(section, source.attribute))
                        << "template " << t << " placeholder " << p + 1 << ": " << source.attribute;
                    EXPECT_TRUE(setting.repeated || source.kind != SourceKind::EntryNumber)
                        << "template " << t << " numbers an entry it does not repeat";
                }
            }
        }
        for (std::size_t r = 0; r < section.roleCount; ++r) {
            EXPECT_TRUE(Declares(section, section.roles[r].attribute)) << section.roles[r].attribute;
        }
    }
    EXPECT_EQ(FindCatalogueSection("stnosuchsection"), nullptr);
    EXPECT_NE(FindCatalogueSection("STLOCALETH0"), nullptr) << "names compare without regard to case";
}

TEST(SectionCatalogue, VehicleValuesAndSecretsAreMarked) {
    const SectionDeclaration* localEth = FindCatalogueSection("stLocalEth0");
    const SectionDeclaration* mobile = FindCatalogueSection("stMobileGNet");
    ASSERT_NE(localEth, nullptr);
    ASSERT_NE(mobile, nullptr);
    EXPECT_EQ(localEth->RoleOf("uiFD_LocalIp"), AttributeRole::Identity);
    EXPECT_EQ(localEth->RoleOf("strfd_mac"), AttributeRole::Identity);
    EXPECT_EQ(localEth->RoleOf("uiFD_NetMask"), AttributeRole::Setting);
    EXPECT_EQ(mobile->RoleOf("strFD_UserPasswd"), AttributeRole::Secret);
    EXPECT_EQ(mobile->RoleOf("strFD_Apn"), AttributeRole::Setting);
    EXPECT_EQ(FindCatalogueSection("stCarInfo")->RoleOf("strFD_LicensePlate"), AttributeRole::Identity);
    EXPECT_EQ(FindCatalogueSection("stUserSec")->RoleOf("strFD_AdminPasswd"), AttributeRole::Secret);
}
