#pragma once

#include <QObject>
#include <QString>

namespace brovin::desktop {

/// Something that is told to screen readers beside what is on the screen: to them it is a notification that
/// comes up with its text. Whether anybody hears it is theirs to decide.
class Announcement final : public QObject {
public:
    Announcement();

    [[nodiscard]] const QString& text() const { return text_; }
    /// At once. The same text twice is told twice.
    void announce(const QString& text);

private:
    QString text_;
};

} // namespace brovin::desktop
