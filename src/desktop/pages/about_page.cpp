#include "desktop/pages/pages.h"
#include "desktop/pages/parts.h"
#include "desktop/pages/text_line.h"
#include "desktop/picture_label.h"
#include "desktop/text.h"

#include <QApplication>
#include <QFont>
#include <QPointer>

namespace brovin::desktop {
namespace {

/// The feedback label looks and works like a link, from the keyboard too.
QLabel* feedbackLink(ui::Label& control, QWidget* page) {
    auto* link = new QLabel(page);
    bindCommon(link, control);
    link->setTextFormat(Qt::RichText);
    link->setTextInteractionFlags(Qt::LinksAccessibleByKeyboard | Qt::LinksAccessibleByMouse);
    const auto show = [shown = QPointer<QLabel>(link), &control] {
        if (shown)
            shown->setText(QStringLiteral("<a href='feedback'>%1</a>")
                               .arg(withoutMnemonic(qt(control.caption())).toHtmlEscaped()));
    };
    show();
    control.observe(show);
    QObject::connect(link, &QLabel::linkActivated, [&control] { control.click(); });
    return link;
}

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
    QLabel* numbers = statisticsLine(form.window, page);
    numbers->setAlignment(Qt::AlignHCenter);
    layout->addWidget(numbers);
    layout->addSpacing(16);
    layout->addWidget(new PictureLabel(form.imgLogo, 48, page), 0, Qt::AlignHCenter);
    layout->addWidget(feedbackLink(form.lblFeedback, page), 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

} // namespace brovin::desktop
