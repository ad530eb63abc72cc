#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace brovin::desktop {

/// Who has set off what the program does at this moment: the user, or the clock. What nobody has asked for
/// must not take the keyboard from whoever types meanwhile. There must be a QApplication.
class Initiative final : public QObject {
    Q_OBJECT
public:
    Initiative();

    /// The user acts in another way than by mouse and keys on our windows: by the icon, by a second start.
    void userActs() { sinceAct_.start(); }

    /// Whether what comes up now answers an act of the user, who has not gone elsewhere since.
    [[nodiscard]] bool userAsked() const;

    /// As long as one lives, what happens comes from the clock.
    class ByTheClock {
    public:
        explicit ByTheClock(Initiative& initiative) : initiative_(initiative) { ++initiative_.byTheClock_; }
        ~ByTheClock() { --initiative_.byTheClock_; }
        ByTheClock(const ByTheClock&) = delete;
        ByTheClock& operator=(const ByTheClock&) = delete;

    private:
        Initiative& initiative_;
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QElapsedTimer sinceAct_;
    int byTheClock_ = 0;
};

} // namespace brovin::desktop
