#pragma once

#include "cleaner/log_search.h"
#include "language/message_table.h"
#include "platform/regional.h"

#include <QDialog>
#include <QTimer>

#include <atomic>
#include <memory>
#include <thread>

class QLabel;
class QLineEdit;
class QListView;

namespace brovin::desktop {

class LogLines;

/// The deletion log, and what of it holds a text. It is read in a thread of its own: a log of years does not
/// hold up the window.
class LogWindow final : public QDialog {
    Q_OBJECT
public:
    struct Needs {
        QString file;
        const language::MessageTable& messages;
        const platform::Regional& regional;
        const platform::Letters& letters; ///< used in the thread
    };
    LogWindow(const Needs& needs, QWidget* owner);
    ~LogWindow() override;
    LogWindow(const LogWindow&) = delete;
    LogWindow& operator=(const LogWindow&) = delete;

    using GoesOn = std::shared_ptr<std::atomic<bool>>; ///< false: nobody waits for it any more
    using Done = std::shared_ptr<const cleaner::LogSearch>;

signals:
    /// From the thread: it is at the end.
    void read(const brovin::desktop::LogWindow::GoesOn& goesOn, const brovin::desktop::LogWindow::Done& done);

private:
    void search();
    void stop();
    void show(const std::shared_ptr<const cleaner::LogSearch>& done);
    [[nodiscard]] std::string number(std::uint64_t count) const;

    Needs needs_;
    QLineEdit* wanted_ = nullptr;
    QListView* list_ = nullptr;
    LogLines* lines_ = nullptr;
    QLabel* said_ = nullptr;
    QTimer soon_; ///< when nothing is typed any more
    std::thread reader_;
    std::shared_ptr<std::atomic<bool>> goesOn_;
};

} // namespace brovin::desktop
