#pragma once

#include "offers.h"

#include <httplib.h>

#include <string>

namespace brovin::update_server {

/// Answers the program's questions and hands out the files of a folder.
class Server {
public:
    /// `publicUrl` is how the world reaches this server; empty: as the question did.
    Server(const std::string& folder, std::string publicUrl);

    /// The port, once it is bound: `port`, or any free one for 0. Nothing: it cannot be bound.
    [[nodiscard]] int bind(const std::string& address, int port);
    /// Serves until the program ends or `stop`.
    bool listen() { return http_.listen_after_bind(); }
    void stop() { http_.stop(); }

private:
    [[nodiscard]] std::string baseUrl(const httplib::Request& request) const;
    void answer(const httplib::Request& request, httplib::Response& response) const;
    void handOut(const httplib::Request& request, httplib::Response& response) const;

    Offers offers_;
    std::string publicUrl_;
    httplib::Server http_;
};

} // namespace brovin::update_server
