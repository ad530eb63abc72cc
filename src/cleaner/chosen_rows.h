#pragma once

#include "cleaner/choice.h"
#include "cleaner/preview_rows.h"
#include "platform/event_pump.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::cleaner {

/// The chosen rows of a preview, for the sweep to delete: each only if it is still the entry that was shown.
/// What became of each stands in its row. However many there are, events go through from the first `begin`
/// on.
class ChosenRows final : public Choice {
public:
    /// `rows` stays as it is but for the marks while this lives.
    ChosenRows(PreviewRows& rows, platform::EventPump& pump) : rows_(rows), pump_(pump) {}

    bool begin(const std::string& truePath) override;
    [[nodiscard]] bool leadsInto(std::string_view trueName) const override;
    void enter(std::string_view trueName) override;
    void leave() override;
    bool takes(platform::FolderEntries& folder, const platform::Entry& entry) override;
    void tried(bool deleted) override;

    /// Of a run that has gone through all: what the sweep has not come upon is not where it was.
    void finish();

private:
    void prepare();
    void stand(std::uint32_t folder);
    [[nodiscard]] std::uint32_t below(std::string_view trueName) const;
    [[nodiscard]] std::uint32_t& place(std::string_view trueName);

    PreviewRows& rows_;
    platform::EventPump& pump_;
    bool prepared_ = false;
    std::vector<std::uint32_t> tops_;  ///< wanted watched folders that the sweep has yet to begin
    std::vector<std::uint32_t> below_; ///< wanted folders by the one above and their name
    std::vector<std::uint32_t> way_;   ///< down to where the sweep is
    /// Chosen rows of the folder where it is, at the place that their name's hash gives or behind it. One
    /// piece of memory, so that a folder of a million is left as quickly as another.
    std::vector<std::uint32_t> here_;
    std::uint32_t taken_ = PreviewRows::kNone;
};

} // namespace brovin::cleaner
