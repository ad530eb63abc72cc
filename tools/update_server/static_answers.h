// SPDX-FileCopyrightText: 2026 The Brovin contributors
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "offers.h"

#include <string>
#include <string_view>

namespace brovin::update_server {

/// A regular expression for all texts that begin with a number of at least `version`, which is digits with at
/// most one point: whoever has such a version of a language file is offered nothing.
[[nodiscard]] std::string atLeast(std::string_view version);

/// Writes everything that a server says about `folder` as files into `target`, which must not be there yet:
/// the answers, the documents, and nginx.conf, which hands them out by the same questions. False: something
/// cannot be read or written.
[[nodiscard]] bool publish(const std::string& folder, const std::string& publicUrl,
                           const std::string& target);

} // namespace brovin::update_server
