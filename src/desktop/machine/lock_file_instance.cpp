#include "desktop/machine/lock_file_instance.h"

#include <QLocalSocket>

namespace brovin::desktop {
namespace {
constexpr int kAnswerTime = 2000; ///< milliseconds; a copy that is alive answers at once
}

LockFileInstance::LockFileInstance(const QString& path)
    : lock_(path), socket_(path + QStringLiteral(".socket")) {
    lock_.setStaleLockTime(0);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { answer(); });
}

bool LockFileInstance::isFirst() {
    if (!lock_.tryLock(0))
        return lock_.error() != QLockFile::LockFailedError;
    server_.listen(socket_); // without it a later copy shows its message, which is no reason not to start
    return true;
}

void LockFileInstance::answer() {
    while (QLocalSocket* asking = server_.nextPendingConnection()) {
        if (showYourself)
            showYourself();
        QObject::connect(asking, &QLocalSocket::disconnected, asking, &QObject::deleteLater);
        asking->write("shown\n");
        asking->disconnectFromServer();
    }
}

bool LockFileInstance::showFirst() {
    QLocalSocket asking;
    asking.connectToServer(socket_, QIODevice::ReadOnly);
    return asking.waitForConnected(kAnswerTime) && asking.waitForReadyRead(kAnswerTime);
}

} // namespace brovin::desktop
