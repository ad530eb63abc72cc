#include "posix/read_plan.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brovin::posix {
namespace {

using State = ReadItem::State;

/// What an item takes beside its records.
std::size_t bytesOf(const ReadItem& item) {
    return sizeof(ReadItem) + item.name.capacity();
}

} // namespace

void ReadPlan::add(const FolderHandle& parent, std::size_t depth, const std::vector<std::string>& names) {
    const auto end = std::find_if(items_.begin(), items_.end(),
                                  [depth](const auto& item) { return item->depth <= depth; });
    insert(end, parent, depth + 1, names);
}

void ReadPlan::insert(Items::iterator where, const FolderHandle& parent, std::size_t depth,
                      const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (bytes_ >= limits_.bytes)
            return;
        const auto item =
            std::make_shared<ReadItem>(ReadItem{.name = name, .depth = depth, .parent = parent});
        item->position = items_.insert(where, item);
        bytes_ += bytesOf(*item);
        ++planned_;
    }
}

std::shared_ptr<ReadItem> ReadPlan::next() {
    if (planned_ == 0)
        return nullptr;
    const auto candidate = std::find_if(items_.begin(), items_.end(),
                                        [](const auto& item) { return item->state == State::Planned; });
    while (full()) {
        if (!makeRoomBehind(candidate))
            return nullptr;
    }
    (*candidate)->state = State::Reading;
    (*candidate)->inHand = true;
    --planned_;
    ++held_;
    return *candidate;
}

/// Gives up the last folder that was read, if the walk comes to the candidate before.
bool ReadPlan::makeRoomBehind(Items::iterator candidate) {
    for (auto it = items_.end(); --it != candidate;) {
        ReadItem& item = **it;
        if (item.state != State::Read)
            continue;
        for (auto below = std::next(it); below != items_.end() && (*below)->depth > item.depth;)
            below = erase(below);
        release(item);
        item.state = State::Planned;
        ++planned_;
        return true;
    }
    return false;
}

void ReadPlan::done(const std::shared_ptr<ReadItem>& item, ReadFolder content,
                    const std::vector<std::string>& names) {
    if (item->state != State::Reading)
        return;
    item->state = State::Read;
    item->content = std::move(content);
    bytes_ += item->content.records.bytes;
    insert(std::next(item->position), item->content.folder, item->depth + 1, names);
}

void ReadPlan::failed(const std::shared_ptr<ReadItem>& item) {
    if (item->state == State::Reading)
        erase(item->position);
}

std::shared_ptr<ReadItem> ReadPlan::advanceTo(std::size_t depth, std::string_view name) {
    const auto found = childNamed(depth, name);
    if (found == items_.end())
        return nullptr;
    auto item = *found;
    while (items_.front() != item)
        erase(items_.begin());
    return item;
}

ReadFolder ReadPlan::take(const std::shared_ptr<ReadItem>& item) {
    if (item->state == State::Gone)
        return {};
    const std::size_t bytes = item->content.records.bytes;
    ReadFolder content = std::move(item->content);
    item->content = {};
    bytes_ -= bytes;
    erase(item->position);
    return content;
}

std::vector<std::shared_ptr<ReadItem>> ReadPlan::drop(std::size_t depth, std::string_view name) {
    std::vector<std::shared_ptr<ReadItem>> reading;
    auto it = childNamed(depth, name);
    if (it == items_.end())
        return reading;
    do {
        if ((*it)->state == State::Reading)
            reading.push_back(*it);
        it = erase(it);
    } while (it != items_.end() && (*it)->depth > depth + 1);
    return reading;
}

void ReadPlan::dropBelow(std::size_t depth) {
    while (!items_.empty() && items_.front()->depth > depth)
        erase(items_.begin());
}

void ReadPlan::reopened(const FolderHandle& folder, std::size_t depth) {
    for (const auto& item : items_) {
        if (item->depth <= depth)
            return;
        if (item->depth == depth + 1)
            item->parent = folder;
    }
}

ReadPlan::Items::iterator ReadPlan::childNamed(std::size_t depth, std::string_view name) {
    for (auto it = items_.begin(); it != items_.end() && (*it)->depth > depth; ++it) {
        if ((*it)->depth == depth + 1 && (*it)->name == name)
            return it;
    }
    return items_.end();
}

ReadPlan::Items::iterator ReadPlan::erase(Items::iterator it) {
    ReadItem& item = **it;
    if (item.state == State::Planned)
        --planned_;
    else
        release(item);
    item.state = State::Gone;
    bytes_ -= bytesOf(item);
    return items_.erase(it);
}

/// Lets go of what was read, or will come.
void ReadPlan::release(ReadItem& item) {
    --held_;
    bytes_ -= item.content.records.bytes;
    item.content = {};
}

} // namespace brovin::posix
