#pragma once

#include "posix/descriptor.h"
#include "posix/directory_reader.h"
#include "posix/folder_chain.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::posix {

/// An open folder and the first part of its entries.
struct ReadFolder {
    FolderHandle folder;
    FolderRecords records;
};

/// A folder that a walk will come to, as far as anybody can know.
struct ReadItem {
    enum class State : std::uint8_t { Planned, Reading, Read, Gone };

    std::string name;
    std::size_t depth = 0; ///< of the walk's top: 0
    /// The folder above. It is not kept open for this one: a walk that goes deep must not use up the
    /// descriptors.
    std::weak_ptr<const Descriptor> parent;
    State state = State::Planned;
    bool inHand = false;  ///< a thread is at it, even if it has gone from the plan meanwhile
    ReadFolder content{}; ///< when it was read
    std::list<std::shared_ptr<ReadItem>>::iterator position{}; ///< in the plan, unless gone
};

/// The folders that lie before a walk, in the order in which it will come to them: the first of a folder's
/// folders, all below that, then the second. Says which one is to be read next, and keeps what was read
/// within bounds. Knows neither the disk nor threads.
class ReadPlan {
public:
    struct Limits {
        std::size_t folders = 0; ///< open and read, or being read
        std::size_t bytes = 0;   ///< of their records and of the names that were found in them
    };
    explicit ReadPlan(const Limits& limits) : limits_(limits) {}

    /// As many of one folder are planned: a walk that goes into more finds the rest in place.
    static constexpr std::size_t kMostOfOneFolder = 512;

    /// Adds folders of the folder in which the walk is, behind those of it that are known.
    void add(const FolderHandle& parent, std::size_t depth, const std::vector<std::string>& names);

    /// The next one to read, marked as being read; null: there is none, or no room for it. Where there is no
    /// room, what was read further on makes some.
    std::shared_ptr<ReadItem> next();

    /// An item that next() gave was read. Its folders come right behind it.
    void done(const std::shared_ptr<ReadItem>& item, ReadFolder content,
              const std::vector<std::string>& names);

    /// An item that next() gave could not be read.
    void failed(const std::shared_ptr<ReadItem>& item);

    /// The folder of this name in the folder in which the walk is, if it is planned. What lies before it is
    /// dropped: the walk has passed it over.
    std::shared_ptr<ReadItem> advanceTo(std::size_t depth, std::string_view name);

    /// The walk goes into it: its own folders are the next. Empty: it was not read.
    ReadFolder take(const std::shared_ptr<ReadItem>& item);

    /// The folder of this name where the walk is and all below it are not to be come to. Those that are being
    /// read are handed back, for the caller to wait.
    std::vector<std::shared_ptr<ReadItem>> drop(std::size_t depth, std::string_view name);

    /// Drops everything below folders of this depth: the walk has gone back to there, or looks anew.
    void dropBelow(std::size_t depth);

    /// The folder in which the walk is was opened anew.
    void reopened(const FolderHandle& folder, std::size_t depth);

    [[nodiscard]] std::size_t planned() const { return planned_; }
    [[nodiscard]] std::size_t held() const { return held_; }
    [[nodiscard]] std::size_t bytes() const { return bytes_; }

private:
    using Items = std::list<std::shared_ptr<ReadItem>>;

    Items::iterator childNamed(std::size_t depth, std::string_view name);
    void insert(Items::iterator where, const FolderHandle& parent, std::size_t depth,
                const std::vector<std::string>& names);
    Items::iterator erase(Items::iterator it);
    void release(ReadItem& item);
    bool makeRoomBehind(Items::iterator candidate);
    /// Never as long as nothing is held, so that a walk that waits for the first one does not wait for ever.
    [[nodiscard]] bool full() const {
        return held_ > 0 && (held_ >= limits_.folders || bytes_ >= limits_.bytes);
    }

    Limits limits_;
    Items items_;
    std::size_t planned_ = 0;
    std::size_t held_ = 0;
    std::size_t bytes_ = 0;
};

} // namespace brovin::posix
