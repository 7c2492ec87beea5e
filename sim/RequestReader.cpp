#include "RequestReader.h"

#include <cstddef>

namespace varcfg::sim {
namespace {

// The deepest request is VariCfgSec > stAlarmLinkage > stAlarmLinkageItem > AlarmLinkageItem_N >
// stAlarmOutIO; the limits leave room and keep a hostile text from nesting without end.
constexpr std::size_t kMaxDepth = 8;
constexpr std::size_t kMaxElements = 512;

bool IsNameStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool IsNameChar(char c) { return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

struct Tag {
    bool isEnd = false;
    bool closesItself = false;
    RequestElement element;
};

class TagScanner {
public:
    explicit TagScanner(std::string_view text) : text_(text) {}

    enum class Step { Tag, Skipped, End, Unreadable };

    // Moves to the next tag and reads it.
    Step Next(Tag& tag) {
        const std::size_t open = text_.find('<', position_);
        if (open == std::string_view::npos) return Step::End;
        position_ = open + 1;
        if (Follows("?")) return SkipPast("?>");
        if (Follows("!--")) return SkipPast("-->");
        if (Follows("!")) return Step::Unreadable;
        tag = Tag();
        if (Follows("/")) {
            ++position_;
            tag.isEnd = true;
            if (!ReadName(tag.element.name)) return Step::Unreadable;
            SkipBlanks();
            return Take('>') ? Step::Tag : Step::Unreadable;
        }
        if (!ReadName(tag.element.name)) return Step::Unreadable;
        for (;;) {
            SkipBlanks();
            if (Take('>')) return Step::Tag;
            if (Follows("/>")) {
                position_ += 2;
                tag.closesItself = true;
                return Step::Tag;
            }
            RequestAttribute attribute;
            if (!ReadAttribute(attribute)) return Step::Unreadable;
            tag.element.attributes.push_back(std::move(attribute));
        }
    }

private:
    bool Follows(std::string_view what) const { return text_.substr(position_, what.size()) == what; }

    Step SkipPast(std::string_view end) {
        const std::size_t found = text_.find(end, position_);
        if (found == std::string_view::npos) return Step::Unreadable;
        position_ = found + end.size();
        return Step::Skipped;
    }

    bool Take(char c) {
        if (position_ >= text_.size() || text_[position_] != c) return false;
        ++position_;
        return true;
    }

    void SkipBlanks() {
        while (position_ < text_.size() && IsBlank(text_[position_])) ++position_;
    }

    bool ReadName(std::string& name) {
        if (position_ >= text_.size() || !IsNameStart(text_[position_])) return false;
        const std::size_t start = position_;
        while (position_ < text_.size() && IsNameChar(text_[position_])) ++position_;
        name.assign(text_.substr(start, position_ - start));
        return true;
    }

    bool ReadAttribute(RequestAttribute& attribute) {
        if (!ReadName(attribute.name)) return false;
        SkipBlanks();
        if (!Take('=')) return false;
        SkipBlanks();
        if (position_ >= text_.size()) return false;
        const char quote = text_[position_];
        if (quote != '"' && quote != '\'') return false;
        const std::size_t valueStart = position_ + 1;
        const std::size_t valueEnd = text_.find(quote, valueStart);
        if (valueEnd == std::string_view::npos) return false;
        attribute.value.assign(text_.substr(valueStart, valueEnd - valueStart));
        position_ = valueEnd + 1;
        return true;
    }

    std::string_view text_;
    std::size_t position_ = 0;
};

// The index in the open path of the innermost element with that name, or npos.
std::size_t FindOpen(const std::vector<RequestElement*>& open, const std::string& name) {
    for (std::size_t i = open.size(); i-- > 0;) {
        if (open[i]->name == name) return i;
    }
    return std::string::npos;
}

}  // namespace

const RequestAttribute* RequestElement::Attribute(std::string_view attributeName) const {
    const RequestAttribute* found = nullptr;
    for (const RequestAttribute& attribute : attributes) {
        if (attribute.name == attributeName) found = &attribute;
    }
    return found;
}

std::optional<RequestElement> ReadRequest(std::string_view text) {
    RequestElement root;
    bool rootRead = false;
    // Elements still open, outermost first. Only the innermost one gets children, so the addresses of
    // the others stay valid while their children vectors grow.
    std::vector<RequestElement*> open;
    std::size_t elementCount = 0;
    TagScanner scanner(text);

    while (!(rootRead && open.empty())) {
        Tag tag;
        const TagScanner::Step step = scanner.Next(tag);
        if (step == TagScanner::Step::Unreadable) return std::nullopt;
        if (step == TagScanner::Step::End) break;
        if (step == TagScanner::Step::Skipped) continue;

        const std::size_t openIndex = FindOpen(open, tag.element.name);
        const bool closesAnOpenElement =
            tag.isEnd || (!tag.closesItself && tag.element.attributes.empty() && openIndex != std::string::npos);
        if (closesAnOpenElement) {
            if (openIndex != std::string::npos) open.resize(openIndex);
            continue;
        }
        if (++elementCount > kMaxElements) return std::nullopt;

        RequestElement* added = nullptr;
        if (!rootRead) {
            root = std::move(tag.element);
            rootRead = true;
            added = &root;
        } else {
            if (open.size() >= kMaxDepth) return std::nullopt;
            open.back()->children.push_back(std::move(tag.element));
            added = &open.back()->children.back();
        }
        if (!tag.closesItself) open.push_back(added);
    }
    if (!rootRead) return std::nullopt;
    return root;
}

}  // namespace varcfg::sim
