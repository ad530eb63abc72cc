// "acsc --preview": a character file on the desktop, with all that it can do in a list.

#include "acsc/preview/preview_window.h"
#include "character/acs_reader.h"
#include "desktop/choose_platform.h"

#include <QApplication>
#include <QFile>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace brovin;

int refuse(const QString& file, const QString& why) {
    std::fprintf(stderr, "acsc: %s: %s\n", qUtf8Printable(file), qUtf8Printable(why));
    return 1;
}

/// What is wrong with the file; empty: nothing.
QString problemOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot be read (%1)").arg(file.errorString());
    const QByteArray bytes = file.readAll();
    const auto data = character::readCharacter(
        character::SharedBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end())));
    return data ? QString() : QString::fromStdString(character::message(data.failure()));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const QString file = QFile::decodeName(argv[1]);
    if (const QString problem = problemOf(file); !problem.isEmpty())
        return refuse(file, problem);
    if (!desktop::choosePlatform())
        return refuse(file, QStringLiteral("there is no display to show it on"));
    QApplication application(argc, argv);
    acsc::PreviewWindow window(file);
    window.show();
    // The character stands beside the window, and the window manager first decides where that is.
    constexpr std::chrono::milliseconds kUntilItHasItsPlace{300};
    QTimer::singleShot(kUntilItHasItsPlace, &window, [&] {
        if (!window.load())
            QApplication::exit(refuse(file, QStringLiteral("cannot be shown: characters need an X server")));
    });
    return QApplication::exec();
}
