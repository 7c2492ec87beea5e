// The settings of one simulated recorder: every section of the catalog, shaped by the model's
// capabilities, with factory values until something is written.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "RequestReader.h"
#include "SettingsCatalog.h"

namespace varcfg::sim {

class SettingsStore {
public:
    SettingsStore(const std::string& model, const Capabilities& capabilities);

    // One checked value, ready to be applied.
    struct Change {
        std::size_t section;
        int child;    // -1 for a field of the section itself
        bool nested;  // a field of the child's nested element
        std::size_t field;
        std::string value;
    };

    // The section element of a DEVICE_QUERY reply; nothing when the recorder refuses the query (an
    // unknown section, an attribute other than StartChn, a StartChn that is no number).
    std::optional<std::string> QueryReply(const RequestElement& section) const;

    // The changes a DEVICE_SET section asks for; nothing when any part of it is refused, so that a set is
    // taken whole or not at all.
    std::optional<std::vector<Change>> PlanSet(const RequestElement& section) const;

    // A field of a section written by other means than DEVICE_SET: the centre server message and the
    // clock, which may also write fields that DEVICE_SET may not.
    std::optional<Change> PlanValue(std::string_view section, std::string_view attribute,
                                    std::string_view written) const;

    void Apply(const std::vector<Change>& changes);

    // The saved form: one line per kept value, "section [child [nested]] attribute=value", then the lines
    // a loaded text held that this recorder does not take, as they were, then an end line.
    std::string SavedText() const;

    struct LoadReport {
        int notTaken = 0;           // lines kept as written, but not taken
        std::string firstNotTaken;  // "line N: ..." for the first of them
        bool cutShort = false;      // the text ends inside a line, or lacks the end line of a saved text
    };
    // Takes every line of a saved text that the recorder would accept as written, and keeps the others
    // (another model's channels, a value out of range) to be saved again. A last line without its line
    // break is neither taken nor kept: it may have been cut.
    LoadReport LoadSavedText(std::string_view text);

private:
    struct ChildValues {
        std::vector<std::string> values;
        std::vector<std::string> nested;  // empty for children without the nested element
    };
    struct SectionValues {
        std::vector<std::string> values;
        std::vector<ChildValues> children;
    };

    std::optional<Change> PlanField(std::size_t section, int child, bool nested,
                                    const std::vector<SettingField>& fields, const RequestAttribute& attribute,
                                    bool mayWriteReadOnly) const;
    bool PlanChildren(std::size_t section, const RequestElement& container, std::vector<Change>& changes) const;
    std::optional<Change> PlanSavedLine(std::string_view line) const;
    void SetModelFactoryValues(const std::string& model);

    Capabilities capabilities_;
    std::vector<SectionValues> sections_;  // parallel to Catalog()
    std::vector<std::string> untakenLines_;
};

}  // namespace varcfg::sim
