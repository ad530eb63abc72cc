#pragma once

#include "platform/program_folder.h"
#include "posix/descriptor.h"

#include <string>

namespace brovin::posix {

/// Hands each line to the system in one piece, so that lines which several programs append stay whole.
class LineFile final : public platform::LineWriter {
public:
    /// `file` is open for writing.
    explicit LineFile(Descriptor file) : file_(std::move(file)) {}

    platform::Status writeLine(std::string_view line) override;

private:
    Descriptor file_;
    std::string buffer_;
};

} // namespace brovin::posix
