#pragma once

#include "platform/result.h"

#include <optional>
#include <string>

namespace brovin::net {

/// What has come of a request since the last look.
struct Arrival {
    bool response = false; ///< the answer is a success, and its headers are there
    bool ended = false;
    std::optional<platform::Failure> failure; ///< once it has ended
    std::string bytes;
};

/// A GET that is under way from its making on. It ends with this object, however far it is, without waiting
/// for the server.
class WebRequest {
public:
    WebRequest() = default;
    virtual ~WebRequest() = default;
    WebRequest(const WebRequest&) = delete;
    WebRequest& operator=(const WebRequest&) = delete;

    [[nodiscard]] virtual Arrival take() = 0;
    /// `name` in lower case.
    [[nodiscard]] virtual std::optional<std::string> header(const std::string& name) = 0;
};

} // namespace brovin::net
