// A program of the toolkit that does nothing: a hidden window and an icon in the notification area. What it
// takes, every program with a window takes.

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QWidget window;
    QPixmap square(22, 22);
    square.fill(Qt::darkCyan);
    QSystemTrayIcon icon{QIcon(square)};
    icon.show();
    return QApplication::exec();
}
