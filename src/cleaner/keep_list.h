#pragma once

#include "cleaner/name_list.h"

#include <string>

namespace brovin::cleaner {

/// What is never deleted, by anybody: names, and full paths of entries and folders, each with all that is in
/// it. The list, its buttons and its place in the store. The user cannot edit it while a scan runs.
class KeepList {
public:
    explicit KeepList(const NameListNeeds& needs) : needs_(needs) {}

    /// Fills `lstKeep` from the store.
    void load();

    /// Adds a name or a full path and stores the list. False: it is neither, or a scan runs, or the list is
    /// full. What stands on it already is not added again.
    bool add(const std::string& entry);
    /// Adds entries for this run alone, and stores nothing.
    void addUnstored(const std::string& entry);

    void cmdAddKeep_Click();
    void cmdRemoveKeep_Click();
    void lstKeep_Click();

private:
    [[nodiscard]] bool has(const std::string& entry) const;
    void save();
    void enableRemoving();

    NameListNeeds needs_;
};

} // namespace brovin::cleaner
