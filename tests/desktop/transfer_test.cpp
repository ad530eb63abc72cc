#include "desktop/scripted_server.h"
#include "desktop/updates/curl_transfer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace brovin::desktop {
namespace {

using platform::PlainHttp;
using platform::TransferState;
using tests::httpAnswer;
using tests::ScriptedServer;
using Then = ScriptedServer::Then;
using std::chrono::milliseconds;

/// Short limits, so that a test need not wait for a server that keeps it waiting.
constexpr net::Patience kShort{milliseconds(500), milliseconds(300), 1024, milliseconds(300),
                               milliseconds(100)};

class TransferTest : public testing::Test {
protected:
    std::string fetch(const std::string& path, std::size_t limit = 1000) {
        const auto text =
            transfer_.openUrl({server_.url(path), PlainHttp::OnlyFromThisMachine, milliseconds(900)}, limit);
        return text ? *text : "! " + text.failure().reason;
    }
    /// The body of an asynchronous request, or why there is none.
    std::string receive(const std::string& path) {
        std::string body;
        bool done = false;
        transfer_.stateChanged = [&](TransferState state) {
            body = state == TransferState::Error ? "! " + transfer_.failure().reason : readAll();
            done = true;
        };
        EXPECT_TRUE(transfer_.execute({server_.url(path)}));
        while (!done)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        transfer_.cancel();
        return body;
    }
    std::string readAll() {
        std::string body;
        for (;;) {
            const auto piece = transfer_.readPiece(1024);
            if (!piece)
                return body + "! " + piece.failure().reason;
            if ((*piece).empty())
                return body;
            body += *piece;
        }
    }

