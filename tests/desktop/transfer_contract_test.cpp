#include "desktop/scripted_server.h"
#include "desktop/updates/curl_transfer.h"
#include "fakes/fake_transfer.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace brovin {
namespace {

using platform::TransferState;

/// Pages are put up before the first request.
struct WebInMemory {
    fakes::FakeTransfer transfer;
    [[nodiscard]] static std::string url(const std::string& path) { return "https://maker.example" + path; }
    void put(const std::string& path, const std::string& body) { transfer.pages[url(path)].body = body; }
    void putBroken(const std::string& path, const std::string& body) {
        transfer.pages[url(path)] = {.body = body, .breaks = true};
    }
    void passTime() { transfer.deliver(); }
};
struct WebOnThisMachine {
    int argc = 0;
    QCoreApplication application{argc, nullptr};
    tests::ScriptedServer server;
    desktop::CurlTransfer transfer;
    [[nodiscard]] std::string url(const std::string& path) const { return server.url(path); }
    void put(const std::string& path, const std::string& body) {
        server.scripts[path] = {tests::httpAnswer(body)};
    }
    void putBroken(const std::string& path, const std::string& body) {
        server.scripts[path] = {"HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n" + body};
    }
    static void passTime() { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }
};

template <class World>
class TransferContract : public testing::Test {
protected:
    /// Makes a request and lets `told` act upon its answer.
    void request(const std::string& path, const std::function<void(TransferState)>& told) {
        done_ = false;
        world_.transfer.stateChanged = [&](TransferState state) {
            done_ = true;
            told(state);
        };
        ASSERT_TRUE(world_.transfer.execute({world_.url(path)}));
        EXPECT_FALSE(done_) << "never from within";
        while (!done_)
            world_.passTime();
    }

    World world_;

private:
    bool done_ = false;
};
using WebWorlds = testing::Types<WebInMemory, WebOnThisMachine>;
TYPED_TEST_SUITE(TransferContract, WebWorlds);

TYPED_TEST(TransferContract, fetchesAWholeTextOrSaysWhyNot) {
    this->world_.put("/text", "hello");
    platform::InternetTransfer& transfer = this->world_.transfer;
    const auto text = transfer.openUrl({this->world_.url("/text")}, 5);
    ASSERT_TRUE(text) << text.failure().reason;
    EXPECT_EQ("hello", *text);
    EXPECT_FALSE(transfer.openUrl({this->world_.url("/text")}, 4)) << "longer than it may be";
    EXPECT_FALSE(transfer.openUrl({this->world_.url("/none")}, 5));
}

TYPED_TEST(TransferContract, handsABodyOverInPieces) {
    const std::string body(3000, 'x');
    this->world_.put("/body", body);
    platform::InternetTransfer& transfer = this->world_.transfer;
    std::string got;
    this->request("/body", [&](TransferState state) {
        ASSERT_EQ(TransferState::Response, state);
        EXPECT_EQ("3000", transfer.header("Content-LENGTH"));
        EXPECT_EQ(std::nullopt, transfer.header("X-Other"));
        for (auto piece = transfer.readPiece(1024); piece && !(*piece).empty();
             piece = transfer.readPiece(1024)) {
            EXPECT_LE((*piece).size(), 1024U);
            got += *piece;
        }
    });
    EXPECT_EQ(body, got);
}

TYPED_TEST(TransferContract, tellsABrokenConnectionFromAnEnd) {
    this->world_.putBroken("/half", "hello");
    std::string got;
    this->request("/half", [&](TransferState) {
        auto piece = this->world_.transfer.readPiece(100);
        for (; piece && !(*piece).empty(); piece = this->world_.transfer.readPiece(100))
            got += *piece;
        EXPECT_FALSE(piece);
    });
    EXPECT_EQ("hello", got);
}

TYPED_TEST(TransferContract, tellsWhyThereIsNoAnswer) {
    platform::InternetTransfer& transfer = this->world_.transfer;
    this->request("/none", [&](TransferState state) {
        EXPECT_EQ(TransferState::Error, state);
        EXPECT_NE("", transfer.failure().reason);
    });
}

TYPED_TEST(TransferContract, isOverWhenItIsCancelled) {
    this->world_.put("/body", "hello");
    platform::InternetTransfer& transfer = this->world_.transfer;
    this->request("/body", [&](TransferState) {
        transfer.cancel();
        EXPECT_EQ("", *transfer.readPiece(100));
    });
}

} // namespace
} // namespace brovin
