#include "desktop/widgets/gallery_view.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/text.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <chrono>
#include <utility>

namespace brovin::desktop {
namespace {

constexpr int kGap = 6; ///< pixels around a picture and beside it
constexpr int kNoteLines = 2;
constexpr int kKnownRole = Qt::UserRole;
constexpr int kBrokenRole = Qt::UserRole + 1;
constexpr int kNoteRole = Qt::AccessibleDescriptionRole;

/// Paints an entry: its picture, its name, its line.
class CardPainter final : public QStyledItemDelegate {
public:
    explicit CardPainter(GalleryView& view) : QStyledItemDelegate(&view), view_(view) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        const QSize plain = QStyledItemDelegate::sizeHint(option, index);
        if (!view_.hasCards())
            return plain;
        const int lines = (1 + kNoteLines) * QFontMetrics(option.font).lineSpacing();
        return {plain.width(), std::max(GalleryView::kSide, lines) + kGap};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& given,
               const QModelIndex& index) const override {
        if (!view_.hasCards())
            return QStyledItemDelegate::paint(painter, given, index);
        QStyleOptionViewItem option = given;
        initStyleOption(&option, index);
        const QString name = std::exchange(option.text, QString());
        // The style would paint the picture too, and keep each that ever was in the toolkit's cache.
        option.icon = QIcon();
        option.features &= ~QStyleOptionViewItem::HasDecoration;
        view_.style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, &view_);

        const QPixmap picture = view_.picture(index);
        const QRect place(option.rect.left() + kGap, option.rect.top() + kGap / 2, GalleryView::kSide,
                          GalleryView::kSide);
        if (index.data(kBrokenRole).toBool())
            view_.style()
                ->standardIcon(QStyle::SP_MessageBoxWarning)
                .paint(painter, place.adjusted(16, 16, -16, -16));
        else
            view_.style()->drawItemPixmap(painter, place, Qt::AlignCenter, picture);
        paintTexts(*painter, option, roomForTexts(option.rect), name, index.data(kNoteRole).toString());
    }

    /// The line once more, where it has not found room.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const int width = roomForTexts(option.rect).width();
        const int most = kNoteLines * QFontMetrics(option.font).lineSpacing();
        if (heightOf(index.data(kNoteRole).toString(), option.font, width) > most)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::hideText();
        return true;
    }

private:
    [[nodiscard]] static QRect roomForTexts(const QRect& entry) {
        return entry.adjusted(GalleryView::kSide + 3 * kGap, 0, -kGap, 0);
    }

    void paintTexts(QPainter& painter, const QStyleOptionViewItem& option, QRect room, const QString& name,
                    const QString& note) const {
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const auto group =
            option.state.testFlag(QStyle::State_Enabled) ? QPalette::Normal : QPalette::Disabled;
        painter.save();
        painter.setPen(option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        QFont bold = option.font;
        bold.setBold(true);
        const int line = QFontMetrics(bold).lineSpacing();
        const int noteHeight = std::min(heightOf(note, option.font, room.width()), kNoteLines * line);
        room.setTop(room.center().y() - (line + noteHeight) / 2);
        painter.setFont(bold);
        painter.drawText(QRect(room.left(), room.top(), room.width(), line), Qt::AlignVCenter, name);
        painter.setFont(option.font);
        painter.drawText(QRect(room.left(), room.top() + line, room.width(), noteHeight), Qt::TextWordWrap,
                         note);
        painter.restore();
    }

    [[nodiscard]] static int heightOf(const QString& note, const QFont& font, int width) {
        return QFontMetrics(font).boundingRect(QRect(0, 0, width, 1000), Qt::TextWordWrap, note).height();
    }

    GalleryView& view_;
};

} // namespace

GalleryView::GalleryView(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new CardPainter(*this));
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    fetching_.setSingleShot(true);
    frame_.setSingleShot(true);
    frame_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&fetching_, &QTimer::timeout, this, &GalleryView::fetchNext);
    QObject::connect(&frame_, &QTimer::timeout, this, &GalleryView::goOn);
}

