#include "net/private_file.h"

#include "net/start_program.h"
#include "platform/reasons.h"
#include "posix/system_call.h"
#include "posix/write_all.h"

#include <sodium.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <string_view>

namespace brovin::net {
namespace {

using platform::Done;
namespace reason = platform::reason;
using platform::Failure;
using platform::Status;
using posix::Descriptor;
using posix::lastFailure;
using posix::uninterrupted;

constexpr std::size_t kPiece = std::size_t{64} * 1024;

/// What an installer is, told by how it begins.
enum class Kind { Unknown, Package, Executable };

Kind kindOf(int file) {
    using std::string_view_literals::operator""sv;
    std::array<char, 64> bytes{};
    const ssize_t read = uninterrupted([&] { return ::pread(file, bytes.data(), bytes.size(), 0); });
    const std::string_view head(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(read, 0)));
    if (head.starts_with("!<arch>\ndebian-binary"sv))
        return Kind::Package;
    if (head.starts_with("\x7f"
                         "ELF"sv)) // also an AppImage, which is one with more behind it
        return Kind::Executable;
    return Kind::Unknown;
}

std::string hexOf(const unsigned char (&hash)[crypto_hash_sha512_BYTES]) {
    std::array<char, 2 * crypto_hash_sha512_BYTES + 1> hex{};
    return sodium_bin2hex(hex.data(), hex.size(), hash, sizeof hash);
}

} // namespace

Status PrivateFile::append(std::string_view bytes) {
    heldBack_.append(bytes);
    return heldBack_.size() < kPiece ? Status(Done{}) : writeOut();
}

Status PrivateFile::writeOut() {
    Status written = posix::writeAll(file_.number(), heldBack_);
    heldBack_.clear();
    return written;
}

Status PrivateFile::close() {
    if (Status written = writeOut(); !written)
        return written;
    // Nobody can run a file that somebody could still write to.
    const std::string opened = "/proc/self/fd/" + std::to_string(file_.number());
    Descriptor readable(uninterrupted([&] { return ::open(opened.c_str(), O_RDONLY | O_CLOEXEC); }));
    if (!readable)
        return lastFailure();
    file_ = std::move(readable);
    return Done{};
}

std::uint64_t PrivateFile::size() const {
    struct stat facts {};
    return ::fstat(file_.number(), &facts) == 0 ? static_cast<std::uint64_t>(facts.st_size) : 0;
}

platform::Result<std::string> PrivateFile::sha512(const std::function<bool()>& goOn) {
    crypto_hash_sha512_state state;
    crypto_hash_sha512_init(&state);
    std::string piece(kPiece, '\0');
    for (off_t at = 0;;) {
        const ssize_t read =
            uninterrupted([&] { return ::pread(file_.number(), piece.data(), piece.size(), at); });
        if (read < 0)
            return lastFailure();
        if (read == 0)
            break;
        at += read;
        crypto_hash_sha512_update(&state, reinterpret_cast<const unsigned char*>(piece.data()),
                                  static_cast<unsigned long long>(read));
        if (!goOn())
            return posix::systemFailure(EINTR);
    }
    unsigned char hash[crypto_hash_sha512_BYTES];
    crypto_hash_sha512_final(&state, hash);
    return hexOf(hash);
}

Status PrivateFile::alsoNamed(std::string_view ending) {
    const std::string name = names_.front() + std::string(ending);
    const std::string opened = "/proc/self/fd/" + std::to_string(file_.number());
    ::unlinkat(folder_.number(), name.c_str(), 0);
    // A second name for the open file itself, whatever its first name stands for by this time.
    if (::linkat(AT_FDCWD, opened.c_str(), folder_.number(), name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return lastFailure();
    names_.push_back(name);
    return Done{};
}

void PrivateFile::remove() {
    for (const std::string& name : names_)
        ::unlinkat(folder_.number(), name.c_str(), 0);
}

Status PrivateFile::startInstaller() {
    switch (kindOf(file_.number())) {
    case Kind::Package:
        return startPackage();
    case Kind::Executable:
        return startExecutable();
    default:
        return Failure{ENOEXEC, reason::kNoProgram};
    }
}

/// The desktop's installer tells a package by the end of its name too.
Status PrivateFile::startPackage() {
    if (Status named = alsoNamed(".exe.deb"); !named)
        return named;
    return startProgram("xdg-open", {folderPath_ + "/" + names_.back()});
}

Status PrivateFile::startExecutable() {
    if (::fchmod(file_.number(), S_IRWXU) != 0)
        return lastFailure();
    return startDescriptor(file_.number(), name() + ".exe");
}

} // namespace brovin::net
