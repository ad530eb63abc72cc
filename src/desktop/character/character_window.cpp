#include "desktop/character/character_window.h"

#include "desktop/character/opaque_region.h"
#include "desktop/character/screens.h"
#include "desktop/character/window_below.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <functional>

namespace brovin::desktop {
namespace {

/// Of a screen on which nothing is to be larger than it was drawn.
constexpr double kUsualDotsPerInch = 96;

QImage viewOf(const character::Bitmap& bitmap) {
    return {reinterpret_cast<const uchar*>(bitmap.pixels.data()), bitmap.width, bitmap.height,
            QImage::Format_ARGB32_Premultiplied};
}

} // namespace

CharacterWindow::CharacterWindow(const character::CharacterData& shown, int percent)
    : images_(shown.images), painter_(shown, images_), frame_(shown.width, shown.height), percent_(percent),
      hideAction_(menu_.addAction(QString())), nextScreenAction_(menu_.addAction(QString())) {
    setFixedSize(sizeOn(*screen()));
    QObject::connect(hideAction_, &QAction::triggered, this, [this] {
        if (stage_ != nullptr)
            stage_->hideByUser(character::VisibilityCause::UserHidByMenu);
    });
    QObject::connect(nextScreenAction_, &QAction::triggered, this, [this] {
        if (nextScreen)
            nextScreen();
    });
}

void CharacterWindow::attach(character::Stage& stage) {
    stage_ = &stage;
    mouse_.emplace(stage);
}

void CharacterWindow::detach() {
    stage_ = nullptr;
    mouse_.reset();
    menu_.hide();
}

void CharacterWindow::setMenu(const platform::CharacterMenu& menu) {
    nextScreenAction_->setText(QString::fromStdString(menu.nextScreen));
    while (menu_.actions().size() > 2)
        menu_.removeAction(menu_.actions().back());
    opened_.clear();
    addEntries(menu_, menu.more);
}

void CharacterWindow::addEntries(QMenu& menu, const std::vector<platform::MenuEntry>& entries) {
    for (const platform::MenuEntry& entry : entries) {
        if (entry.caption.empty()) {
            menu.addSeparator();
            continue;
        }
        if (!entry.entries.empty()) {
            QMenu& below = opened_.emplace_back(QString::fromStdString(entry.caption));
            addEntries(below, entry.entries);
            menu.addMenu(&below);
            continue;
        }
        QAction* const action = menu.addAction(QString::fromStdString(entry.caption));
        action->setCheckable(true);
        action->setChecked(entry.checked);
        QObject::connect(action, &QAction::triggered, this, [this, act = entry.chosen] {
            if (chosen)
                chosen(act);
        });
    }
}

void CharacterWindow::setPercent(int percent) {
    percent_ = percent;
    fit();
}

QSize CharacterWindow::sizeOn(const QScreen& screen) const {
    if (percent_ == 0)
        return (QSizeF(frame_) * std::max(screen.logicalDotsPerInch() / kUsualDotsPerInch, 1.0)).toSize();
    const double most =
        std::sqrt(static_cast<double>(character::kMostEnlargedPixels) / (frame_.width() * frame_.height()));
    return (QSizeF(frame_) * std::min(percent_ / 100.0, most) / screen.devicePixelRatio()).toSize();
}

const QScreen& CharacterWindow::standsOn() const {
    return standsOn_ ? *standsOn_ : *screen();
}

/// Behind a change of the wish.
void CharacterWindow::fit() {
    const QSize before = size();
    const QSize after = sizeOn(standsOn());
    if (after != before) {
        setFixedSize(after);
        const QSize lost = before - after;
        const QPoint to = place() + QPoint(lost.width() / 2, lost.height());
        if (stage_ != nullptr)
            stage_->setPlace({to.x(), to.y()}, character::MoveCause::Program);
    }
    fitPicture();
}

/// Behind a change of the screen, of which the toolkit tells late: by then it has been counted with.
void CharacterWindow::fitScreen() {
    if (stage_ != nullptr)
        stepTo({stage_->place().x, stage_->place().y});
    fit();
}

void CharacterWindow::fitPicture() {
    if (picture_.isNull() || picture_.size() == pixels())
        return;
    drawPicture();
    present(opaqueRegion(picture_));
}

/// Where all screens are alike it goes wherever it likes. Where not, the toolkit's coordinates have gaps, in
/// which it would have it now on one screen and now on another.
void CharacterWindow::stepTo(QPoint place) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto alike = [](const QScreen* a, const QScreen* b) {
        return a->devicePixelRatio() == b->devicePixelRatio() &&
               a->logicalDotsPerInch() == b->logicalDotsPerInch();
    };
    if (std::adjacent_find(screens.begin(), screens.end(), std::not_fn(alike)) == screens.end()) {
        standsOn_ = nullptr;
        putAt(place);
        return;
    }
    QList<ScreenForCharacter> choice;
    for (const QScreen* const screen : screens)
        choice.append({screen->geometry(), sizeOn(*screen)});
    const qsizetype current = std::max<qsizetype>(screens.indexOf(&standsOn()), 0);
    const Footing footing = footingAt(place, current, choice);
    standsOn_ = screens[footing.screen];
    setFixedSize(choice[footing.screen].size);
    putAt(footing.place);
    fitPicture();
}

