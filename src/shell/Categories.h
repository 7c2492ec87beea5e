// The panel's categories, in menu order: the one table that the category menu and the setup area
// both read.
#pragma once

#include <cstdint>
#include <memory>

class CDlgCfgBase;

struct Category {
    int index;           // as the menu sends it to the container
    int menuButton;      // the menu's button control
    uint32_t captionId;  // the button's caption in the language file
    std::unique_ptr<CDlgCfgBase> (*createPage)();
};

// The nine categories: about, network, encoder, alarm, serial, parking overtime, user security, other
// setup, raw command.
const Category* CategoriesBegin();
const Category* CategoriesEnd();

struct CategoryList {
    const Category* begin() const { return CategoriesBegin(); }
    const Category* end() const { return CategoriesEnd(); }
};
inline CategoryList Categories() { return {}; }
