// Stands for an installer: leaves a mark where the test looks for it, unless it has inherited what is not its
// own.
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

int main() {
    constexpr int kHighest = 1024;
    for (int descriptor = STDERR_FILENO + 1; descriptor < kHighest; ++descriptor)
        if (::fcntl(descriptor, F_GETFD) >= 0)
            return 2;
    const char* mark = std::getenv("BROVIN_MARK");
    if (mark == nullptr)
        return 1;
    std::ofstream(mark) << "installed\n";
    return 0;
}
