#pragma once

namespace brovin::platform {

/// Tells whether this copy is the first one that this user runs on this desktop.
class SingleInstance {
public:
    virtual ~SingleInstance() = default;

    /// True: no other copy runs, and from here on this one counts as running.
    [[nodiscard]] virtual bool isFirst() = 0;

    /// Has the copy that runs bring its window up. False: it does not answer.
    [[nodiscard]] virtual bool showFirst() = 0;
};

} // namespace brovin::platform
