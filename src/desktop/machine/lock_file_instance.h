#pragma once

#include "platform/single_instance.h"
#include "posix/descriptor.h"

#include <QLockFile>
#include <QSocketNotifier>

#include <functional>
#include <optional>
#include <string>

namespace brovin::desktop {

/// The first copy holds a lock file; one that a killed copy has left behind is taken over. Beside the file it
/// listens on a socket of this user's alone, where a later copy can have it do an errand.
class LockFileInstance final : public platform::SingleInstance {
public:
    explicit LockFileInstance(const std::string& path);
    ~LockFileInstance() override;
    LockFileInstance(const LockFileInstance&) = delete;
    LockFileInstance& operator=(const LockFileInstance&) = delete;

    /// Does what a later copy asks for.
    std::function<void(platform::Errand)> serve;

    /// A lock that cannot be made at all, on a read-only disk for instance, keeps nobody from starting.
    [[nodiscard]] bool isFirst() override;
    [[nodiscard]] bool sendToFirst(platform::Errand errand) override;

private:
    void openDoor();
    void admit();
    void listenTo(posix::Descriptor asking);

    QLockFile lock_;
    std::string socket_;
    posix::Descriptor door_; ///< where later copies knock; none while this is not the first one
    std::optional<QSocketNotifier> knocking_;
};

} // namespace brovin::desktop
