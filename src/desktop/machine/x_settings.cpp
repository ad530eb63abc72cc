#include "desktop/machine/x_settings.h"

#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstddef>

namespace brovin::desktop {
namespace {

/// Reads on through bytes of either order; once they have ended too early, everything is 0.
class SettingBytes {
public:
    explicit SettingBytes(std::span<const std::uint8_t> bytes) : left_(bytes) {
        highFirst_ = number(1) == 1;
        skip(3);
    }
    [[nodiscard]] bool good() const { return good_; }

    std::span<const std::uint8_t> skip(std::size_t count) {
        good_ = good_ && count <= left_.size();
        if (!good_)
            return {};
        const auto skipped = left_.first(count);
        left_ = left_.subspan(count);
        return skipped;
    }
    std::uint32_t number(std::size_t size) {
        std::uint32_t value = 0;
        const auto bytes = skip(size);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            value = value << 8U | bytes[highFirst_ ? i : bytes.size() - 1 - i];
        return value;
    }
    /// Whatever it is, with what fills it up to whole words.
    std::string_view text(std::size_t size) {
        const auto bytes = skip(size);
        skip((4 - size % 4) % 4);
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

private:
    std::span<const std::uint8_t> left_;
    bool highFirst_ = false;
    bool good_ = true;
};

enum : std::uint32_t { kNumber, kText, kColour };

} // namespace

std::optional<std::int32_t> numberInXSettings(std::span<const std::uint8_t> settings, std::string_view name) {
    SettingBytes bytes(settings);
    bytes.skip(4); // how often they have been changed
    for (std::uint32_t left = bytes.number(4); left > 0 && bytes.good(); --left) {
        const std::uint32_t kind = bytes.number(1);
        bytes.skip(1);
        const std::string_view key = bytes.text(bytes.number(2));
        bytes.skip(4); // and this one
        if (kind == kNumber) {
            const auto value = static_cast<std::int32_t>(bytes.number(4));
            if (bytes.good() && key == name)
                return value;
        } else if (kind == kText) {
            bytes.text(bytes.number(4));
        } else if (kind == kColour) {
            bytes.skip(8);
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

XSettings::XSettings() {
    if (server() == nullptr)
        return;
    root_ = x11Root();
    ownerAtom_ = x11Atom("_XSETTINGS_S0");
    settingsAtom_ = x11Atom("_XSETTINGS_SETTINGS");
    managerAtom_ = x11Atom("MANAGER");
    follow(); // the toolkit has asked to be told of new managers itself
}

/// The toolkit may follow the same window for its own purposes, with the same wishes.
void XSettings::follow() {
    const auto asked = xcb_get_selection_owner(server(), ownerAtom_);
    const X11Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(server(), asked, nullptr), &std::free);
    owner_ = reply ? reply->owner : 0;
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    if (owner_ != 0)
        xcb_discard_reply(
            server(),
            xcb_change_window_attributes_checked(server(), owner_, XCB_CW_EVENT_MASK, &mask).sequence);
}

std::optional<std::int32_t> XSettings::number(std::string_view name) const {
    if (owner_ == 0)
        return std::nullopt;
    constexpr std::uint32_t kMost = 1U << 16; // words; desktops have a few hundred
    const auto asked =
        xcb_get_property(server(), 0, owner_, settingsAtom_, XCB_GET_PROPERTY_TYPE_ANY, 0, kMost);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(server(), asked, nullptr),
                                                   &std::free);
    if (!reply || reply->format != 8)
        return std::nullopt;
    return numberInXSettings({static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get())),
                              static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))},
                             name);
}

void XSettings::hear(const xcb_generic_event_t& event, std::uint8_t type) {
    bool mayHaveChanged = false;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        mayHaveChanged = owner_ != 0 && change.window == owner_ && change.atom == settingsAtom_;
    } else if (type == XCB_CLIENT_MESSAGE) {
        const auto& told = reinterpret_cast<const xcb_client_message_event_t&>(event);
        mayHaveChanged =
            told.window == root_ && told.type == managerAtom_ && told.data.data32[1] == ownerAtom_;
    } else if (type == XCB_DESTROY_NOTIFY) {
        mayHaveChanged =
            owner_ != 0 && reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == owner_;
    }
    if (!mayHaveChanged)
        return;
    follow();
    if (changed)
        changed();
}

} // namespace brovin::desktop
