// Starts a program and waits for the first window of its process that can be seen, an icon or a character;
// then ends the program. Prints two numbers: the milliseconds that went by, and those of the processor that
// all its threads took. Usage: first_window COMMAND...

#include <xcb/xcb.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr double kPatience = 20'000; ///< milliseconds

template <class T>
using ServerReply = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
ServerReply<T> own(T* reply) {
    return {reply, &std::free};
}

/// The X server, which tells of every window that is made, wherever it is put afterwards.
class Screen {
public:
    Screen() : server_(xcb_connect(nullptr, nullptr)) {
        constexpr char kName[] = "_NET_WM_PID";
        const auto atom = own(
            xcb_intern_atom_reply(server_, xcb_intern_atom(server_, 0, sizeof kName - 1, kName), nullptr));
        if (!atom) {
            std::fputs("first_window: no X server\n", stderr);
            std::exit(1);
        }
        processAtom_ = atom->atom;
        listen(xcb_setup_roots_iterator(xcb_get_setup(server_)).data->root,
               XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
    ~Screen() { xcb_disconnect(server_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Whether a window of the process has come into sight since the last call.
    bool hasShown(pid_t process) {
        bool shown = false;
        while (const auto event = own(xcb_poll_for_event(server_))) {
            switch (event->response_type & 0x7F) {
            case XCB_CREATE_NOTIFY:
                listen(reinterpret_cast<const xcb_create_notify_event_t*>(event.get())->window,
                       XCB_EVENT_MASK_STRUCTURE_NOTIFY);
                break;
            case XCB_MAP_NOTIFY:
            case XCB_REPARENT_NOTIFY: // the window stands at the same place in both
                shown = shown ||
                        isSeen(reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window, process);
                break;
            default:
                break;
            }
        }
        return shown;
    }

    /// Waits for news, some milliseconds at most.
    void wait() const {
        pollfd news{xcb_get_file_descriptor(server_), POLLIN, 0};
        poll(&news, 1, 5);
    }

private:
    void listen(xcb_window_t window, std::uint32_t mask) {
        xcb_change_window_attributes(server_, window, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(server_);
    }

    bool isSeen(xcb_window_t window, pid_t process) const {
        const auto property = own(xcb_get_property_reply(
            server_, xcb_get_property(server_, 0, window, processAtom_, XCB_ATOM_CARDINAL, 0, 1), nullptr));
        const auto state = own(
            xcb_get_window_attributes_reply(server_, xcb_get_window_attributes(server_, window), nullptr));
        if (!property || property->value_len == 0 || !state || state->map_state != XCB_MAP_STATE_VIEWABLE)
            return false;
        return *static_cast<const std::uint32_t*>(xcb_get_property_value(property.get())) ==
               static_cast<std::uint32_t>(process);
    }

    xcb_connection_t* server_;
    xcb_atom_t processAtom_ = 0;
};

double processorTime(pid_t process) {
    double sum = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        double nanoseconds = 0;
        std::ifstream(thread.path() / "schedstat") >> nanoseconds;
        sum += nanoseconds;
    }
    return sum / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    Screen screen;
    const auto begin = std::chrono::steady_clock::now();
    const auto passed = [begin] {
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    };
    const pid_t process = fork();
    if (process == 0) {
        execvp(argv[1], argv + 1);
        std::fprintf(stderr, "first_window: %s: %s\n", argv[1], std::strerror(errno));
        _exit(127);
    }
    bool shown = false;
    while (!shown && passed() < kPatience && waitpid(process, nullptr, WNOHANG) == 0) {
        screen.wait();
        shown = screen.hasShown(process);
    }
    if (shown)
        std::printf("%.1f %.1f\n", passed(), processorTime(process));
    else
        std::fputs("first_window: it has not shown any window\n", stderr);
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return shown ? 0 : 1;
}
