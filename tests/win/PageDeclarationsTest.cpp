// Every page of the panel, reached through the category table and the tabs of each tab host, held to
// what it declares: its queries travel in the records its sections name, and every declared field with
// a length limit or a range refuses a value just past it before anything is sent.
#include <windows.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <map>
#include <set>
#include <memory>
#include <string>
#include <vector>

#include "HostCallback.h"
#include "ModalWatcher.h"
#include "PageHarness.h"
#include "TestHostWindow.h"
#include "base/AnsiText.h"
#include "base/TemplateText.h"
#include "catalogue/SectionCatalogue.h"
#include "channel/DeviceVersion.h"
#include "channel/HostBridge.h"
#include "pages/about/CDlgAboutSetup.h"
#include "pages/alarm/CDlgTabAlarmCfgBase.h"
#include "pages/alarm/CDlgTabAlarmCfgGSensor.h"
#include "pages/base/CDlgTabHost.h"
#include "pages/parking/CDlgStopOverTime.h"
#include "pages/security/CDlgUserSafeSetup.h"
#include "shell/Categories.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::Enter;
using varcfg::test::ModalWatcher;

namespace {

constexpr long long kStandardRecord = 2064;
constexpr long long kLargeRecord = 9712;

struct SeenRequest {
    std::string text;
    long long recordDistance;
};

// The simulated recorder of a model with every kind of page content (inputs, outputs, ports, eight
// channels), recording each request with the distance from its record to the reply record.
struct RecordingLink {
    sim::SimulatedRecorder recorder{"MR8-O1"};
    std::vector<SeenRequest> requests;

    static int32_t Forward(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
        auto& link = *static_cast<RecordingLink*>(context);
        link.requests.push_back(
            {request->data, reinterpret_cast<const char*>(reply) - reinterpret_cast<const char*>(request)});
        return sim::AnswerHostRequest(mode, request, reply, &link.recorder);
    }
};

// The section a request names: the element after the envelope's first.
std::string SectionOf(const std::string& request) {
    const std::size_t start = request.find("><") + 2;
    return request.substr(start, request.find_first_of(" />", start) - start);
}

bool IsQuery(const std::string& request) { return request.find("DEVICE_QUERY") != std::string::npos; }

// Every page of the panel with a name for messages: a category's page, or each tab of a tab host.
struct PanelPages {
    explicit PanelPages(HWND host) {
        for (const Category& category : Categories()) {
            categories.push_back(category.createPage());
            CDlgCfgBase& page = *categories.back();
            page.Create(host);
            pages.push_back({&page, "category " + std::to_string(category.index)});
            auto* tabHost = dynamic_cast<CDlgTabHost*>(&page);
            if (tabHost == nullptr) continue;
            const std::vector<CDlgCfgBase*> tabs = tabHost->Pages();
            for (std::size_t t = 0; t < tabs.size(); ++t) {
                pages.push_back({tabs[t], "category " + std::to_string(category.index) + " tab " + std::to_string(t)});
            }
        }
    }
    struct Named {
        CDlgCfgBase* page;
        std::string name;
    };
    std::vector<std::unique_ptr<CDlgCfgBase>> categories;
    std::vector<Named> pages;
};

class PageDeclarations : public ::testing::Test {
protected:
    PageDeclarations() {
        varcfg::test::UseEnglishTexts();
        SetConfigFunction(&RecordingLink::Forward, nullptr, &link);
        Device() = DeviceState{};
        std::strncpy(Device().version.model, "MR8-O1", sizeof Device().version.model - 1);
        Device().version.videoChannelCount = 8;
        Device().versionKnown = 1;
        AssignProfile();
    }
    ~PageDeclarations() override {
        host.Destroy();
        SetConfigFunction(nullptr, nullptr, nullptr);
    }

