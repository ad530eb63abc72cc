#pragma once

#include "platform/single_instance.h"

#include <QLocalServer>
#include <QLockFile>

#include <functional>

namespace brovin::desktop {

/// The first copy holds a lock file; one that a killed copy has left behind is taken over. Beside the file it
/// listens on a socket of this user's alone, where a later copy can ask for the window.
class LockFileInstance final : public platform::SingleInstance {
public:
    explicit LockFileInstance(const QString& path);

    /// What brings this copy's window up when a later copy asks for it.
    std::function<void()> showYourself;

    /// A lock that cannot be made at all, on a read-only disk for instance, keeps nobody from starting.
    [[nodiscard]] bool isFirst() override;
    [[nodiscard]] bool showFirst() override;

private:
    void answer();

    QLockFile lock_;
    QString socket_;
    QLocalServer server_;
};

} // namespace brovin::desktop
