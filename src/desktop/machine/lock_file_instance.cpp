#include "desktop/machine/lock_file_instance.h"

#include "posix/system_call.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>
#include <thread>
#include <utility>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace brovin::desktop {
namespace {

// By the system's own calls: the toolkit's local sockets bring its whole network library, and with it
// Kerberos and the proxies, into every start.

/// A copy that is itself starting answers when it has started.
constexpr std::chrono::seconds kAnswerWithin{10};
constexpr std::string_view kDone = "done\n";

/// A line on the socket for each errand.
constexpr struct {
    platform::Errand errand;
    std::string_view line;
} kLines[] = {
    {platform::Errand::ShowWindow, "show\n"},
    {platform::Errand::ScanNow, "scan\n"},
    {platform::Errand::SwitchQuiet, "quiet\n"},
};

/// nullopt: the path is longer than an address may be.
std::optional<sockaddr_un> addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return std::nullopt;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

posix::Descriptor localSocket(int manner) {
    return posix::Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | manner, 0));
}

template <class Call>
bool withAddress(const posix::Descriptor& socket, const std::string& path, Call call) {
    const auto address = addressOf(path);
    return address &&
           call(socket.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0;
}

bool send(const posix::Descriptor& socket, std::string_view line) {
    return ::send(socket.number(), line.data(), line.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(line.size());
}

/// A line is so short that it comes in one piece.
std::string receive(const posix::Descriptor& socket) {
    std::array<char, 16> line{};
    const ssize_t bytes =
        posix::uninterrupted([&] { return ::recv(socket.number(), line.data(), line.size(), 0); });
    return {line.data(), static_cast<std::size_t>(std::max<ssize_t>(bytes, 0))};
}

/// Between its lock and its door the first copy has a moment without either.
bool knock(const posix::Descriptor& asking, const std::string& path) {
    constexpr std::chrono::seconds kMoment{1};
    constexpr std::chrono::milliseconds kBetweenKnocks{20};
    const auto end = std::chrono::steady_clock::now() + kMoment;
    while (!withAddress(asking, path, ::connect)) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(kBetweenKnocks);
    }
    return true;
}

} // namespace

LockFileInstance::LockFileInstance(const std::string& path)
    : lock_(QFile::decodeName(path.c_str())), socket_(path + ".socket") {
    lock_.setStaleLockTime(0);
}

LockFileInstance::~LockFileInstance() {
    if (door_)
        ::unlink(socket_.c_str());
}

bool LockFileInstance::isFirst() {
    if (!lock_.tryLock(0))
        return lock_.error() != QLockFile::LockFailedError;
    openDoor(); // without it a later copy shows its message, which is no reason not to start
    return true;
}

/// The socket is this user's alone before anybody can see it under its name, and takes the place of one that
/// a killed copy has left behind.
void LockFileInstance::openDoor() {
    constexpr int kWaiting = 8;
    const std::string unfinished = socket_ + ".new";
    posix::Descriptor made = localSocket(SOCK_NONBLOCK);
    ::unlink(unfinished.c_str());
    if (!made || ::fchmod(made.number(), S_IRUSR | S_IWUSR) != 0 || !withAddress(made, unfinished, ::bind))
        return;
    if (::listen(made.number(), kWaiting) != 0 || std::rename(unfinished.c_str(), socket_.c_str()) != 0) {
        ::unlink(unfinished.c_str());
        return;
    }
    door_ = std::move(made);
    knocking_.emplace(door_.number(), QSocketNotifier::Read);
    QObject::connect(&*knocking_, &QSocketNotifier::activated, &*knocking_, [this] { admit(); });
}

void LockFileInstance::admit() {
    while (true) {
        posix::Descriptor asking(posix::uninterrupted(
            [this] { return ::accept4(door_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK); }));
        if (!asking)
            return;
        listenTo(std::move(asking));
    }
}

/// The answer comes first: an errand can take as long as a scan, and the later copy waits for a moment only.
void LockFileInstance::listenTo(posix::Descriptor asking) {
    auto* const heard = new QSocketNotifier(asking.number(), QSocketNotifier::Read, &*knocking_);
    const auto socket = std::make_shared<posix::Descriptor>(std::move(asking)); // closed with the notifier
    QObject::connect(heard, &QSocketNotifier::activated, heard, [this, heard, socket] {
        heard->setEnabled(false);
        heard->deleteLater();
        const std::string line = receive(*socket);
        const auto* const known = std::find_if(std::begin(kLines), std::end(kLines),
                                               [&line](const auto& row) { return line == row.line; });
        if (known != std::end(kLines) && serve && send(*socket, kDone))
            serve(known->errand);
    });
}

bool LockFileInstance::sendToFirst(platform::Errand errand) {
    const posix::Descriptor asking = localSocket(0);
    const timeval patience{kAnswerWithin.count(), 0};
    if (!asking || ::setsockopt(asking.number(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience) != 0 ||
        ::setsockopt(asking.number(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience) != 0 ||
        !knock(asking, socket_))
        return false;
    const auto* const row = std::find_if(std::begin(kLines), std::end(kLines),
                                         [errand](const auto& each) { return each.errand == errand; });
    return row != std::end(kLines) && send(asking, row->line) && !receive(asking).empty();
}

} // namespace brovin::desktop
