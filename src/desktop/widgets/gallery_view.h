#pragma once

#include "ui/gallery.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QPixmap>
#include <QTimer>

#include <memory>
#include <set>

namespace brovin::desktop {

/// A list whose entries are pictures, each with its name and a line below that. The picture under the mouse
/// moves. A screen reader hears names, and the lines as descriptions.
class GalleryView final : public QListWidget {
    Q_OBJECT
public:
    explicit GalleryView(QWidget* parent);

    void show(ui::Gallery& gallery);

    /// Pixels of the side of a picture.
    static constexpr int kSide = 60;

    /// Whether there is more to be seen than texts.
    [[nodiscard]] bool hasCards() const { return gallery_ != nullptr && gallery_->card; }
    /// What stands beside the entry at this moment. What is not known yet is asked for, and painted later.
    [[nodiscard]] QPixmap picture(const QModelIndex& index);

protected:
    bool viewportEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void fetchNext();
    void fetch(int row);
    void enter(int row);
    void goOn();
    [[nodiscard]] QPixmap scaled(const platform::Picture& picture) const;

    ui::Gallery* gallery_ = nullptr;
    unsigned long cardRevision_ = 0;
    std::set<int> wanted_; ///< entries that came into sight and are not known
    QTimer fetching_;
    bool reading_ = false;

    int under_ = -1;                                        ///< the entry under the mouse
    std::unique_ptr<platform::CharacterPortrait> portrait_; ///< its own, while it moves
    QPixmap moving_;
    QElapsedTimer since_;
    QTimer frame_;
};

/// Ties it like any list, and shows the cards.
void bind(GalleryView* widget, ui::Gallery& control);

} // namespace brovin::desktop
