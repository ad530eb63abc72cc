#pragma once

#include "platform/result.h"
#include "posix/disk_pace.h"
#include "posix/read_plan.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::posix {

/// Opens and lists folders on threads of its own before a walk comes to them, so that many requests to a slow
/// disk are under way at a time. Folders are opened by their name in an open folder, links unfollowed, as the
/// walk itself does it. Whatever cannot be read ahead is left to the walk, which then finds out why.
///
/// Its threads share it with the walk, and the walk waits for none of them: one that a dead server holds goes
/// when that answers, or with the program.
class ReadAhead : public std::enable_shared_from_this<ReadAhead> {
public:
    static constexpr unsigned kMostThreads = 16;
    static constexpr std::size_t kMostFolders = 256;

    /// False: the walk is to wait no longer. Asked some times a second.
    using Patience = std::function<bool()>;

    /// `pace` is what the walk has found out about the disk.
    explicit ReadAhead(const DiskPace& pace);

    /// Whether the program may open enough files for it.
    [[nodiscard]] static bool possible();

    /// The walk is over. Nothing further is opened.
    void stop();

    /// How long a folder took that the walk has read itself.
    void note(std::optional<std::chrono::nanoseconds> took);

    /// Whether it is worth while to tell it what lies ahead.
    [[nodiscard]] bool slow();

    /// Tells the folders of the one in which the walk is, so many folders below its top.
    void plan(const FolderHandle& parent, std::size_t depth, const std::vector<std::string>& names);

    /// The folder of this name in the one in which the walk is. Waits for it when it is planned and the disk
    /// slow. Empty: it is for the walk to read. Failure: the patience ended.
    platform::Result<ReadFolder> take(std::size_t depth, std::string_view name, const Patience& patience);

    /// Sees to it that nothing holds the folder of this name, or one below it, open: it is to be deleted,
    /// which some file servers refuse then. Failure: the patience ended.
    platform::Status release(std::size_t depth, std::string_view name, const Patience& patience);

    /// The walk has gone back to a folder of this depth, or lists it anew.
    void dropBelow(std::size_t depth);

    /// The folder in which the walk is was opened anew.
    void reopened(const FolderHandle& folder, std::size_t depth);

private:
    using Lock = std::unique_lock<std::mutex>;

    void wake(std::size_t most);
    bool hire();
    void work();
    void finish(const std::shared_ptr<ReadItem>& item, ReadFolder content,
                const std::vector<std::string>& names);
    template <class Over>
    platform::Status wait(Lock& lock, const Patience& patience, Over over);

    std::mutex mutex_;
    std::condition_variable work_;
    std::condition_variable done_;
    ReadPlan plan_;
    DiskPace pace_;
    unsigned threads_ = 0;
    unsigned idle_ = 0;
    bool awaited_ = false; ///< the walk waits for `done_`
    bool stopped_ = false;
};

} // namespace brovin::posix
