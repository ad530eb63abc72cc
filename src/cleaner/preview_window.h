#pragma once

#include "cleaner/keep_list.h"
#include "cleaner/preview.h"
#include "cleaner/preview_view.h"
#include "platform/clock.h"
#include "platform/shell.h"
#include "ui/frm_preview.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace brovin::cleaner {

/// How the window of the preview behaves.
class PreviewWindow {
public:
    struct Needs {
        ui::FrmPreview& form;
        const ui::FoldersPage& foldersPage;
        ScanState& scan;
        companion::Speech speech;
        Preview& preview;
        KeepList& keepList;
        platform::FileSystem& files;
        platform::Shell& shell;
        platform::EventPump& pump;
        const platform::Clock& clock;
        const platform::Regional& regional;
        const platform::Letters& letters;
    };
    explicit PreviewWindow(const Needs& needs);
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;

    /// Shows the window and searches. Without a folder it says so, as the scan does; while a scan or a search
    /// runs it only shows the window.
    void cmdPreview_Click();

    void cmdStop_Click();
    void cmdDeleteThese_Click();
    void cmdKeepThis_Click();
    void cmdKeepName_Click();
    void cmdKeepFolder_Click();
    void cmdOpenFolder_Click();
    void tblFound_TitleClick(std::size_t column);
    void tblFound_Tick(std::size_t line, bool on);
    void tblFound_Select();
    void Form_Close();

private:
    void tie();
    void dress();
    void search();
    void setRunning(bool running);
    void tellFound();
    void arrange();
    void tickShown(bool on);
    void tick(std::size_t firstLine, std::size_t end, bool on);
    void keep(const std::string& entry);
    void clearKept(const std::string& kept);
    /// PreviewRows::kNone: none.
    [[nodiscard]] std::uint32_t selected() const;
    [[nodiscard]] ui::Table::Line lineOf(std::size_t line) const;
    [[nodiscard]] std::string whyOf(const PreviewRow& row) const;
    [[nodiscard]] std::string sizeOf(std::uint64_t bytes) const;
    [[nodiscard]] std::string ageOf(const PreviewRow& row) const;
    [[nodiscard]] std::string lostWith(std::uint32_t at) const;
    [[nodiscard]] std::string number(std::uint64_t count) const;
    [[nodiscard]] std::string shownName(const PreviewRow& row) const;

    Needs needs_;
    PreviewView view_;
    Preview::Outcome outcome_ = Preview::Outcome::Done;
    std::chrono::milliseconds shownAt_{};
    std::int64_t searchedAt_ = 0; ///< what ages are counted from: seconds, UTC
    bool searching_ = false;
};

} // namespace brovin::cleaner
