// The host developers' guide, held to the product: the control ids it gives a host to drive the panel
// are the panel's own.
#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>

#include "res/resource.h"

namespace {

std::string GuideText() {
    std::ifstream file(VARCFG_GUIDE_PATH);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// The guide's table row that starts with the label, e.g. "| Read, Write (below the page) | 1009, 2020 |".
std::string RowValues(const std::string& guide, const std::string& label) {
    const std::size_t start = guide.find("| " + label + " | ");
    if (start == std::string::npos) return "(no row " + label + ")";
    const std::size_t values = start + label.size() + 5;
    return guide.substr(values, guide.find(" |", values) - values);
}

}  // namespace

TEST(IntegratingGuide, GivesThePanelsOwnControlIds) {
    const std::string guide = GuideText();
    ASSERT_FALSE(guide.empty()) << VARCFG_GUIDE_PATH;
    const auto ids = [](std::initializer_list<int> list) {
        std::string text;
        for (int id : list) text += (text.empty() ? "" : ", ") + std::to_string(id);
        return text;
    };
    EXPECT_EQ(RowValues(guide, "menu: about, network, encoder, alarm, serial ports"),
              ids({IDC_MENU_ABOUT, IDC_MENU_NETWORK, IDC_MENU_ENCODER, IDC_MENU_ALARM, IDC_MENU_SERIAL}));
    EXPECT_EQ(RowValues(guide, "menu: parking overtime, users and security, other settings, user data"),
              ids({IDC_MENU_PARKING, IDC_MENU_USER_SECURITY, IDC_MENU_OTHER, IDC_MENU_USER_DATA}));
    EXPECT_EQ(RowValues(guide, "Read, Write (below the page)"), ids({IDC_SETUP_READ, IDC_SETUP_WRITE}));
    EXPECT_EQ(RowValues(guide, "the tip: its text (a static control), its confirm button"), ids({IDC_TIP_TEXT, 1}));
    EXPECT_EQ(RowValues(guide, "user data page: request, reply"), ids({IDC_USER_DATA_REQUEST, IDC_USER_DATA_REPLY}));
}
