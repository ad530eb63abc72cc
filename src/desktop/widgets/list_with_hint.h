#pragma once

#include "desktop/widgets/picture_label.h"

#include <QGridLayout>
#include <QListWidget>

namespace brovin::desktop {

/// The list, with the hint over its lower corner while it is empty.
inline QLayout* listWithHint(QListWidget* list, ui::Image& hint) {
    // In the list no screen reader would find it.
    auto* picture = new PictureLabel(hint, 72, list->parentWidget());
    picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* layout = new QGridLayout;
    layout->addWidget(list, 0, 0);
    layout->addWidget(picture, 0, 0, Qt::AlignLeft | Qt::AlignBottom); // its arrow points at the button below
    return layout;
}

} // namespace brovin::desktop