    int argc_ = 0;
    QCoreApplication application_{argc_, nullptr};
    ScriptedServer server_;
    CurlTransfer transfer_{kShort};
};

TEST_F(TransferTest, fetchesATextInTheFormsThatServersHave) {
    server_.scripts = {
        {"/empty", {httpAnswer("")}},
        {"/plain", {httpAnswer("hello")}},
        {"/to-the-end", {"HTTP/1.1 200 OK\r\n\r\nhello"}},
        {"/chunks",
         {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nhel\r\n2\r\nlo\r\n0\r\n\r\n"}},
        {"/left-open", {httpAnswer("hello"), Then::Hang}},
        {"/elsewhere", {"HTTP/1.1 302 Found\r\nLocation: /plain\r\nContent-Length: 4\r\n\r\nthen"}},
    };
    EXPECT_EQ("", fetch("/empty"));
    EXPECT_EQ("hello", fetch("/to-the-end"));
    EXPECT_EQ("hello", fetch("/chunks"));
    EXPECT_EQ("hello", fetch("/left-open"));
    EXPECT_EQ("hello", fetch("/elsewhere"));
    EXPECT_EQ("hello", receive("/elsewhere"));
}

TEST_F(TransferTest, refusesWhatABadServerSays) {
    const std::string big(3000, 'x');
    server_.scripts = {
        {"/missing", {"HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\ngone"}},
        {"/part", {"HTTP/1.1 206 Partial Content\r\nContent-Length: 4\r\n\r\nhalf"}},
        {"/short", {"HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nhello"}},
        {"/long", {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nhello"}},
        {"/big", {httpAnswer(big)}},
        {"/endless", {"HTTP/1.1 200 OK\r\n\r\n", Then::Flood}},
        {"/silent", {"", Then::Hang}},
        {"/half", {"HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nhello", Then::Hang}},
        {"/drip", {"HTTP/1.1 200 OK\r\nContent-Length: 900000\r\n\r\nhello", Then::Drip}},
        {"/garbage", {"\x01\x02\x03 what?"}},
        {"/files", {"HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\n\r\n"}},
        {"/away", {"HTTP/1.1 302 Found\r\nLocation: http://maker.example/\r\n\r\n"}},
        {"/nowhere", {"HTTP/1.1 302 Found\r\n\r\n"}},
        {"/round", {"HTTP/1.1 302 Found\r\nLocation: /round\r\n\r\n"}},
    };
    const struct {
        const char* path;
        const char* reason;
    } cases[] = {
        {"/missing", "404"},     {"/part", "206"},         {"/short", "Less came"}, {"/long", "More came"},
        {"/big", "too long"},    {"/endless", "too long"}, {"/silent", "silent"},   {"/half", "silent"},
        {"/drip", "too slow"},   {"/files", "safe"},       {"/away", "safe"},       {"/nowhere", "safe"},
        {"/round", "on and on"}, {"/garbage", ""},         {"/closes", ""},
    };
    for (const auto& [path, reason] : cases) {
        const std::string text = fetch(path);
        EXPECT_TRUE(text.starts_with("! ")) << path << ": " << text.substr(0, 80);
        EXPECT_NE(std::string::npos, text.find(reason)) << path << ": " << text.substr(0, 80);
    }
    for (const char* path : {"/short", "/long", "/half", "/drip"}) {
        const std::string body = receive(path);
        EXPECT_NE(std::string::npos, body.find("! ")) << path;
    }
    EXPECT_EQ("! The server answered 404", receive("/missing"));
}

TEST_F(TransferTest, refusesUnsafeAddresses) {
    EXPECT_FALSE(transfer_.openUrl({"http://maker.example/"}, 1000));
    EXPECT_FALSE(transfer_.openUrl({"file:///etc/passwd"}, 1000));
    const auto refused = transfer_.openUrl({"http://127.0.0.1:1/"}, 1000);
    ASSERT_FALSE(refused);
    EXPECT_NE("", refused.failure().reason) << "nobody listens there";
}

TEST_F(TransferTest, refusesACertificateThatNobodyVouchesFor) {
    const QTemporaryDir scratch;
    const auto path = [&scratch](const char* name) { return scratch.filePath(QLatin1String(name)); };
    ASSERT_EQ(0, QProcess::execute("openssl", {"req", "-x509", "-newkey", "ec", "-pkeyopt",
                                               "ec_paramgen_curve:P-256", "-nodes", "-subj", "/CN=localhost",
                                               "-keyout", path("key"), "-out", path("cert")}));
    QProcess server;
    server.start("openssl", {"s_server", "-4", "-accept", "127.0.0.1:0", "-www", "-key", path("key"), "-cert",
                             path("cert")});
    QByteArray line;
    while (!line.startsWith("ACCEPT") && (server.canReadLine() || server.waitForReadyRead(5000)))
        line = server.readLine();
    ASSERT_TRUE(line.startsWith("ACCEPT"));
    const std::string port = line.trimmed().split(':').back().toStdString();
    const auto text = CurlTransfer().openUrl({"https://localhost:" + port + "/"}, 100'000);
    ASSERT_FALSE(text);
    EXPECT_NE(std::string::npos, text.failure().reason.find("certificate")) << text.failure().reason;
    server.kill();
    server.waitForFinished();
}

TEST_F(TransferTest, saysThatTheModuleIsMissing) {
    server_.scripts = {{"/plain", {httpAnswer("hello")}}};
    CurlTransfer without{kShort, net::RequestModule("brovin_none.so")};
    for (int asked = 0; asked < 2; ++asked) {
        const auto text = without.openUrl({server_.url("/plain"), PlainHttp::OnlyFromThisMachine}, 100);
        ASSERT_FALSE(text);
        EXPECT_NE(std::string::npos, text.failure().reason.find("not installed"));
        EXPECT_FALSE(without.execute({server_.url("/plain")}));
        EXPECT_EQ("", *without.readPiece(10)) << "as where nothing was begun";
    }
}

TEST_F(TransferTest, isCancelledAtOnce) {
    server_.scripts = {{"/half", {"HTTP/1.1 200 OK\r\nContent-Length: 90000\r\n\r\nhello", Then::Hang}}};
    QElapsedTimer since;
    transfer_.stateChanged = [&](TransferState) {
        QTimer::singleShot(30, [&] {
            since.start();
            transfer_.cancel();
        });
        EXPECT_EQ("hello", readAll()) << "what had come, and then an end";
        EXPECT_LT(since.elapsed(), 50);
        application_.quit();
    };
    ASSERT_TRUE(transfer_.execute({server_.url("/half")}));
    QCoreApplication::exec();
    EXPECT_TRUE(since.isValid());
}

} // namespace
} // namespace brovin::desktop
