#pragma once

#include "net/patience.h"
#include "net/web_request.h"
#include "platform/internet_transfer.h"

#include <functional>
#include <memory>
#include <string>

namespace brovin::net {

/// Web requests from a module that is loaded with the first one, because over twenty libraries stand behind
/// it. Once loaded it stays.
class RequestModule {
public:
    /// The one that is installed with the program.
    RequestModule();
    /// `file` is looked for as the system looks for libraries.
    explicit RequestModule(std::string file) : file_(std::move(file)) {}

    /// Begins a request; fails where the module, or a library that it needs, is not installed.
    /// `wake` is called from another thread whenever there may be something to take.
    [[nodiscard]] platform::Result<std::unique_ptr<WebRequest>> open(const platform::TransferRequest& request,
                                                                     const Patience& patience,
                                                                     const std::function<void()>& wake);

private:
    using Opener = WebRequest* (*)(const platform::TransferRequest&, const Patience&,
                                   const std::function<void()>&);

    std::string file_;
    Opener opener_ = nullptr;
};

} // namespace brovin::net
