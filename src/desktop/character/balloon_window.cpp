#include "desktop/character/balloon_window.h"

#include "desktop/character/screens.h"

#include <QApplication>
#include <QFont>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace brovin::desktop {
namespace {

constexpr int kAround = 2 * kBubblePadding;

QColor colour(const character::Colour& from) {
    return {from.red, from.green, from.blue};
}

/// The file's font in the size in which the user reads everything else.
QFont fontOf(const character::BalloonSettings& settings) {
    QFont font;
    if (!settings.fontName.empty())
        font.setFamily(QString::fromStdString(settings.fontName));
    font.setWeight(static_cast<QFont::Weight>(std::clamp<int>(settings.fontWeight, 1, 1000)));
    font.setItalic(settings.italic);
    return font;
}

/// A line as it stands, however odd: what would break it is a blank.
QString plainLine(std::string_view text) {
    QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& c : line)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    return line;
}

/// nullopt: no letter in it has a direction.
std::optional<Qt::LayoutDirection> directionIn(const QString& text) {
    for (const char32_t c : text.toUcs4()) {
        switch (QChar::direction(c)) {
        case QChar::DirL:
            return Qt::LeftToRight;
        case QChar::DirR:
        case QChar::DirAL:
            return Qt::RightToLeft;
        default:
            break;
        }
    }
    return std::nullopt;
}

/// The program's windows that the user works in.
QRegion windowsAtWork() {
    QRegion windows;
    for (const QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible() && !window->isMinimized() &&
            (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
            windows += window->frameGeometry();
    return windows;
}

} // namespace

BalloonWindow::BalloonWindow(const character::BalloonSettings& settings, const CharacterWindow& speaker)
    : speaker_(speaker), charactersPerLine_(std::max<int>(settings.charactersPerLine, 1)),
      grows_(settings.sizeToText),
      bubble_({colour(settings.text), colour(settings.background), colour(settings.border)}) {
    QFont font = fontOf(settings);
    bubble_.setFont(font);
    font.setPixelSize(settings.fontHeightPixels);
    usualWidth_ = QFontMetrics(font).averageCharWidth();
}

int BalloonWindow::textWidth(std::string_view text) const {
    return static_cast<int>(std::ceil(QFontMetricsF(bubble_.font()).horizontalAdvance(plainLine(text))));
}

/// Narrower than it is where large letters would make the balloon wider than its file has it and than a fifth
/// of the screen, so that there is room for windows beside it.
int BalloonWindow::averageCharacterWidth() const {
    const int fifth = room().width() / 5 / charactersPerLine_;
    const int whole = (room().width() - kAround - kTipLength) / charactersPerLine_;
    const int fitting = std::min(std::max(usualWidth_, fifth), whole);
    return std::max(std::min(bubble_.fontMetrics().averageCharWidth(), fitting), 1);
}

int BalloonWindow::mostLines() const {
    return linesIn(room().height() / 2);
}

void BalloonWindow::beginStatement(const std::string& text) {
    size_ = {};
    bubbleBefore_ = {};
    if (readOut_)
        announcement_.announce(plainLine(text));
}

void BalloonWindow::show(const character::BalloonPage& page) {
    QStringList lines;
    for (const std::string& line : page.lines)
        lines += plainLine(line);
    const int height = std::min(page.height, linesIn(room().height()));
    if (lines.size() > height)
        lines = lines.mid(lines.size() - height);
    const bool opens = !figure_;
    if (opens) {
        figure_ = speaker_.figure().translated(-speaker_.place());
        figureScale_ = speaker_.scale();
    }
    const int step = bubble_.fontMetrics().lineSpacing();
    full_ = {page.width + kAround, height * step + kAround};
    int widest = 2 * step;
    for (const std::string& line : page.lines)
        widest = std::max(widest, textWidth(line));
    const int count = std::max(static_cast<int>(lines.size()), 1);
    size_ = grows_ ? size_.expandedTo({widest + kAround, count * step + kAround}) : full_;
    const Qt::LayoutDirection direction = directionOf(lines);
    linesBegin_ = direction;
    follow();
    bubble_.write(lines, direction);
    if (opens)
        bubble_.appear();
}

void BalloonWindow::hide() {
    figure_.reset();
    textDirection_.reset();
    bubble_.disappear();
}

void BalloonWindow::follow() {
    if (!figure_)
        return;
    const double grown = speaker_.scale() / figureScale_; // on a monitor of another scale
    const QRect figure((QPointF(figure_->topLeft()) * grown).toPoint() + speaker_.place(),
                       (QSizeF(figure_->size()) * grown).toSize());
    BalloonPlace place = placeBalloon(full_, figure, room(), windowsAtWork());
    const QPoint corner = place.bubble.topLeft();
    place.bubble = growingBubble(place, size_, bubbleBefore_, linesBegin_);
    bubbleBefore_ = place.bubble.translated(-corner);
    bubble_.takeForm(place);
}

QRect BalloonWindow::reach() const {
    constexpr int kUsualLines = 4;
    const QSize bubble(charactersPerLine_ * averageCharacterWidth() + kAround,
                       kUsualLines * bubble_.fontMetrics().lineSpacing() + kAround);
    return placeBalloon(bubble, speaker_.figure(), room(), {}).window;
}

QRect BalloonWindow::room() const {
    return roomAround(speaker_.figure());
}

int BalloonWindow::linesIn(int height) const {
    return std::max((height - kAround - kTipLength) / bubble_.fontMetrics().lineSpacing(), 1);
}

/// The first letter decides for the whole text, also when it has scrolled away.
Qt::LayoutDirection BalloonWindow::directionOf(const QStringList& lines) {
    if (!textDirection_)
        textDirection_ = directionIn(lines.join(QLatin1Char(' ')));
    return textDirection_.value_or(direction_);
}

} // namespace brovin::desktop
