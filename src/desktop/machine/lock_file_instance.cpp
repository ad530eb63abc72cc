#include "desktop/machine/lock_file_instance.h"

#include <algorithm>
#include <iterator>

namespace brovin::desktop {
namespace {
constexpr int kAnswerTime = 2000; ///< milliseconds; a copy that is alive answers at once

/// A line on the socket for each errand.
constexpr struct {
    platform::Errand errand;
    const char* line;
} kLines[] = {
    {platform::Errand::ShowWindow, "show\n"},
    {platform::Errand::ScanNow, "scan\n"},
    {platform::Errand::SwitchQuiet, "quiet\n"},
};
} // namespace

LockFileInstance::LockFileInstance(const QString& path)
    : lock_(path), socket_(path + QStringLiteral(".socket")) {
    lock_.setStaleLockTime(0);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
        while (QLocalSocket* asking = server_.nextPendingConnection())
            listenTo(asking);
    });
}

bool LockFileInstance::isFirst() {
    if (!lock_.tryLock(0))
        return lock_.error() != QLockFile::LockFailedError;
    server_.listen(socket_); // without it a later copy shows its message, which is no reason not to start
    return true;
}

/// The answer comes first: an errand can take as long as a scan, and the later copy waits for a moment only.
void LockFileInstance::listenTo(QLocalSocket* asking) {
    QObject::connect(asking, &QLocalSocket::disconnected, asking, &QObject::deleteLater);
    QObject::connect(asking, &QLocalSocket::readyRead, &server_, [this, asking] {
        if (!asking->canReadLine())
            return;
        const QByteArray line = asking->readLine();
        const auto* const known = std::find_if(std::begin(kLines), std::end(kLines),
                                               [&](const auto& row) { return line == row.line; });
        if (known == std::end(kLines) || !serve)
            return asking->abort();
        asking->write("done\n");
        asking->flush();
        asking->disconnectFromServer();
        serve(known->errand);
    });
}

bool LockFileInstance::sendToFirst(platform::Errand errand) {
    QLocalSocket asking;
    asking.connectToServer(socket_);
    if (!asking.waitForConnected(kAnswerTime))
        return false;
    for (const auto& row : kLines)
        if (row.errand == errand)
            asking.write(row.line);
    return asking.waitForReadyRead(kAnswerTime);
}

} // namespace brovin::desktop
