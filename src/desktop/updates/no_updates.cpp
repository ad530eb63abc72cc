// SPDX-FileCopyrightText: 2026 The Brovin contributors
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/updates/updates.h"

namespace brovin::desktop {

struct Updates::Parts {};

Updates::Updates(const UpdateSource& /*source*/) {}
Updates::~Updates() = default;

bool Updates::builtIn() {
    return false;
}
const update::Machine* Updates::machine() const {
    return nullptr;
}
void Updates::setOwner(QWidget* /*owner*/) {}
bool Updates::open() const {
    return false;
}

} // namespace brovin::desktop
