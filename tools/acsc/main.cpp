// The compiler of character files: see characters/README.md.

#include "command.h"

#include <QGuiApplication>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it draws into pictures only
    const QGuiApplication application(argc, argv);
    return brovin::acsc::run(QGuiApplication::arguments().mid(1));
}
