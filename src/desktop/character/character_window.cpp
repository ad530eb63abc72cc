#include "desktop/character/character_window.h"

#include "desktop/character/opaque_region.h"
#include "desktop/character/window_below.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace brovin::desktop {

CharacterWindow::CharacterWindow(const character::CharacterData& shown)
    : images_(shown.images), painter_(shown, images_), hideAction_(menu_.addAction(QString())),
      nextScreenAction_(menu_.addAction(QString())) {
    setFixedSize(shown.width, shown.height);
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

QRect CharacterWindow::figure() const {
    return (opaque_.isEmpty() ? rect() : opaque_).translated(place());
}

void CharacterWindow::showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) {
    painter_.paint(frame, mouth, canvas_);
    drawPicture();
    present(opaqueRegion(picture_));
}

void CharacterWindow::drawPicture() {
    picture_ = QImage(reinterpret_cast<const uchar*>(canvas_.pixels.data()), canvas_.width, canvas_.height,
                      QImage::Format_ARGB32_Premultiplied);
    opaque_ = opaqueRegion(picture_).boundingRect();
    if (pixels() == picture_.size())
        return;
    const qreal factor = devicePixelRatio();
    const bool whole = std::floor(factor) == factor;
    picture_ = picture_.scaled(pixels(), Qt::IgnoreAspectRatio,
                               whole || !blended() ? Qt::FastTransformation : Qt::SmoothTransformation);
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
    putAt({place.x, place.y});
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
    if (picture_.size() != size()) {
        painter.drawImage(rect(), picture_);
        return;
    }
    // In bands, because the toolkit shares out among threads what is in many pieces, as a figure's outline
    // is: that wakes two of them up for each frame, to do what takes less than the waking.
    constexpr int kBand = 16;
    for (QRect band(0, 0, width(), kBand); band.top() < height(); band.translate(0, kBand))
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
