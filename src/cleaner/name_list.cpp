#include "cleaner/name_list.h"

#include "cleaner/stored_list.h"

#include <utility>
#include <vector>

namespace brovin::cleaner {

void loadNames(const NameListNeeds& needs, ui::ListBox& list, std::string_view section) {
    std::vector<ui::ListControl::Item> items;
    for (ListEntry& entry : loadList(needs.settings, section, needs.letters))
        items.push_back({std::move(entry.text), 0});
    list.setItems(std::move(items));
}

bool saveNames(const NameListNeeds& needs, const ui::ListBox& list, std::string_view section) {
    std::vector<ListEntry> entries;
    for (const ui::ListControl::Item& item : list.items())
        entries.push_back({item.text, {}});
    return saveList(needs.settings, section, entries, WithPaths::No, needs.letters);
}

} // namespace brovin::cleaner
