#include "headless/log_watch.h"

namespace brovin::headless {
namespace {

using platform::Failure;
using platform::LineWriter;

class WatchedLines final : public LineWriter {
public:
    WatchedLines(std::unique_ptr<LineWriter> beneath, std::function<void(const Failure&)> lost)
        : beneath_(std::move(beneath)), lost_(std::move(lost)) {}

    platform::Status writeLine(std::string_view line) override {
        platform::Status written = beneath_->writeLine(line);
        if (!written)
            lost_(written.failure());
        return written;
    }

private:
    std::unique_ptr<LineWriter> beneath_;
    std::function<void(const Failure&)> lost_;
};

} // namespace

platform::Result<std::unique_ptr<LineWriter>> LogWatch::openText(const std::string& name,
                                                                 platform::OpenMode mode) {
    auto opened = beneath_.openText(name, mode);
    if (!opened) {
        lost(path(name), opened.failure());
        return opened;
    }
    return std::unique_ptr<LineWriter>(std::make_unique<WatchedLines>(
        std::move(*opened), [this, where = path(name)](const Failure& why) { lost(where, why); }));
}

} // namespace brovin::headless
