#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace brovin::tests {

/// A server on this machine that says byte for byte what a test tells it to, and then behaves as badly as
/// told.
class ScriptedServer {
public:
    enum class Then { Close, Hang, Drip, Flood };
    struct Script {
        std::string bytes;
        Then then = Then::Close;
    };

    ScriptedServer() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* raw = reinterpret_cast<sockaddr*>(&address);
        if (::bind(socket_, raw, size) == 0 && ::listen(socket_, 16) == 0 &&
            ::getsockname(socket_, raw, &size) == 0)
            port_ = ::ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~ScriptedServer() {
        stopping_ = true;
        thread_.join();
        for (std::thread& talk : talks_)
            talk.join();
        ::close(socket_);
    }
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    /// All scripts are set before the first question.
    std::map<std::string, Script> scripts; ///< by path

    [[nodiscard]] std::string url(const std::string& path = "") const {
        return "http://127.0.0.1:" + std::to_string(port_) + path;
    }

private:
    [[nodiscard]] bool readable(int socket) const {
        pollfd wanted{socket, POLLIN, 0};
        while (!stopping_)
            if (::poll(&wanted, 1, 20) > 0)
                return true;
        return false;
    }
    void serve() {
        while (readable(socket_)) {
            const int talk = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
            if (talk >= 0)
                talks_.emplace_back([this, talk] { answer(talk); });
        }
    }
    void answer(int talk) const {
        std::string question;
        char piece[1024];
        while (question.find("\r\n\r\n") == std::string::npos && readable(talk)) {
            const ssize_t got = ::recv(talk, piece, sizeof piece, 0);
            if (got <= 0)
                break;
            question.append(piece, static_cast<std::size_t>(got));
        }
        const std::size_t begin = question.find(' ') + 1;
        const auto script = scripts.find(question.substr(begin, question.find(' ', begin) - begin));
        if (script != scripts.end() && say(talk, script->second.bytes))
            goOn(talk, script->second.then);
        ::shutdown(talk, SHUT_RDWR);
        ::close(talk);
    }
    bool say(int talk, std::string_view bytes) const {
        while (!bytes.empty() && !stopping_) {
            const ssize_t sent = ::send(talk, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
            if (sent < 0 && errno != EAGAIN)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
            if (sent < 0)
                ::poll(nullptr, 0, 5);
        }
        return true;
    }
    void goOn(int talk, Then then) const {
        const std::string more(then == Then::Drip ? 1 : 65536, '.');
        while (then != Then::Close && !stopping_) {
            if (then != Then::Hang && !say(talk, more))
                return;
            if (then != Then::Flood)
                ::poll(nullptr, 0, 20);
        }
    }

    int socket_;
    int port_ = 0;
    std::atomic<bool> stopping_ = false;
    std::vector<std::thread> talks_;
    std::thread thread_;
};

/// A whole answer with a true length.
inline std::string httpAnswer(const std::string& body) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

} // namespace brovin::tests
