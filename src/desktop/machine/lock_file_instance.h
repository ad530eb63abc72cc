#pragma once

#include "platform/single_instance.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>

#include <functional>

namespace brovin::desktop {

/// The first copy holds a lock file; one that a killed copy has left behind is taken over. Beside the file it
/// listens on a socket of this user's alone, where a later copy can have it do an errand.
class LockFileInstance final : public platform::SingleInstance {
public:
    explicit LockFileInstance(const QString& path);

    /// Does what a later copy asks for.
    std::function<void(platform::Errand)> serve;

    /// A lock that cannot be made at all, on a read-only disk for instance, keeps nobody from starting.
    [[nodiscard]] bool isFirst() override;
    [[nodiscard]] bool sendToFirst(platform::Errand errand) override;

private:
    void listenTo(QLocalSocket* asking);

    QLockFile lock_;
    QString socket_;
    QLocalServer server_;
};

} // namespace brovin::desktop
