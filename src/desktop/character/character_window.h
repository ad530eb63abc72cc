#pragma once

#include "character/bitmap.h"
#include "character/character_data.h"
#include "character/enlarger.h"
#include "character/image_store.h"
#include "character/stage/surface.h"
#include "desktop/character/character_mouse.h"
#include "desktop/character/overlay_window.h"
#include "platform/character_service.h"

#include <QImage>
#include <QMenu>
#include <QPointer>
#include <QRect>
#include <QScreen>

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace brovin::desktop {

/// The character on the desktop, as large as it is drawn or larger: by the screen, or as the user wishes.
class CharacterWindow final : public OverlayWindow, public character::Surface {
public:
    /// For `percent` see `setPercent`. `shown` must outlive the window.
    CharacterWindow(const character::CharacterData& shown, int percent);

    /// Hands over to the stage what the user does, from here on until `detach`.
    void attach(character::Stage& stage);
    void detach();

    void setHideCaption(const QString& caption) { hideAction_->setText(caption); }
    void setMenu(const platform::CharacterMenu& menu);
    /// Pixels of the screen for a hundred of the frame's; 0: as many as the screen's scale makes of them. The
    /// feet stay where they are.
    void setPercent(int percent);

    /// Called when it has been moved.
    std::function<void()> moved;
    /// Called when the user has chosen so in the menu.
    std::function<void()> nextScreen;
    /// Called when he has chosen another entry, with what that is to do.
    using Chosen = std::function<void(std::function<void()> act)>;
    Chosen chosen;

    /// How large it is on a screen.
    [[nodiscard]] QSize sizeOn(const QScreen& screen) const;
    /// Where on the screen the picture is in its frame; the whole frame where it shows nothing.
    [[nodiscard]] QRect figure() const;

    void showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) override;
    void setPlace(character::Place place) override;
    void setShown(character::Shown shown) override;
    [[nodiscard]] double scale() const override;
    [[nodiscard]] std::optional<character::Place> pointer() const override;
    [[nodiscard]] std::optional<character::Place> ground() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    void blendingChanged() override;

private:
    [[nodiscard]] const QScreen& standsOn() const;
    void stepTo(QPoint place);
    void fit();
    void fitScreen();
    void fitPicture();
    void drawPicture();
    void addEntries(QMenu& menu, const std::vector<platform::MenuEntry>& entries);

    character::ImageStore images_;
    character::FramePainter painter_;
    character::Bitmap canvas_;
    character::Enlarger enlarger_;
    QImage picture_; ///< of the screen's pixels; a view of `canvas_`, or of what the enlarger made of it
    QSize frame_;
    int percent_;
    QPointer<QScreen> standsOn_; ///< null: the one that the toolkit has it on
    QMenu menu_;
    QAction* hideAction_;
    QAction* nextScreenAction_; ///< only to be seen while there are several screens
    std::deque<QMenu> opened_;  ///< by entries of the menu
    character::Stage* stage_ = nullptr;
    std::optional<CharacterMouse> mouse_;
};

} // namespace brovin::desktop
