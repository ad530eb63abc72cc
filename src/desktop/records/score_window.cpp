#include "desktop/records/score_window.h"

#include "desktop/records/score_picture.h"
#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QBoxLayout>
#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardItemModel>
#include <QTableView>

namespace brovin::desktop {
namespace {

using platform::ScoreBy;

QStandardItem* numberCell(const std::string& number) {
    auto* cell = new QStandardItem(qt(number));
    cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return cell;
}

} // namespace

ScoreWindow::ScoreWindow(cleaner::ScoreBook& book, QWidget* owner) : QDialog(owner), book_(book) {
    setObjectName(QStringLiteral("scoreWindow"));
    setWindowIcon(programIcon());
    setWindowTitle(qt(book.messages().getText("scoreTitle")));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeHead());
    picture_ = new ScorePicture(this);
    picture_->setObjectName(QStringLiteral("scorePicture"));
    picture_->setAccessibleName(qt(book.messages().getText("scorePicture")));
    layout->addWidget(picture_, 3);
    model_ = new QStandardItemModel(this);
    table_ = new QTableView(this);
    table_->setObjectName(QStringLiteral("scoreTable"));
    table_->setAccessibleName(windowTitle());
    table_->setModel(model_);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    layout->addWidget(table_, 2);
    said_ = new QLabel(this);
    said_->setObjectName(QStringLiteral("scoreSaid"));
    said_->setTextFormat(Qt::PlainText);
    said_->setWordWrap(true);
    layout->addWidget(said_);
    layout->addLayout(makeButtons());
    load();
    table_->setFocus();
}

QLayout* ScoreWindow::makeHead() {
    choice_ = new QComboBox(this);
    choice_->setObjectName(QStringLiteral("scoreBy"));
    for (const ScoreBy each : {ScoreBy::Week, ScoreBy::Month, ScoreBy::Name, ScoreBy::Folder})
        choice_->addItem(qt(book_.heading(each)), static_cast<int>(each));
    auto* label = new QLabel(qt(book_.messages().getText("scoreCountBy")), this);
    label->setBuddy(choice_);
    connect(choice_, qOverload<int>(&QComboBox::currentIndexChanged), this, &ScoreWindow::load);
    auto* head = new QHBoxLayout;
    head->addWidget(label);
    head->addWidget(choice_);
    head->addStretch();
    return head;
}

QLayout* ScoreWindow::makeButtons() {
    auto* buttons = new QHBoxLayout;
    const auto add = [&](language::Text caption, const char* name) {
        auto* button = new QPushButton(qt(book_.messages().getText(caption)), this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        buttons->addWidget(button);
        return button;
    };
    connect(add("scoreSaveTable", "scoreSaveTable"), &QPushButton::clicked, this,
            [this] { save(QStringLiteral("csv"), QByteArray::fromStdString(book_.csv(by(), bars_))); });
    connect(add("scoreSavePicture", "scoreSavePicture"), &QPushButton::clicked, this, [this] {
        QByteArray content;
        QBuffer buffer(&content);
        buffer.open(QIODevice::WriteOnly);
        picture_->image().save(&buffer, "PNG");
        save(QStringLiteral("png"), content);
    });
    buttons->addStretch();
    connect(add("close", "scoreClose"), &QPushButton::clicked, this, &QDialog::close);
    return buttons;
}

ScoreBy ScoreWindow::by() const {
    return static_cast<ScoreBy>(choice_->currentData().toInt());
}

void ScoreWindow::load() {
    auto found = book_.bars(by());
    std::string said = book_.trouble();
    if (!found)
        said = book_.messages().getText("scoreNotRead", {found.failure().reason});
    else if (found->empty() && said.empty())
        said = book_.messages().getText("scoreEmpty");
    say(said);
    bars_ = found ? std::move(*found) : std::vector<platform::Score>();
    show(bars_);
}

void ScoreWindow::show(const std::vector<platform::Score>& bars) {
    model_->clear();
    model_->setHorizontalHeaderLabels({qt(book_.heading(by())), qt(book_.messages().getText("scoreItems")),
                                       qt(book_.messages().getText("scoreKilobytes"))});
    QVector<ScoreBar> drawn;
    for (const platform::Score& bar : bars) {
        const QString label = qt(book_.shownLabel(by(), bar.label));
        model_->appendRow({new QStandardItem(label), numberCell(book_.number(bar.items)),
                           numberCell(book_.number(bar.kilobytes))});
        drawn.push_back({label, bar.items, qt(book_.number(bar.items))});
    }
    table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    const bool times = by() == ScoreBy::Week || by() == ScoreBy::Month;
    picture_->setBars(std::move(drawn), times);
    if (times)
        table_->scrollToBottom();
}

void ScoreWindow::save(const QString& ending, const QByteArray& content) {
    const QString file = QFileDialog::getSaveFileName(
        this, QString(), QDir::home().filePath(QStringLiteral("brovin-score.") + ending),
        QStringLiteral("*.") + ending);
    if (file.isEmpty())
        return;
    QSaveFile target(file);
    const bool saved =
        target.open(QIODevice::WriteOnly) && target.write(content) == content.size() && target.commit();
    say(saved ? book_.messages().getText("scoreSaved", {file.toStdString()})
              : book_.messages().getText("scoreNotSaved", {target.errorString().toStdString()}));
}

void ScoreWindow::say(const std::string& text) {
    said_->setText(qtLines(text));
    said_->setVisible(!text.empty());
}

} // namespace brovin::desktop
