#include "desktop/character/announcement.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QCoreApplication>

namespace brovin::desktop {
namespace {

class Notification final : public QAccessibleObject {
public:
    explicit Notification(Announcement* told) : QAccessibleObject(told), told_(told) {}

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? told_->text() : QString();
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(qApp);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

private:
    const Announcement* told_;
};

QAccessibleInterface* describeAnnouncement(const QString& /*className*/, QObject* object) {
    auto* const told = dynamic_cast<Announcement*>(object);
    return told == nullptr ? nullptr : new Notification(told);
}

} // namespace

Announcement::Announcement() {
    QAccessible::installFactory(describeAnnouncement); // a second call changes nothing
}

void Announcement::announce(const QString& text) {
    text_ = text;
    QAccessibleEvent comesUp(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&comesUp);
}

} // namespace brovin::desktop
