// SPDX-FileCopyrightText: 2026 The Brovin contributors
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/updates/updates.h"

#include "desktop/updates/curl_transfer.h"
#include "desktop/window/download_window.h"
#include "net/private_downloads.h"
#include "net/sodium_key.h"

namespace brovin::desktop {

struct Updates::Parts {
    explicit Parts(const UpdateSource& source)
        : key(source.key), machine{transfer, downloads, key, windows, source.server} {}

    CurlTransfer transfer;
    net::PrivateDownloads downloads{net::downloadFolderPath()};
    net::SodiumKey key;
    DownloadWindows windows;
    update::Machine machine;
};

Updates::Updates(const UpdateSource& source) : parts_(std::make_unique<Parts>(source)) {}
Updates::~Updates() = default;

bool Updates::builtIn() {
    return true;
}
const update::Machine* Updates::machine() const {
    return &parts_->machine;
}
void Updates::setOwner(QWidget* owner) {
    parts_->windows.setOwner(owner);
}
bool Updates::open() const {
    return parts_->windows.open();
}

} // namespace brovin::desktop
