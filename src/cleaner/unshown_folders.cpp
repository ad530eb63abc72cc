#include "cleaner/unshown_folders.h"

#include "text/utf8.h"

#include <algorithm>
#include <vector>

namespace brovin::cleaner {
namespace {

/// A folder is listed while the user waits: what lies behind so many pieces of a huge one is not looked for.
constexpr int kMostPieces = 100;

/// In a folder that no picker can enter, those with plain names count, too.
std::vector<std::string> unshownIn(const std::string& path, platform::FileSystem& files) {
    std::vector<std::string> names;
    const auto walk = files.open(path);
    if (!walk)
        return names;
    const bool all = !text::isUtf8(path);
    auto entries = (*walk)->list();
    for (int piece = 0; entries && !entries->empty() && piece < kMostPieces; ++piece) {
        for (const platform::Entry& entry : *entries)
            if (entry.kind == platform::EntryKind::Folder && (all || !text::isUtf8(entry.trueName)))
                names.emplace_back(entry.trueName);
        entries = (*walk)->listMore();
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

std::string throughUnshownFolders(std::string picked, platform::FileSystem& files, platform::Dialogs& dialogs,
                                  const language::MessageTable& messages) {
    while (!picked.empty()) {
        const std::vector<std::string> names = unshownIn(picked, files);
        if (names.empty())
            break;
        std::vector<std::string> lines{text::displayText(picked)};
        for (const std::string& name : names)
            lines.push_back(text::displayText(name));
        const auto chosen = dialogs.choose(messages.getText("unshownFolders"), lines);
        if (!chosen)
            return {};
        if (*chosen == 0)
            break;
        if (!picked.ends_with(platform::kPathSeparator))
            picked += platform::kPathSeparator;
        picked += names[*chosen - 1];
    }
    return picked;
}

} // namespace brovin::cleaner
