#include "cleaner/delete_rules.h"

namespace brovin::cleaner {

NameSet::NameSet(const std::vector<ui::ListControl::Item>& items) {
    for (const auto& item : items) {
        names_.insert(item.text);
        lengths_.set(lengthClass(item.text));
        beginnings_.set(beginning(item.text));
    }
}

Match DeleteRules::match(std::string_view name, const NameSet& names) const {
    if (iconFiles && name.ends_with('?') && name.starts_with("icon"))
        return Match::Icon;
    if (names.contains(name))
        return Match::Listed;
    if (dotDash && name.starts_with("._") && !names.empty())
        return Match::DotDash;
    return Match::None;
}

} // namespace brovin::cleaner
