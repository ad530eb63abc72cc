#include "posix/system_call.h"

#include <system_error>

namespace brovin::posix {

platform::Failure systemFailure(int number) {
    return {number, std::generic_category().message(number)};
}

} // namespace brovin::posix
