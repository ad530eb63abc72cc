#pragma once

#include <QString>
#include <QVector>
#include <QWidget>

class QImage;

namespace brovin::desktop {

struct ScoreBar {
    QString label;
    qint64 items = 0;
    QString number; ///< of the items, as the user writes it
};

/// Draws bars in the colours of the desktop: those of times stand beside each other, those of names and
/// folders lie below each other. What has no room is left out: of times the first, of names the last.
class ScorePicture final : public QWidget {
    Q_OBJECT
public:
    explicit ScorePicture(QWidget* parent);

    void setBars(QVector<ScoreBar> bars, bool upright);
    /// The same for a file, in the colours that it has on the screen.
    [[nodiscard]] QImage image() const;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paint(QPainter& painter, const QRectF& room) const;
    void paintUpright(QPainter& painter, const QRectF& room) const;
    void paintLying(QPainter& painter, const QRectF& room) const;

    QVector<ScoreBar> bars_;
    bool upright_ = true;
};

} // namespace brovin::desktop
