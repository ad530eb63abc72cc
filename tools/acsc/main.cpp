// The compiler of character files: see characters/README.md.

#include "acsc/command.h"

#include <QGuiApplication>
#include <QThreadPool>

#include <cstdio>

namespace {

/// What the toolkit says about the user's session does not matter to a compiler.
void showMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith(QLatin1String("QStandardPaths")))
        std::fprintf(stderr, "acsc: %s\n", qUtf8Printable(message));
}

} // namespace

int main(int argc, char** argv) {
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
