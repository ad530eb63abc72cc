#pragma once

#include "character/bitmap.h"
#include "character/character_data.h"
#include "character/image_store.h"
#include "character/stage/surface.h"
#include "desktop/character/character_mouse.h"
#include "desktop/character/overlay_window.h"
#include "platform/character_service.h"

#include <QImage>
#include <QMenu>
#include <QRect>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace brovin::desktop {

/// The character on the desktop. Its pixels are the screen's, or whole multiples of them on fine screens;
/// only by a broken factor such as 1.5 are they blended.
class CharacterWindow final : public OverlayWindow, public character::Surface {
public:
    /// `shown` must outlive the window.
    explicit CharacterWindow(const character::CharacterData& shown);

    /// Hands over to the stage what the user does, from here on until `detach`.
    void attach(character::Stage& stage);
    void detach();

    void setHideCaption(const QString& caption) { hideAction_->setText(caption); }
    void setMenu(const platform::CharacterMenu& menu);

    /// Called when it has been moved.
    std::function<void()> moved;
    /// Called when the user has chosen so in the menu.
    std::function<void()> nextScreen;
    /// Called when he has chosen another entry, with what that is to do.
    using Chosen = std::function<void(std::function<void()> act)>;
    Chosen chosen;

    /// Where on the screen the picture is in its frame; the whole frame where it shows nothing.
    [[nodiscard]] QRect figure() const;

    void showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) override;
    void setPlace(character::Place place) override;
    void setShown(character::Shown shown) override;
    [[nodiscard]] std::optional<character::Place> pointer() const override;
    [[nodiscard]] std::optional<character::Place> ground() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    void blendingChanged() override;

private:
    void drawPicture();
    void addEntries(QMenu& menu, const std::vector<platform::MenuEntry>& entries);

    character::ImageStore images_;
    character::FramePainter painter_;
    character::Bitmap canvas_;
    QImage picture_; ///< of the screen's pixels; a view of `canvas_` where those are as large
    QRect opaque_;   ///< of the frame
    QMenu menu_;
    QAction* hideAction_;
    QAction* nextScreenAction_; ///< only to be seen while there are several screens
    std::deque<QMenu> opened_;  ///< by entries of the menu
    character::Stage* stage_ = nullptr;
    std::optional<CharacterMouse> mouse_;
};

} // namespace brovin::desktop
