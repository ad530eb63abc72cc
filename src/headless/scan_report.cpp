#include "headless/scan_report.h"

#include "cleaner/shown_path.h"
#include "headless/deletion_json.h"
#include "text/utf8.h"

#include <ostream>

namespace brovin::headless {
namespace {

constexpr std::chrono::milliseconds kProgressEvery{100};
constexpr std::string_view kClearLine = "\r\033[K";

} // namespace

void ScanReport::deletion(const cleaner::Deletion& deletion) {
    ++tried_;
    failed_ += deletion.deleted ? 0 : 1;
    kb_ += deletion.deleted ? deletion.kb : 0;
    clearProgress();
    if (options_.json) {
        console_.out << deletionJson(deletion, options_.dryRun, messages_) << "\n";
        return;
    }
    const std::string path = cleaner::listedPath(deletion.folder, deletion.name);
    if (!deletion.deleted)
        console_.out << "could not delete " << path << ": " << deletion.reason << "\n";
    else
        console_.out << (options_.dryRun ? "would delete " : "deleted ") << path << "\n";
}

void ScanReport::folderFailed(const std::string& path, const std::string& reason) {
    ++foldersFailed_;
    clearProgress();
    console_.err << "brovin: " << cleaner::listedPath(path, {}) << ": " << reason << "\n";
}

void ScanReport::progress(const std::string& text) {
    waitingSince_.reset();
    if (!console_.progress)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now < nextProgress_)
        return;
    nextProgress_ = now + kProgressEvery;
    constexpr std::size_t kLineWidth = 79;
    const std::string shown = text::displayText(text);
    console_.err << kClearLine << text::firstCharacters(shown, kLineWidth) << std::flush;
    progressShown_ = true;
}

void ScanReport::waiting(const std::string& path) {
    constexpr std::chrono::seconds kLong{5};
    const auto now = std::chrono::steady_clock::now();
    if (!waitingSince_)
        waitingSince_ = now;
    if (now < *waitingSince_ + kLong)
        return;
    waitingSince_ = std::chrono::steady_clock::time_point::max() - kLong; // said once a folder
    clearProgress();
    console_.err << "brovin: " << cleaner::listedPath(path, {})
                 << ": the disk does not answer; still waiting\n";
}

void ScanReport::clearProgress() {
    if (progressShown_)
        console_.err << kClearLine << std::flush;
    progressShown_ = false;
}

void ScanReport::summary(const cleaner::FolderSweep& sweep) {
    clearProgress();
    leftOut_ = sweep.notVisited > 0;
    const std::uint64_t done = tried_ - failed_;
    if (options_.json) {
        console_.out << "{\"summary\":{\"dryRun\":" << (options_.dryRun ? "true" : "false")
                     << ",\"deleted\":" << (options_.dryRun ? 0 : done)
                     << ",\"wouldDelete\":" << (options_.dryRun ? done : 0) << ",\"failed\":" << failed_
                     << ",\"kb\":" << kb_ << ",\"foldersSwept\":" << sweep.foldersOpened
                     << ",\"foldersFailed\":" << foldersFailed_
                     << ",\"subfoldersNotVisited\":" << sweep.notVisited;
        if (sweep.keeps())
            console_.out << ",\"kept\":" << sweep.kept;
        if (sweep.spares())
            console_.out << ",\"spared\":" << sweep.spared;
        console_.out << "}}\n";
        return;
    }
    console_.out << (options_.dryRun ? "Would delete " : "Deleted ") << done
                 << (done == 1 ? " item" : " items") << ", " << kb_ << " KB, in " << sweep.foldersOpened
                 << (sweep.foldersOpened == 1 ? " folder.\n" : " folders.\n");
    if (failed_ > 0)
        console_.out << failed_ << " could not be deleted.\n";
    if (sweep.keeps())
        console_.out << sweep.kept << " kept, as the Keep List says.\n";
    if (sweep.spared > 0)
        console_.out << sweep.spared << " spared, because they carry something.\n";
    if (sweep.notVisited > 0)
        console_.out << sweep.notVisited << " subfolders were not visited: more than "
                     << cleaner::FolderSweep::kMostSubfolders << " in one folder.\n";
}

} // namespace brovin::headless
