#include "posix/history_module.h"

#include "platform/reasons.h"
#include "posix/places.h"

#include <cerrno>
#include <dlfcn.h>

namespace brovin::posix {
namespace {

const platform::Failure kNotInstalled{ENOSYS, platform::reason::kNoHistory};

} // namespace

std::string HistoryModule::historyModuleFile() {
    return moduleFile(BROVIN_HISTORY_MODULE);
}

platform::DeletionHistory* HistoryModule::loaded() {
    if (!history_)
        if (void* const module = ::dlopen(module_.c_str(), RTLD_NOW | RTLD_LOCAL))
            if (const auto open = reinterpret_cast<Opener>(::dlsym(module, "brovinOpenHistory")))
                history_.reset(open(file_));
    return history_.get();
}

platform::Status HistoryModule::append(platform::DateTime when,
                                       std::span<const platform::DeletedShare> shares) {
    platform::DeletionHistory* const history = loaded();
    return history == nullptr ? platform::Status(kNotInstalled) : history->append(when, shares);
}

platform::Result<std::vector<platform::Score>> HistoryModule::score(platform::ScoreBy by, std::size_t most) {
    platform::DeletionHistory* const history = loaded();
    return history == nullptr ? platform::Result<std::vector<platform::Score>>(kNotInstalled)
                              : history->score(by, most);
}

std::string HistoryModule::takeDamaged() {
    return history_ ? history_->takeDamaged() : std::string();
}

} // namespace brovin::posix
