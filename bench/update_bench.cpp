// Downloads a large installer through the real window from the maker's server on this machine, and beside it
// with curl. Usage: update_bench SERVER-PROGRAM SCRATCH

#include "desktop/machine/curl_transfer.h"
#include "desktop/machine/qt_dialogs.h"
#include "desktop/machine/qt_shell.h"
#include "desktop/window/download_window.h"
#include "net/private_downloads.h"
#include "net/sodium_key.h"
#include "update/update_download.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using namespace brovin;

constexpr qint64 kMegabyte = 1024 * 1024;
constexpr qint64 kSize = 200 * kMegabyte;
constexpr int kRounds = 7;

/// What one download took.
struct Figures {
    double seconds = 0;
    double longestGap = 0; ///< between two chances for the window to answer, in milliseconds
};

/// A line of /proc/self/status, in KB.
long memory(const char* name) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(name))
            return line.mid(static_cast<qsizetype>(qstrlen(name)) + 1).trimmed().split(' ').front().toLong();
    return 0;
}

double curl(const QString& url, const QString& to) {
    QElapsedTimer time;
    time.start();
    if (QProcess::execute(QStringLiteral("curl"), {"-s", "-o", to, url}) != 0)
        std::puts("curl has failed");
    const double seconds = static_cast<double>(time.nsecsElapsed()) / 1e9;
    QFile::remove(to);
    return seconds;
}

language::MessageTable shortMessages() {
    language::MessageTable messages;
    messages.set(73, "%1 KB of %2 KB received");
    messages.set(74, "done");
    messages.set(77, "untrusted");
    return messages;
}

Figures download(const std::string& url, const std::string& keyText, const std::string& folder) {
    const language::MessageTable messages = shortMessages();
    desktop::QtDialogs dialogs;
    desktop::QtEventPump pump;
    desktop::CurlTransfer transfer;
    net::PrivateDownloads downloads(folder);
    const net::SodiumKey key(keyText);
    desktop::DownloadWindows windows;
    ui::FrmDownload form;
    update::UpdateDownload update({form, messages, dialogs, transfer, downloads, key, pump},
                                  {{9, 9, 9}, url, "", {}}, "");
    Figures figures;
    QElapsedTimer time;
    QElapsedTimer sinceTick;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        figures.longestGap =
            std::max(figures.longestGap, static_cast<double>(sinceTick.nsecsElapsed()) / 1e6);
        sinceTick.restart();
    });
    form.lblText.observe([&] {
        if (form.cmdStart.enabled() && time.isValid())
            std::printf("failed: %s\n", form.lblText.caption().c_str());
        if (form.lblText.caption() != "done")
            return;
        figures.seconds = static_cast<double>(time.nsecsElapsed()) / 1e9;
        QTimer::singleShot(0, [&] { form.window.close(); });
    });
    QTimer::singleShot(300, [&] {
        sinceTick.start();
        ticks.start(1);
        time.start();
        form.cmdStart.click();
    });
    form.window.setVisible(true);
    windows.showModal(form);
    return figures;
}

double middle(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void line(const char* what, const std::vector<double>& seconds, double reference, double gap) {
    const double typical = middle(seconds);
    std::printf("| %s | %.3f s | %.0f MB/s | %.2f | ", what, typical,
                static_cast<double>(kSize / kMegabyte) / typical, typical / reference);
    std::printf(gap > 0 ? "%.0f ms |\n" : "|\n", gap);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 3)
        return 2;
    const QString program = QString::fromLocal8Bit(argv[1]);
    const QDir scratch(QString::fromLocal8Bit(argv[2]));
    scratch.mkpath(QStringLiteral("maker"));
    QFile setup(scratch.filePath(QStringLiteral("maker/setup")));
    if (setup.open(QIODevice::WriteOnly))
        for (qint64 written = 0; written < kSize; written += kMegabyte)
            setup.write(QByteArray(kMegabyte, static_cast<char>('a' + written / kMegabyte % 26)));
    setup.close();
    const QString secret = scratch.filePath(QStringLiteral("secret"));
    QFile::remove(secret);
    QProcess maker;
    maker.start(program, {"keys", "--secret", secret});
    maker.waitForFinished();
    const std::string key = maker.readAllStandardOutput().trimmed().toStdString();
    QProcess::execute(program, {"sign", "--secret", secret, "--version", "9.9.9", setup.fileName()});
    QProcess server;
    server.start(program, {"serve", "--folder", scratch.filePath(QStringLiteral("maker")), "--port", "0"});
    server.waitForReadyRead();
    const QString url = QString(server.readLine()).section(QStringLiteral("listening on "), 1).trimmed() +
                        QStringLiteral("/download/files/setup");

    std::vector<double> curls;
    std::vector<double> proven;
    double provenGap = 0;
    const std::string folder = scratch.filePath(QStringLiteral("downloads")).toStdString();
    download(url.toStdString(), key, folder); // what is loaded once is loaded
    const long before = memory("VmHWM:");
    for (int round = 0; round < kRounds; ++round) {
        curls.push_back(curl(url, scratch.filePath(QStringLiteral("curl"))));
        const Figures verified = download(url.toStdString(), key, folder);
        proven.push_back(verified.seconds);
        provenGap = std::max(provenGap, verified.longestGap);
    }
    std::puts("| 200 MB from this machine | time | speed | ratio | longest wait of the window |");
    std::puts("|---|---|---|---|---|");
    line("curl -o", curls, middle(curls), 0);
    line("download window (verified on the disk)", proven, middle(curls), provenGap);
    std::printf("\nPeak memory %ld KB, %ld KB more than after the first download.\n", memory("VmHWM:"),
                memory("VmHWM:") - before);
    server.kill();
    server.waitForFinished();
    setup.remove();
    return 0;
}
