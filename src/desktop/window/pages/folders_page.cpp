#include "desktop/widgets/list_with_hint.h"
#include "desktop/widgets/parts.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QValidator>

namespace brovin::desktop {
namespace {

/// Lets the decimal sign of the user's own keyboard stand for the point that the program reads.
class DecimalSign final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& /*cursor*/) const override {
        text.replace(locale().decimalPoint(), QLatin1String("."));
        return Acceptable;
    }
};

/// "Scan by myself every [5] hours", in a line that every language can fill in its own way.
QHBoxLayout* intervalRow(ui::FrmOptions& form, QWidget* page) {
    auto* check = bound<QCheckBox>(form.chkCheck, page);
    auto* interval = bound<QLineEdit>(form.txtInterval, page);
    interval->setAlignment(Qt::AlignRight);
    interval->setMaxLength(6);
    interval->setValidator(new DecimalSign(interval));
    interval->setFixedWidth(interval->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 12);
    return row({check, interval, bound<QLabel>(form.lblHours, page)});
}

} // namespace

QWidget* makeFoldersPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    auto* list = bound<QListWidget>(form.lstFolders, page);
    list->setTextElideMode(Qt::ElideMiddle);
    layout->addWidget(labelAbove(list, form.lblFolders, page));
    layout->addLayout(listWithHint(list, form.picAdd), 1);
    layout->addLayout(
        row({bound<QPushButton>(form.cmdAddFolder, page), bound<QPushButton>(form.cmdRemoveFolder, page)}));
    layout->addLayout(intervalRow(form, page));
    auto* scan = bound<QPushButton>(form.cmdNuke, page);
    QFont large = scan->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setBold(true);
    scan->setFont(large);
    scan->setMinimumHeight(scan->sizeHint().height() + 12);
    auto* preview = bound<QPushButton>(form.cmdPreview, page);
    preview->setMinimumHeight(scan->minimumHeight());
    auto* scanning = new QHBoxLayout;
    scanning->addWidget(scan, 1);
    scanning->addWidget(preview);
    layout->addLayout(scanning);
    auto* inVain = bound<QLabel>(form.lblNoNames, page);
    inVain->setWordWrap(true);
    layout->addWidget(inVain);
    return page;
}

} // namespace brovin::desktop
