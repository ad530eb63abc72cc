#include "desktop/records/log_window.h"

#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QAbstractListModel>
#include <QBoxLayout>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

#include <utility>

namespace brovin::desktop {

/// The lines that were found, each read from the file when it is looked at.
class LogLines final : public QAbstractListModel {
public:
    LogLines(const QString& file, QObject* parent) : QAbstractListModel(parent), file_(file) {}

    void setLines(std::deque<std::uint64_t> lines) {
        beginResetModel();
        lines_ = std::move(lines);
        file_.close();
        file_.open(QIODevice::ReadOnly);
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(lines_.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        constexpr qint64 kLongest = 4096; // of a path
        if (role != Qt::DisplayRole || !index.isValid())
            return {};
        // What was emptied meanwhile has no such line any more.
        if (!file_.seek(static_cast<qint64>(lines_[static_cast<std::size_t>(index.row())])))
            return QString();
        return QString::fromUtf8(file_.readLine(kLongest).trimmed());
    }

private:
    mutable QFile file_;
    std::deque<std::uint64_t> lines_;
};

namespace {

/// Reads the whole log, until it is told to end.
std::shared_ptr<const cleaner::LogSearch> readLog(const QString& name, const std::string& wanted,
                                                  const platform::Letters& letters,
                                                  const std::atomic<bool>& goesOn) {
    constexpr qint64 kPiece = qint64{1024} * 1024;
    auto search = std::make_shared<cleaner::LogSearch>(wanted, letters);
    QFile log(name);
    if (!log.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return search;
    for (QByteArray piece = log.read(kPiece); goesOn && !piece.isEmpty(); piece = log.read(kPiece))
        search->take(std::string_view(piece.constData(), static_cast<std::size_t>(piece.size())));
    search->finish();
    return search;
}

} // namespace

LogWindow::LogWindow(const Needs& needs, QWidget* owner) : QDialog(owner), needs_(needs) {
    constexpr std::chrono::milliseconds kTyping{150};
    setObjectName(QStringLiteral("logWindow"));
    setWindowIcon(programIcon());
    setWindowTitle(qt(needs.messages.getText("logTitle")));
    auto* layout = new QVBoxLayout(this);
    auto* head = new QHBoxLayout;
    wanted_ = new QLineEdit(this);
    wanted_->setObjectName(QStringLiteral("logWanted"));
    auto* label = new QLabel(qt(needs.messages.getText("logSearch")), this);
    label->setBuddy(wanted_);
    head->addWidget(label);
    head->addWidget(wanted_, 1);
    layout->addLayout(head);
    list_ = new QListView(this);
    list_->setObjectName(QStringLiteral("logLines"));
    list_->setAccessibleName(windowTitle());
    list_->setUniformItemSizes(true);
    lines_ = new LogLines(needs.file, list_);
    list_->setModel(lines_);
    layout->addWidget(list_, 1);
    auto* foot = new QHBoxLayout;
    said_ = new QLabel(this);
    said_->setObjectName(QStringLiteral("logSaid"));
    said_->setWordWrap(true);
    foot->addWidget(said_, 1);
    auto* close = new QPushButton(qt(needs.messages.getText("close")), this);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    foot->addWidget(close);
    layout->addLayout(foot);
    resize(sizeHint().expandedTo({680, 460}));
    soon_.setSingleShot(true);
    soon_.setInterval(kTyping);
    connect(&soon_, &QTimer::timeout, this, &LogWindow::search);
    connect(wanted_, &QLineEdit::textChanged, &soon_, qOverload<>(&QTimer::start));
    connect(
        this, &LogWindow::read, this,
        [this](const GoesOn& goesOn, const Done& done) {
            if (*goesOn)
                show(done);
        },
        Qt::QueuedConnection);
    wanted_->setFocus();
    search();
}

LogWindow::~LogWindow() {
    stop();
}

void LogWindow::stop() {
    if (!reader_.joinable())
        return;
    *goesOn_ = false;
    reader_.join(); // a piece is read in a moment
}

void LogWindow::search() {
    stop();
    goesOn_ = std::make_shared<std::atomic<bool>>(true);
    said_->setText(qt(needs_.messages.getText("logSearching")));
    reader_ = std::thread([this, goesOn = goesOn_, file = needs_.file, wanted = wanted_->text().toStdString(),
                           &letters = needs_.letters] {
        const auto done = readLog(file, wanted, letters, *goesOn);
        if (*goesOn)
            emit read(goesOn, done);
    });
}

void LogWindow::show(const std::shared_ptr<const cleaner::LogSearch>& done) {
    const std::uint64_t kept = done->lines().size();
    lines_->setLines(done->lines());
    list_->scrollToBottom();
    said_->setText(qt(kept == done->found()
                          ? needs_.messages.getText("logLines", {number(kept)})
                          : needs_.messages.getText("logLinesLast", {number(done->found()), number(kept)})));
}

std::string LogWindow::number(std::uint64_t count) const {
    return needs_.regional.grouped(static_cast<std::int64_t>(count));
}

} // namespace brovin::desktop