double CharacterWindow::scale() const {
    return static_cast<double>(width()) / frame_.width();
}

QRect CharacterWindow::figure() const {
    const QRectF shown = shape().boundingRect();
    const QRectF drawn(shown.topLeft() / devicePixelRatioF(), shown.size() / devicePixelRatioF());
    return (shown.isEmpty() ? rect() : drawn.toAlignedRect() & rect()).translated(place());
}

void CharacterWindow::showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) {
    painter_.paint(frame, mouth, canvas_);
    drawPicture();
    present(opaqueRegion(picture_));
}

/// What is larger than a frame may cost, or smaller than it was drawn, the toolkit scales.
void CharacterWindow::drawPicture() {
    const QSize size = pixels();
    const bool larger = size.width() >= frame_.width() && size.height() >= frame_.height();
    if (!larger || std::size_t(size.width()) * std::size_t(size.height()) > character::kMostEnlargedPixels) {
        const bool smooth = !larger && blended();
        picture_ = viewOf(canvas_).scaled(size, Qt::IgnoreAspectRatio,
                                          smooth ? Qt::SmoothTransformation : Qt::FastTransformation);
        return;
    }
    const auto edges = blended() ? character::Enlarger::Edges::Blended : character::Enlarger::Edges::Cut;
    picture_ = viewOf(enlarger_.enlarge(canvas_, {static_cast<std::uint16_t>(size.width()),
                                                  static_cast<std::uint16_t>(size.height()), edges}));
}

void CharacterWindow::blendingChanged() {
    drawPicture();
    OverlayWindow::blendingChanged();
}

std::optional<character::Place> CharacterWindow::pointer() const {
    const QPoint at = QCursor::pos();
    return character::Place{at.x(), at.y()};
}

std::optional<character::Place> CharacterWindow::ground() const {
    const QRect standing = figure();
    const auto window = windowBelow({standing.center().x(), standing.bottom()}, *this);
    return window ? std::optional(character::Place{window->center().x(), window->center().y()})
                  : std::nullopt;
}

void CharacterWindow::setPlace(character::Place place) {
    stepTo({place.x, place.y});
    if (moved)
        moved();
}

void CharacterWindow::setShown(character::Shown shown) {
    if (shown == character::Shown::Yes)
        appear();
    else
        disappear();
}

bool CharacterWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked && mouse_)
        mouse_->letGo();
    return QWidget::event(event);
}

void CharacterWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF()); // to the screen's own pixels
    // In bands, because the toolkit shares out among threads what is in many pieces, as a figure's outline
    // is: that wakes two of them up for each frame, to do what takes less than the waking.
    constexpr int kBand = 16;
    for (QRect band(0, 0, picture_.width(), kBand); band.top() < picture_.height(); band.translate(0, kBand))
        painter.drawImage(band, picture_, band);
}

void CharacterWindow::mousePressEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->press(*event);
}

void CharacterWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->pressAgain(*event);
}

void CharacterWindow::mouseMoveEvent(QMouseEvent* event) {
    if (mouse_)
        mouse_->move(*event);
}

void CharacterWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (!mouse_)
        return;
    const bool inside = rect().contains(event->position().toPoint());
    if (mouse_->release(*event, inside) != CharacterMouse::Released::RightClick)
        return;
    nextScreenAction_->setVisible(QGuiApplication::screens().size() > 1);
    menu_.popup(event->globalPosition().toPoint());
}

void CharacterWindow::showEvent(QShowEvent* event) {
    QObject::connect(windowHandle(), &QWindow::screenChanged, this, &CharacterWindow::fitScreen,
                     Qt::UniqueConnection);
    QWidget::showEvent(event);
}

void CharacterWindow::hideEvent(QHideEvent* event) {
    if (mouse_)
        mouse_->forget();
    menu_.hide();
    QWidget::hideEvent(event);
}

/// By means of the desktop, since the window has no close box.
void CharacterWindow::closeEvent(QCloseEvent* event) {
    if (stage_ != nullptr)
        stage_->hideByUser(character::VisibilityCause::UserHid);
    QWidget::closeEvent(event);
}

} // namespace brovin::desktop
