#pragma once

#include "cleaner/score.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QLabel;
class QStandardItemModel;
class QTableView;

namespace brovin::desktop {

class ScorePicture;

/// What was deleted by week, month, name or folder: as a picture, and below it the same as a table, which is
/// what a screen reader tells and a keyboard reaches.
class ScoreWindow final : public QDialog {
    Q_OBJECT
public:
    /// The book is the caller's and outlives the window.
    ScoreWindow(cleaner::ScoreBook& book, QWidget* owner);

private:
    [[nodiscard]] QLayout* makeHead();
    [[nodiscard]] QLayout* makeButtons();
    [[nodiscard]] platform::ScoreBy by() const;
    void show(const std::vector<platform::Score>& bars);
    void load();
    /// Asks where to, and says how it went.
    void save(const QString& ending, const QByteArray& content);
    void say(const std::string& text);

    cleaner::ScoreBook& book_;
    std::vector<platform::Score> bars_;
    QComboBox* choice_ = nullptr;
    ScorePicture* picture_ = nullptr;
    QTableView* table_ = nullptr;
    QStandardItemModel* model_ = nullptr;
    QLabel* said_ = nullptr;
};

} // namespace brovin::desktop
