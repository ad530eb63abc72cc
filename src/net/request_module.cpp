#include "net/request_module.h"

#include "platform/reasons.h"
#include "posix/places.h"

#include <dlfcn.h>

#include <cerrno>

namespace brovin::net {

RequestModule::RequestModule() : RequestModule(posix::moduleFile(BROVIN_REQUESTS_MODULE)) {}

platform::Result<std::unique_ptr<WebRequest>> RequestModule::open(const platform::TransferRequest& request,
                                                                  const Patience& patience,
                                                                  const std::function<void()>& wake) {
    if (opener_ == nullptr)
        if (void* const module = ::dlopen(file_.c_str(), RTLD_NOW | RTLD_LOCAL))
            opener_ = reinterpret_cast<Opener>(::dlsym(module, "brovinOpenRequest"));
    if (opener_ == nullptr)
        return platform::Failure{ENOSYS, platform::reason::kNoRequests};
    return std::unique_ptr<WebRequest>(opener_(request, patience, wake));
}

} // namespace brovin::net
