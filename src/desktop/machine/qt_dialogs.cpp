#include "desktop/machine/qt_dialogs.h"

#include "desktop/machine/box_manners.h"
#include "desktop/machine/box_text.h"
#include "desktop/widgets/text.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QScreen>

namespace brovin::desktop {
namespace {

namespace box = platform::box;
using platform::Button;

/// Counts an open dialog for as long as it lives.
class Opening {
public:
    explicit Opening(int& count) : count_(count) { ++count_; }
    ~Opening() { --count_; }
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

private:
    int& count_;
};

QMessageBox::Icon iconOf(platform::BoxStyle style) {
    switch (style & box::kIcons) {
    case box::kCritical:
        return QMessageBox::Critical;
    case box::kQuestion:
        return QMessageBox::Question;
    case box::kExclamation:
        return QMessageBox::Warning;
    case box::kInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QMessageBox::StandardButtons buttonsOf(platform::BoxStyle style) {
    switch (style & box::kButtons) {
    case box::kYesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case box::kOkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

Button answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Button::Yes;
    case QMessageBox::No:
        return Button::No;
    case QMessageBox::Cancel:
        return Button::Cancel;
    default:
        return Button::Ok;
    }
}

QString titleOf(const std::string& title) {
    return title.empty() ? QApplication::applicationName() : qtLines(title);
}

/// The text as far as there is room for it; the whole one can be unfolded.
void setText(QMessageBox& message, const QString& text) {
    const QString fitting =
        fittingText(text, message.fontMetrics(), message.screen()->availableGeometry().size());
    message.setText(fitting);
    if (fitting == text)
        return;
    message.setDetailedText(text);
    if (message.standardButtons() == QMessageBox::Ok) // among two buttons, the toolkit would not know
        message.setEscapeButton(QMessageBox::Ok);
}

} // namespace

QWidget* QtDialogs::visibleOwner() const {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal; // a question about a window that waits for the answer
    return owner_ != nullptr && owner_->isVisible() ? owner_ : nullptr;
}

Button QtDialogs::messageBox(const std::string& text, platform::BoxStyle style, const std::string& title) {
    const Opening opening(open_);
    const bool wanted = !asked || asked();
    // Before its owner, a box would get the keyboard together with it.
    QMessageBox message(iconOf(style), titleOf(title), {}, buttonsOf(style),
                        wanted ? visibleOwner() : nullptr);
    message.setTextFormat(Qt::PlainText); // a file's name may look like markup
    setText(message, qtLines(text));
    message.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    message.setWindowFlag(Qt::WindowStaysOnTopHint);
    if ((style & box::kButtons) == box::kYesNo) {
        message.setEscapeButton(QMessageBox::No);
        message.setDefaultButton(QMessageBox::No);              // a stray Enter deletes nothing
        if (!wanted || (style & box::kIcons) == box::kQuestion) // questions come in rows, too
            letButtonsWait(message);
    }
    if (!wanted)
        new UnaskedBox(message);
    return answerOf(message.exec());
}

std::optional<std::string> QtDialogs::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& text) {
    const Opening opening(open_);
    QInputDialog input(visibleOwner());
    input.setWindowTitle(titleOf(title));
    input.setLabelText(
        fittingText(qtLines(prompt), input.fontMetrics(), input.screen()->availableGeometry().size()));
    for (QLabel* label : input.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    input.setTextValue(qt(text));
    if (input.exec() != QDialog::Accepted)
        return std::nullopt;
    return input.textValue().toStdString();
}

std::string QtDialogs::browseForFolder(const std::string& prompt) {
    const Opening opening(open_);
    const QString folder =
        QFileDialog::getExistingDirectory(visibleOwner(), qtLines(prompt), QDir::homePath());
    return QFile::encodeName(folder).toStdString();
}

std::optional<std::size_t> QtDialogs::choose(const std::string& prompt,
                                             const std::vector<std::string>& lines) {
    const Opening opening(open_);
    QInputDialog choice(visibleOwner());
    choice.setWindowTitle(titleOf({}));
    choice.setLabelText(qtLines(prompt));
    choice.setOption(QInputDialog::UseListViewForComboBoxItems);
    QStringList items;
    for (const std::string& line : lines)
        items.append(qt(line));
    choice.setComboBoxItems(items);
    choice.setTextValue(items.value(0));
    if (choice.exec() != QDialog::Accepted)
        return std::nullopt;
    // By the row, since two lines may look the same.
    const auto* const list = choice.findChild<QListView*>();
    if (list == nullptr || !list->currentIndex().isValid())
        return std::nullopt;
    return static_cast<std::size_t>(list->currentIndex().row());
}

} // namespace brovin::desktop
