// The model table's text format, as a deployment's varcfg_models.tbl beside the DLL supplies it.
//
// - Any text is either refused with a fault that names its line, or read into a table.
// - A table read from a text reads the same again, and every model line it keeps can be looked up:
//   a model listed with a profile finds one, and group tests answer for every group.
// - Looking up any text, listed or not, is safe.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "protocol/ModelTable.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string error;
    const auto table = varcfg::ModelTable::Parse(text, error);
    if (!table) {
        Require(error.rfind("line ", 0) == 0);
        return 0;
    }
    std::string againError;
    const auto again = varcfg::ModelTable::Parse(text, againError);
    Require(again.has_value() && again->Entries().size() == table->Entries().size());

    for (const varcfg::ModelTable::Entry& entry : table->Entries()) {
        if (!entry.profile.empty()) Require(table->ProfileOf(entry.text) != nullptr);
        for (int group = 0; group < varcfg::kFeatureGroupCount; ++group) {
            table->IsInGroup(entry.text, static_cast<varcfg::FeatureGroup>(group));
        }
    }
    // The text's last line as a model text of its own.
    const std::size_t lineStart = text.find_last_of('\n');
    const std::string_view lastLine = lineStart == std::string_view::npos ? text : text.substr(lineStart + 1);
    table->ProfileOf(lastLine);
    table->IsInGroup(lastLine, varcfg::FeatureGroup::H265);
    return 0;
}
