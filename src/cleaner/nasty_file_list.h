#pragma once

#include "cleaner/name_list.h"

#include <optional>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// The names that are deleted wherever they occur: the list, its buttons and its place in the store. The user
/// cannot edit it while a scan runs.
class NastyFileList {
public:
    explicit NastyFileList(const NameListNeeds& needs) : needs_(needs) {}

    /// Fills `lstFiles` from the store.
    void load();

    /// Adds names, which are in lower case and may stand on the list; those that find no room are left out.
    void add(const std::vector<std::string>& names);
    /// Tells what is lost with the selected name, or how to begin while the list is empty.
    void tellKnown();

    void cmdAddFile_Click();
    void cmdRemoveFile_Click();
    void lstFiles_Click();

private:
    [[nodiscard]] std::optional<std::string> askForName();
    bool save();
    void enableRemoving();

    NameListNeeds needs_;
};

} // namespace brovin::cleaner
