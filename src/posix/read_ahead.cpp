#include "posix/read_ahead.h"

#include "posix/open_folder.h"
#include "posix/plain_name.h"
#include "posix/system_call.h"

#include <pthread.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <new>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace brovin::posix {
namespace {

using State = ReadItem::State;

constexpr std::size_t kMostOfOneFolder = std::size_t{256} * 1024; ///< bytes; the walk reads on from there
/// All together may hold 32 MiB: this, what each thread has in hand, and a folder of each on its way into the
/// plan.
constexpr std::size_t kMostBytes = std::size_t{22} * 1024 * 1024;
constexpr std::chrono::milliseconds kAskPatienceEvery{10}; // events go through then

/// A third of what the program may open besides its own needs: the walk and what it deletes need some, too.
std::size_t mostFolders() {
    constexpr rlim_t kOwnNeeds = 64;
    rlimit files{};
    if (::getrlimit(RLIMIT_NOFILE, &files) != 0 || files.rlim_cur <= kOwnNeeds)
        return 0;
    return static_cast<std::size_t>(
        std::min<rlim_t>((files.rlim_cur - kOwnNeeds) / 3, ReadAhead::kMostFolders));
}

/// Signals are the program's to handle, not those of a thread that reads.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_{};
};

/// What one thread reads with.
class Reader {
public:
    /// Empty: it cannot be read ahead.
    ReadFolder read(const ReadItem& item);

    std::vector<std::string> names; ///< of the folders in the folder that was read
    std::optional<std::chrono::nanoseconds> took;

private:
    DirectoryReader records_;
    FolderWatch watch_;
};

ReadFolder Reader::read(const ReadItem& item) try {
    names.clear();
    took.reset();
    const FolderHandle parent = item.parent.lock();
    if (!parent || !isPlainName(item.name)) // a hostile disk may give names that lead elsewhere
        return {};
    watch_.start();
    platform::Result<Descriptor> folder = openFolderIn(parent->number(), item.name.c_str());
    if (!folder || !records_.read(folder->number(), kMostOfOneFolder))
        return {};
    took = watch_.stop(records_.bytes());
    while (const auto record = records_.next()) {
        if (record->kind == platform::EntryKind::Folder && names.size() < ReadPlan::kMostOfOneFolder)
            names.emplace_back(record->name);
    }
    return {FolderChain::held(std::move(*folder)), records_.copy()};
} catch (const std::bad_alloc&) {
    return {};
}

} // namespace

ReadAhead::ReadAhead(const DiskPace& pace) : plan_({mostFolders(), kMostBytes}), pace_(pace) {}

bool ReadAhead::possible() {
    return mostFolders() > 0;
}

void ReadAhead::stop() {
    const Lock lock(mutex_);
    stopped_ = true;
    plan_.dropBelow(0);
    work_.notify_all();
}

void ReadAhead::note(std::optional<std::chrono::nanoseconds> took) {
    const Lock lock(mutex_);
    pace_.note(took);
}

bool ReadAhead::slow() {
    const Lock lock(mutex_);
    return pace_.slow();
}

void ReadAhead::plan(const FolderHandle& parent, std::size_t depth, const std::vector<std::string>& names) {
    const Lock lock(mutex_);
    try {
        plan_.add(parent, depth, names);
    } catch (const std::bad_alloc&) {
        plan_.dropBelow(depth);
    }
    wake(names.size());
}

platform::Result<ReadFolder> ReadAhead::take(std::size_t depth, std::string_view name,
                                             const Patience& patience) {
    Lock lock(mutex_);
    const auto item = plan_.advanceTo(depth, name);
    // What no thread has begun on a disk that is fast again, no thread will: the disk may get fast in the
    // wait, too.
    const auto settled = [this, &item] {
        return item->state == State::Planned ? !pace_.slow() : item->state != State::Reading;
    };
    if (item && threads_ > 0 && !settled()) {
        wake(1);
        if (platform::Status waited = wait(lock, patience, settled); !waited)
            return waited.failure();
    }
    ReadFolder content = item ? plan_.take(item) : ReadFolder{};
    wake(1);
    return content;
}

platform::Status ReadAhead::release(std::size_t depth, std::string_view name, const Patience& patience) {
    Lock lock(mutex_);
    const auto reading = plan_.drop(depth, name);
    return wait(lock, patience, [&reading] {
        return std::none_of(reading.begin(), reading.end(), [](const auto& item) { return item->inHand; });
    });
}

template <class Over>
platform::Status ReadAhead::wait(Lock& lock, const Patience& patience, Over over) {
    awaited_ = true;
    while (!over()) {
        if (done_.wait_for(lock, kAskPatienceEvery) == std::cv_status::no_timeout || !patience)
            continue;
        lock.unlock(); // whoever is asked may let the user do things
        const bool goesOn = patience();
        lock.lock();
        if (!goesOn) {
            awaited_ = false;
            return systemFailure(ECANCELED);
        }
    }
    awaited_ = false;
    return platform::Done{};
}

void ReadAhead::dropBelow(std::size_t depth) {
    const Lock lock(mutex_);
    plan_.dropBelow(depth);
    wake(kMostThreads);
}

void ReadAhead::reopened(const FolderHandle& folder, std::size_t depth) {
    const Lock lock(mutex_);
    plan_.reopened(folder, depth);
}

/// So many folders more may be read: threads that wait are told, and more are hired as long as none waits.
void ReadAhead::wake(std::size_t most) {
    std::size_t folders = pace_.slow() ? std::min(most, plan_.planned()) : 0;
    for (std::size_t told = std::min<std::size_t>(folders, idle_); told > 0; --told, --folders)
        work_.notify_one();
    while (folders > 0 && threads_ < kMostThreads && hire())
        --folders;
}

bool ReadAhead::hire() {
    try {
        const SignalsBlocked blocked; // as the thread inherits it
        std::thread([self = shared_from_this()] { self->work(); }).detach();
        ++threads_;
        return true;
    } catch (const std::system_error&) { // there are as many as the system grants
        return false;
    } catch (const std::bad_alloc&) { // or as memory has room for
        return false;
    }
}

void ReadAhead::finish(const std::shared_ptr<ReadItem>& item, ReadFolder content,
                       const std::vector<std::string>& names) {
    try {
        if (content.folder)
            plan_.done(item, std::move(content), names);
        else
            plan_.failed(item);
    } catch (const std::bad_alloc&) { // some of the folders below are not planned: the walk reads them itself
    }
    content = {}; // the plan has it, or nobody wants it any more
    item->inHand = false;
}

void ReadAhead::work() {
    Reader reader;
    Lock lock(mutex_);
    while (!stopped_) {
        const auto item = pace_.slow() ? plan_.next() : nullptr;
        if (!item) {
            ++idle_;
            work_.wait(lock);
            --idle_;
            continue;
        }
        lock.unlock();
        ReadFolder content = reader.read(*item);
        lock.lock();
        pace_.note(reader.took);
        if (!pace_.slow())
            reader.names.clear(); // the walk itself is as fast from here on
        finish(item, std::move(content), reader.names);
        wake(reader.names.size());
        if (awaited_)
            done_.notify_all();
    }
}

} // namespace brovin::posix
