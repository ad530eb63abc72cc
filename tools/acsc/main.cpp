// The compiler of character files: see characters/README.md.

#include "acsc/command.h"

#include <QGuiApplication>
#include <QThreadPool>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace {

/// What the toolkit says about the user's session does not matter to a compiler.
void showMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith(QLatin1String("QStandardPaths")))
        std::fprintf(stderr, "acsc: %s\n", qUtf8Printable(message));
}

/// Only a preview needs windows and voices, so it is a program of its own, as installed or as built.
int becomePreview(const char* file) {
    std::error_code unknown;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
    for (const char* const place : {"../lib/brovin/acsc-preview", "acsc-preview"})
        ::execl((own / place).c_str(), "acsc-preview", file, nullptr);
    std::fprintf(stderr,
                 "acsc: the preview is not installed; it comes with Brovin's window (brovin-desktop)\n");
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--preview") == 0)
        return becomePreview(argv[2]);
    qInstallMessageHandler(showMessage);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it draws into pictures only
    const QGuiApplication application(argc, argv);
    // The toolkit spreads each drawing over the threads of its pool, which takes a quarter of the time for
    // waiting, unless it is in one of them already.
    int status = 0;
    QThreadPool::globalInstance()->start(
        [&status] { status = brovin::acsc::run(QGuiApplication::arguments().mid(1)); });
    QThreadPool::globalInstance()->waitForDone();
    return status;
}
