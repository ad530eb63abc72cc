#include "acsc/preview/preview_window.h"

#include "desktop/spoken_audio.h"

#include <QBoxLayout>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include <chrono>
#include <string>
#include <utility>

namespace brovin::acsc {
namespace {

const std::string kId = "preview";
constexpr std::chrono::milliseconds kSettling{300};
constexpr int kBeside = 20; ///< pixels between the window and the character

std::string bytesOf(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace

PreviewWindow::PreviewWindow(const QString& file)
    : folder_(QFileInfo(file).absolutePath()), file_(QFileInfo(file).fileName()),
      service_({{bytesOf(folder_)}, desktop::spokenAudio, [] { return false; }}),
      animations_(new QListWidget(this)), words_(new QLineEdit(this)) {
    setWindowTitle(file_);
    auto* layout = new QVBoxLayout(this);
    auto* playButton = new QPushButton(QStringLiteral("&Play"), this);
    auto* stopButton = new QPushButton(QStringLiteral("S&top"), this);
    auto* speakButton = new QPushButton(QStringLiteral("&Say"), this);
    auto* label = new QLabel(QStringLiteral("&Animations:"), this);
    label->setBuddy(animations_);
    words_->setPlaceholderText(QStringLiteral("Words for it to say"));
    layout->addWidget(label);
    layout->addWidget(animations_);
    auto* playing = new QHBoxLayout;
    playing->addWidget(playButton);
    playing->addWidget(stopButton);
    layout->addLayout(playing);
    auto* speaking = new QHBoxLayout;
    speaking->addWidget(words_);
    speaking->addWidget(speakButton);
    layout->addLayout(speaking);
    QWidget* before = animations_;
    for (QWidget* const next : {static_cast<QWidget*>(playButton), static_cast<QWidget*>(stopButton),
                                static_cast<QWidget*>(words_), static_cast<QWidget*>(speakButton)})
        setTabOrder(std::exchange(before, next), next);

    connect(animations_, &QListWidget::itemActivated, this, &PreviewWindow::play);
    connect(playButton, &QPushButton::clicked, this, &PreviewWindow::play);
    connect(speakButton, &QPushButton::clicked, this, &PreviewWindow::speak);
    connect(words_, &QLineEdit::returnPressed, this, &PreviewWindow::speak);
    connect(stopButton, &QPushButton::clicked, this, [this] {
        if (const auto* shown = character())
            shown->requests.stopAll();
    });
    settled_.setSingleShot(true);
    settled_.setInterval(kSettling);
    connect(&settled_, &QTimer::timeout, this, &PreviewWindow::reload);
    // Compilers put a new file in the place of the old one, and a watch on that would end with it.
    watcher_.addPath(folder_);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &settled_, qOverload<>(&QTimer::start));
}

bool PreviewWindow::load() {
    version_ = versionOnDisk();
    if (!service_.load(kId, bytesOf(file_)))
        return false;
    const platform::Character& shown = *character();
    const std::vector<std::string> names = shown.requests.animationNames();
    const QString chosen =
        animations_->currentItem() == nullptr ? QString() : animations_->currentItem()->text();
    animations_->clear();
    for (const std::string& name : names)
        animations_->addItem(QString::fromStdString(name));
    const auto again = animations_->findItems(chosen, Qt::MatchExactly);
    animations_->setCurrentRow(again.isEmpty() ? 0 : animations_->row(again.first()));
    const QRect beside = frameGeometry();
    shown.place.put(beside.right() + kBeside, beside.bottom() - shown.place.area().height);
    shown.requests.show();
    return true;
}

PreviewWindow::Version PreviewWindow::versionOnDisk() const {
    const QFileInfo file(folder_ + QLatin1Char('/') + file_);
    return {file.lastModified(), file.size()};
}

void PreviewWindow::reload() {
    if (versionOnDisk() == version_)
        return; // something else in the folder has changed
    const auto* const before = character();
    const platform::Area place = before == nullptr ? platform::Area{} : before->place.area();
    service_.unload(kId);
    if (!load())
        return; // it is being compiled, or its sources are not right: the next one counts
    if (before != nullptr)
        character()->place.put(place.left, place.top);
    play();
}

const platform::Character* PreviewWindow::character() {
    return service_.character(kId);
}

void PreviewWindow::play() {
    if (const auto* const shown = character(); shown != nullptr && animations_->currentItem() != nullptr) {
        shown->requests.stopAll();
        shown->requests.play(animations_->currentItem()->text().toStdString());
    }
}

void PreviewWindow::speak() {
    if (const auto* const shown = character())
        shown->requests.speak(words_->text().toStdString());
}

} // namespace brovin::acsc
