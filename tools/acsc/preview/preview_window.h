#pragma once

#include "desktop/character/desktop_character_service.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace brovin::acsc {

/// What a character can do, to try it out: the character itself stands beside this window, as on a user's
/// desktop. When its file is compiled again it comes back and does once more what it did last.
class PreviewWindow final : public QWidget {
public:
    explicit PreviewWindow(const QString& file);

    /// Fetches the character. False: there is none to be had of this file at this moment.
    bool load();

private:
    /// What tells one compilation from another.
    using Version = std::pair<QDateTime, qint64>;

    void reload();
    [[nodiscard]] Version versionOnDisk() const;
    void play();
    void speak();
    [[nodiscard]] const platform::Character* character();

    QString folder_;
    QString file_;
    Version version_; ///< that was fetched last
    desktop::DesktopCharacterService service_;
    QFileSystemWatcher watcher_;
    QTimer settled_; ///< a file is written in several steps
    QListWidget* animations_;
    QLineEdit* words_;
};

} // namespace brovin::acsc
