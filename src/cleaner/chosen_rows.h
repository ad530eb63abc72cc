#pragma once

#include "cleaner/choice.h"
#include "cleaner/preview_rows.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace brovin::cleaner {

/// The chosen rows of a preview, for the sweep to delete: each only if it is still the entry that was shown.
/// What became of each stands in its row.
class ChosenRows final : public Choice {
public:
    /// `rows` stays as it is but for the states while this lives.
    explicit ChosenRows(PreviewRows& rows);

    bool begin(const std::string& truePath) override;
    [[nodiscard]] bool leadsInto(std::string_view trueName) const override;
    void enter(std::string_view trueName) override;
    void leave() override;
    bool takes(platform::FolderEntries& folder, const platform::Entry& entry) override;
    void tried(bool deleted) override;

    /// Of a run that has gone through all: what the sweep has not come upon is not where it was.
    void finish();

private:
    using Below = std::map<std::pair<std::uint32_t, std::string_view>, std::uint32_t, std::less<>>;

    void stand(std::uint32_t folder);

    PreviewRows& rows_;
    std::vector<char> wanted_;        ///< beside the folders: something chosen is in it or below it
    Below below_;                     ///< the wanted folders, by the one above and their name
    std::vector<std::uint32_t> tops_; ///< wanted watched folders that the sweep has yet to begin
    std::vector<std::uint32_t> way_;  ///< down to where the sweep is
    std::unordered_map<std::string_view, std::uint32_t> here_; ///< chosen rows of the folder where it is
    std::uint32_t taken_ = PreviewRows::kNone;
};

} // namespace brovin::cleaner
