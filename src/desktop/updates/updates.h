// SPDX-FileCopyrightText: 2026 The Brovin contributors
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "update/update_check.h"

#include <memory>
#include <string>

class QWidget;

namespace brovin::desktop {

/// Where updates come from, and who vouches for them.
struct UpdateSource {
    std::string server; ///< without a path
    std::string key;    ///< the maker's public key in hex or base64; empty: this build has none
};

/// What it takes of this machine to update the program. A build for a distribution, which brings updates by
/// itself, has nothing of it (`BROVIN_UPDATES`).
class Updates {
public:
    explicit Updates(const UpdateSource& source);
    ~Updates();
    Updates(const Updates&) = delete;
    Updates& operator=(const Updates&) = delete;

    /// Whether this build can ask for updates at all.
    [[nodiscard]] static bool builtIn();

    /// Null: it cannot.
    [[nodiscard]] const update::Machine* machine() const;
    /// The window that owns those that are shown.
    void setOwner(QWidget* owner);
    /// Whether a window of an update is open: what else happens waits for it.
    [[nodiscard]] bool open() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace brovin::desktop