    RecordingLink link;
    varcfg::test::HostWindow host;
};

TEST_F(PageDeclarations, EveryQueryTravelsInTheRecordsItsSectionDeclares) {
    ModalWatcher watcher;
    PanelPages panel(host);
    std::map<std::string, long long> declared;
    for (const auto& [page, name] : panel.pages) {
        for (const SectionInfo& section : page->DeclaredSections()) {
            const long long size = section.recordSize == RecordSize::Large ? kLargeRecord : kStandardRecord;
            const auto entry = declared.emplace(section.name, size).first;
            EXPECT_EQ(entry->second, size) << name << " declares " << section.name << " in other records";
        }
    }
    std::map<std::string, long long> large;
    for (const auto& [page, name] : panel.pages) {
        SCOPED_TRACE(name);
        link.requests.clear();
        page->Refresh();
        for (const SeenRequest& request : link.requests) {
            if (!IsQuery(request.text)) continue;
            const auto found = declared.find(SectionOf(request.text));
            EXPECT_EQ(request.recordDistance, found != declared.end() ? found->second : kStandardRecord)
                << request.text;
            if (request.recordDistance == kLargeRecord) large[SectionOf(request.text)] = request.recordDistance;
        }
    }
    // The sub stream and the speed alarms answer with more than a standard record holds.
    EXPECT_EQ(large, (std::map<std::string, long long>{{"stSpeedAlarm", kLargeRecord}, {"stSubStream", kLargeRecord}}));
    EXPECT_TRUE(watcher.Problems().empty());
}

TEST_F(PageDeclarations, EachPageExchangesExactlyTheSectionsItDeclares) {
    PanelPages panel(host);
    for (const auto& [page, name] : panel.pages) {
        // A tab host passes its loads and saves on to the shown tab, which is checked on its own.
        if (dynamic_cast<CDlgTabHost*>(page) != nullptr) continue;
        std::set<std::string> declared;
        std::set<std::string> read;
        for (const SectionInfo& section : page->DeclaredSections()) {
            declared.insert(section.name);
            if (section.read) read.insert(section.name);
        }
        if (declared.empty()) continue;
        SCOPED_TRACE(name);
        ModalWatcher watcher;
        watcher.Queue(Answer::Key(VK_RETURN));  // a question before the write is answered yes
        link.requests.clear();
        page->Refresh();
        std::set<std::string> queried;
        for (const SeenRequest& request : link.requests) queried.insert(SectionOf(request.text));
        // The version is read once for the whole panel, not by the page that shows it.
        if (read.count("stVersion") != 0) queried.insert("stVersion");
        EXPECT_EQ(queried, read) << "the load";
        link.requests.clear();
        page->Save();
        for (const SeenRequest& request : link.requests) {
            EXPECT_EQ(declared.count(SectionOf(request.text)), 1u) << "the save sent " << request.text;
        }
    }
}

TEST_F(PageDeclarations, CatalogueSectionsAreBoundByTheirDeclaredAttributesAndFilledFromThem) {
    PanelPages panel(host);
    std::set<std::string> written;
    for (const auto& [page, name] : panel.pages) {
        for (const SectionInfo& section : page->DeclaredSections()) {
            if (section.declaration == nullptr) continue;
            SCOPED_TRACE(name + " " + section.name);
            const SectionDeclaration& declared = *section.declaration;
            EXPECT_EQ(FindCatalogueSection(section.name), &declared) << "declared in the catalogue, once";
            for (std::size_t b = 0; b < section.bindings.size(); ++b) {
                const FieldBinding& bound = section.bindings[b].field;
                bool found = false;
                for (std::size_t a = 0; a < declared.attributes.size(); ++a) {
                    const FieldBinding& attribute = declared.attributes[a];
                    found = found || (SameName(attribute.attribute, bound.attribute) &&
                                      attribute.offset == bound.offset && attribute.size == bound.size &&
                                      attribute.kind == bound.kind);
                }
                EXPECT_TRUE(found) << bound.attribute << " as the catalogue declares it";
            }
            ASSERT_LT(section.setting, declared.settingCount);
            const SettingTemplate& setting = declared.settings[section.setting];
            for (const TemplateText* part : {&setting.head, &setting.entry, &setting.tail}) {
                for (std::size_t p = 0; p < part->sourceCount; ++p) {
                    const PlaceholderSource& source = part->sources[p];
                    if (source.kind != SourceKind::Attribute) continue;
                    // A shown attribute is sent as its control holds it, one decoded but not shown as read.
                    bool bound = false;
                    for (std::size_t b = 0; b < section.bindings.size(); ++b) {
                        bound = bound || SameName(section.bindings[b].field.attribute, source.attribute);
                    }
                    EXPECT_TRUE(bound) << "placeholder " << p + 1 << " names " << source.attribute
                                       << ", which the page does not bind";
                }
            }
            written.insert(section.name);
        }
    }
    // Every catalogue section is written by a page through its declaration.
    for (auto entry = CatalogueBegin(); entry != CatalogueEnd(); ++entry) {
        EXPECT_EQ(written.count((*entry)->name), 1u) << (*entry)->name << " has no page";
    }
}

// A value just past a field's rule, and the message that refuses it.
struct PastTheRule {
    std::wstring value;
    std::wstring message;
};

bool HasRule(const ViewRule& view) {
    return (view.show == Show::Text && view.max > 0) || view.show == Show::Number || view.show == Show::Decimal;
}

PastTheRule PastRule(const ViewRule& view) {
    switch (view.show) {
        case Show::Text:
            return {std::wstring(static_cast<std::size_t>(view.max) + 1, L'7'),
                    FillTemplate(L"Please enter no more than %s characters.", {view.max})};
        case Show::Number:
            return {std::to_wstring(view.max + 1), FillTemplate(L"Please enter an integer between %s and %s.",
                                                                {view.min, view.max})};
        default:
            return {std::to_wstring(static_cast<long long>(std::floor(view.realMax)) + 1),
                    FillTemplate(L"Please enter a number between %g and %g.", {view.realMin, view.realMax})};
    }
}

bool ShowsText(const test::SeenWindow& box, const std::wstring& text) {
    for (const std::wstring& shown : box.StaticTexts()) {
        if (shown == text) return true;
    }
    return false;
}

TEST_F(PageDeclarations, AValuePastAFieldsRuleIsRefusedBeforeAnythingIsSent) {
    ModalWatcher watcher;
    PanelPages panel(host);
    int fields = 0;
    for (const auto& [page, name] : panel.pages) {
        // The parking, alarm base and G-sensor pages tell the operator and still send what their fields
        // then hold; the security page reports a refusal as a failed save; the about page sends nothing
        // and always reports success.
        const bool sendsAnyway = dynamic_cast<CDlgStopOverTime*>(page) != nullptr ||
                                 dynamic_cast<CDlgTabAlarmCfgBase*>(page) != nullptr ||
                                 dynamic_cast<CDlgTabAlarmCfgGSensor*>(page) != nullptr;
        const int refusedResult = dynamic_cast<CDlgUserSafeSetup*>(page) != nullptr ? 0
                                  : dynamic_cast<CDlgAboutSetup*>(page) != nullptr  ? 1
                                                                                    : -1;
        for (const SectionInfo& section : page->DeclaredSections()) {
            for (std::size_t i = 0; i < section.bindings.size(); ++i) {
                const ViewRule& view = section.bindings[i].view;
                if (!HasRule(view)) continue;
                ++fields;
                const PastTheRule past = PastRule(view);
                SCOPED_TRACE(name + " " + section.name + " control " + std::to_string(view.control) + " value " +
                             ToAnsi(past.value));
                ASSERT_EQ(page->Refresh(), 1);
                Enter(page->Hwnd(), view.control, past.value);
                link.requests.clear();
                const std::size_t boxesBefore = watcher.Seen().size();
                watcher.Queue(Answer::Key(VK_RETURN));
                const int result = page->Save();

                ASSERT_GT(watcher.Seen().size(), boxesBefore);
                EXPECT_TRUE(ShowsText(watcher.Seen()[boxesBefore], past.message)) << ToAnsi(past.message);
                EXPECT_EQ(GetFocus(), GetDlgItem(page->Hwnd(), view.control));
                if (sendsAnyway) {
                    EXPECT_EQ(link.requests.size(), 1u);
                } else {
                    EXPECT_EQ(result, refusedResult);
                    EXPECT_TRUE(link.requests.empty()) << link.requests.front().text;
                }
            }
        }
    }
    EXPECT_TRUE(watcher.Problems().empty());
    // Limits and ranges of the about, network, alarm, parking, security and other setup pages.
    EXPECT_GE(fields, 19);
}

}  // namespace
