#include "desktop/character/patient_loading.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <future>

namespace brovin::desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto kMoment = 20ms; ///< which a character of the usual size needs at most
constexpr auto kLookAgain = 5ms;

} // namespace

character::LoadResult<character::CharacterData>
loadPatiently(const std::function<character::LoadResult<character::CharacterData>()>& load) {
    auto result = std::async(std::launch::async, load);
    if (result.wait_for(kMoment) != std::future_status::ready) {
        QEventLoop loop;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &loop, [&] {
            if (result.wait_for(0s) == std::future_status::ready)
                loop.quit();
        });
        look.start(kLookAgain);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return result.get();
}

} // namespace brovin::desktop
