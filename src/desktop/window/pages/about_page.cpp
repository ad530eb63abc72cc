#include "desktop/widgets/link_label.h"
#include "desktop/widgets/parts.h"
#include "desktop/widgets/picture_label.h"
#include "desktop/widgets/text.h"
#include "desktop/widgets/text_line.h"
#include "desktop/window/pages/pages.h"

#include <QApplication>
#include <QFont>

namespace brovin::desktop {
namespace {

QLabel* versionLine(ui::Label& control, QWidget* page) {
    auto* line = textLine(control, page, [&control] {
        return QStringLiteral("%1 - %2 %3")
            .arg(QApplication::applicationName(), withoutMnemonic(qt(control.caption())),
                 QApplication::applicationVersion());
    });
    line->setObjectName(qt(control.name()));
    line->setAlignment(Qt::AlignHCenter);
    QFont large = line->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setBold(true);
    line->setFont(large);
    return line;
}

} // namespace

QWidget* makeAboutPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    layout->addStretch();
    layout->addWidget(new PictureLabel(form.imgBrovin, 180, page), 0, Qt::AlignHCenter);
    layout->addWidget(versionLine(form.lblVersion, page));
    layout->addSpacing(8);
    layout->addWidget(bound<QLabel>(form.lblNumbers, page), 0, Qt::AlignHCenter);
    QLabel* numbers = statisticsLine(form.sbScore, page);
    numbers->setAlignment(Qt::AlignHCenter);
    layout->addWidget(numbers);
    layout->addSpacing(16);
    layout->addWidget(new PictureLabel(form.imgLogo, 48, page), 0, Qt::AlignHCenter);
    layout->addWidget(new LinkLabel(form.lblFeedback, page), 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

} // namespace brovin::desktop
