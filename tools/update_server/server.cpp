#include "server.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <vector>

namespace brovin::update_server {
namespace {

constexpr std::size_t kPiece = std::size_t{256} * 1024;
constexpr int kNotFound = 404;

/// A file that is sent in pieces, so that no answer has to fit into memory.
class Source {
public:
    explicit Source(const std::string& path) : file_(path, std::ios::binary | std::ios::ate) {
        length_ = file_ ? static_cast<std::size_t>(file_.tellg()) : 0;
    }
    [[nodiscard]] bool ready() const { return static_cast<bool>(file_); }
    [[nodiscard]] std::size_t length() const { return length_; }

    bool send(std::size_t offset, std::size_t length, httplib::DataSink& sink) {
        const std::size_t wanted = std::min(length, piece_.size());
        file_.seekg(static_cast<std::streamoff>(offset));
        file_.read(piece_.data(), static_cast<std::streamsize>(wanted));
        const auto read = static_cast<std::size_t>(file_.gcount());
        return read > 0 && sink.write(piece_.data(), read);
    }

private:
    std::ifstream file_;
    std::size_t length_ = 0;
    std::vector<char> piece_ = std::vector<char>(kPiece);
};

} // namespace

Server::Server(const std::string& folder, std::string publicUrl)
    : offers_(folder), publicUrl_(std::move(publicUrl)) {
    http_.set_tcp_nodelay(
        true); // head and body are sent apart, and the second would wait 40 ms for a word on the first
    http_.Get("/download/brovinupdate.php",
              [this](const auto& request, auto& response) { answer(request, response); });
    http_.Get(R"(/download/files/([^/]+))",
              [this](const auto& request, auto& response) { handOut(request, response); });
}

int Server::bind(const std::string& address, int port) {
    if (port == 0)
        return http_.bind_to_any_port(address);
    return http_.bind_to_port(address, port) ? port : -1;
}

std::string Server::baseUrl(const httplib::Request& request) const {
    return publicUrl_.empty() ? "http://" + request.get_header_value("Host") : publicUrl_;
}

void Server::answer(const httplib::Request& request, httplib::Response& response) const {
    const std::string who = request.get_param_value("myid");
    std::string text = "none";
    if (who == "brovin")
        text = offers_.program(baseUrl(request));
    else if (who == "lang")
        text = offers_.pack(request.get_param_value("mylang"), request.get_param_value("myver"),
                            baseUrl(request));
    response.set_header("Cache-Control", "public, max-age=3600"); // a cache in front may answer for an hour
    response.set_content(text, "text/plain; charset=utf-8");
}

void Server::handOut(const httplib::Request& request, httplib::Response& response) const {
    const auto path = offers_.document(request.matches[1].str());
    const auto source = path ? std::make_shared<Source>(*path) : nullptr;
    if (!source || !source->ready()) {
        response.status = kNotFound;
        return;
    }
    if (source->length() == 0)
        return;
    response.set_content_provider(source->length(), "application/octet-stream",
                                  [source](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
                                      return source->send(offset, length, sink);
                                  });
}

} // namespace brovin::update_server