void GalleryView::show(ui::Gallery& gallery) {
    if (std::exchange(gallery_, &gallery) != nullptr &&
        std::exchange(cardRevision_, gallery.cardRevision()) == gallery.cardRevision())
        return;
    for (int row = 0; row < count(); ++row)
        item(row)->setData(kKnownRole, {});
    viewport()->update();
}

QPixmap GalleryView::picture(const QModelIndex& index) {
    if (index.row() == under_ && portrait_)
        return moving_;
    if (!index.data(kKnownRole).toBool()) {
        wanted_.insert(index.row());
        fetching_.start(0);
    }
    return index.data(Qt::DecorationRole).value<QPixmap>();
}

/// One at a time, so that the window answers in between.
void GalleryView::fetchNext() {
    if (wanted_.empty() || !hasCards() || std::exchange(reading_, true))
        return;
    const int row = *wanted_.begin();
    wanted_.erase(wanted_.begin());
    if (row < count() && row < gallery_->count())
        fetch(row);
    reading_ = false;
    if (!wanted_.empty())
        fetching_.start(0);
}

/// A large file lets events through while it is read, by which the list may have become another.
void GalleryView::fetch(int row) {
    const QString name = item(row)->text();
    const ui::Gallery::Card card = gallery_->card(row);
    QListWidgetItem* const entry = item(row);
    if (entry == nullptr || entry->text() != name)
        return;
    entry->setData(kKnownRole, true);
    entry->setData(kBrokenRole, card.broken);
    entry->setData(kNoteRole, qt(card.note));
    entry->setData(Qt::DecorationRole, scaled(card.picture));
    entry->setToolTip(plainToolTip(card.note));
}

QPixmap GalleryView::scaled(const platform::Picture& picture) const {
    if (picture.pixels.empty())
        return {};
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                       QImage::Format_ARGB32_Premultiplied);
    const double fineness = devicePixelRatioF();
    const QSize side = QSize(kSide, kSide) * fineness;
    QPixmap result = QPixmap::fromImage(image.scaled(side, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    result.setDevicePixelRatio(fineness);
    return result;
}

bool GalleryView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::MouseMove)
        enter(indexAt(static_cast<QMouseEvent*>(event)->pos()).row());
    else if (event->type() == QEvent::Leave)
        enter(-1);
    return QListWidget::viewportEvent(event);
}

void GalleryView::hideEvent(QHideEvent* event) {
    enter(-1);
    QListWidget::hideEvent(event);
}

void GalleryView::enter(int row) {
    if (std::exchange(under_, row) == row)
        return;
    frame_.stop();
    portrait_.reset();
    if (row >= 0 && gallery_ != nullptr && gallery_->portrait && row < gallery_->count())
        portrait_ = gallery_->portrait(row);
    if (under_ != row)
        portrait_.reset(); // while it was read the mouse went elsewhere
    if (portrait_) {
        since_.start();
        goOn();
    }
    viewport()->update();
}

/// What takes long to draw moves less often, so that it does not take the time of everything else.
void GalleryView::goOn() {
    constexpr int kRest = 6;
    const std::chrono::milliseconds begun(since_.elapsed());
    const auto next = portrait_->wave(begun);
    moving_ = scaled(portrait_->picture());
    if (next)
        frame_.start(std::max(*next, kRest * (std::chrono::milliseconds(since_.elapsed()) - begun)));
    else
        portrait_.reset(); // it waves once
    viewport()->update();
}

void bind(GalleryView* widget, ui::Gallery& control) {
    bind(static_cast<QListWidget*>(widget), static_cast<ui::ListBox&>(control));
    widget->show(control);
    control.observe([shown = QPointer<GalleryView>(widget), &control] {
        if (shown)
            shown->show(control);
    });
}

} // namespace brovin::desktop
