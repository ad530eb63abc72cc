#pragma once

#include "fakes/fake_transfer.h"
#include "platform/download_folder.h"
#include "platform/makers_key.h"
#include "ui/frm_download.h"
#include "update/update_check.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brovin::fakes {

/// A key under which "signed:" and the text is the signature, and "hash:" and the text the hash, cut or
/// filled up to its 128 digits.
class FakeKey final : public platform::MakersKey {
public:
    bool carried = false;

    static std::string hashOf(std::string_view text) {
        std::string digits = std::to_string(std::hash<std::string_view>{}(text));
        digits.resize(128, '0');
        return digits;
    }
    [[nodiscard]] bool present() const override { return carried; }
    [[nodiscard]] bool fits(std::string_view text, std::string_view signature) const override {
        return carried && signature == signatureFor(text);
    }
    [[nodiscard]] std::string sha512(std::string_view text) const override { return hashOf(text); }
    [[nodiscard]] static std::string signatureFor(std::string_view text) { return "signed:" + hashOf(text); }
    /// The whole statement about a file of this content.
    [[nodiscard]] static std::string statement(update::Claim claim, std::string_view content) {
        claim.date = "2026-11-21";
        claim.size = content.size();
        claim.sha512 = hashOf(content);
        const std::string text = update::textToSign(claim);
        return text + signatureFor(text) + "\n";
    }
};

/// Temporary files in memory.
class FakeDownloads final : public platform::DownloadFolder {
public:
    std::map<std::string, std::string> files; ///< by name
    std::vector<std::string> started;         ///< the content of each installer that was started
    bool refuses = false;
    std::optional<std::size_t> room; ///< bytes that the disk still takes
    bool startsNothing = false;

    void removeLeftOvers(std::string_view prefix, std::string_view ending) override {
        std::erase_if(files, [&](const auto& file) {
            return file.first.starts_with(prefix) && file.first.ends_with(ending);
        });
    }
    platform::Result<std::unique_ptr<platform::DownloadFile>> create(std::string_view prefix) override {
        if (refuses)
            return platform::Failure{13, "Permission denied"};
        const std::string name = std::string(prefix) + std::to_string(++made_) + ".tmp";
        files[name];
        return std::unique_ptr<platform::DownloadFile>(std::make_unique<File>(*this, name));
    }

private:
    class File final : public platform::DownloadFile {
    public:
        File(FakeDownloads& folder, std::string name) : folder_(folder), name_(std::move(name)) {}
        [[nodiscard]] std::string name() const override { return "/tmp/own/" + name_; }
        platform::Status append(std::string_view bytes) override {
            if (folder_.room && content_.size() + bytes.size() > *folder_.room)
                return platform::Failure{28, "No space left on device"};
            content_ += bytes;
            folder_.files[name_] = content_;
            return platform::Done{};
        }
        platform::Status close() override { return platform::Done{}; }
        [[nodiscard]] std::uint64_t size() const override { return content_.size(); }
        platform::Result<std::string> sha512(const std::function<bool()>& goOn) override {
            return goOn() ? platform::Result<std::string>(FakeKey::hashOf(content_))
                          : platform::Failure{4, "Interrupted"};
        }
        platform::Status alsoNamed(std::string_view ending) override {
            folder_.files[name_ + std::string(ending)] = content_;
            return platform::Done{};
        }
        void remove() override {
            std::erase_if(folder_.files, [this](const auto& file) { return file.first.starts_with(name_); });
        }
        platform::Status startInstaller() override {
            if (folder_.startsNothing)
                return platform::Failure{8, "This is no installer"};
            folder_.started.push_back(content_);
            return platform::Done{};
        }

    private:
        FakeDownloads& folder_;
        std::string name_;
        std::string content_;
    };

    int made_ = 0;
};

/// A user before the download window.
class FakeDownloadHost final : public ui::DownloadWindowHost {
public:
    explicit FakeDownloadHost(FakeTransfer& transfer) : transfer_(transfer) {}

    std::function<void(ui::FrmDownload&)> user; ///< what he does; afterwards he closes the window
    std::vector<std::string> titles;

    void showModal(ui::FrmDownload& form) override {
        titles.push_back(form.window.caption());
        if (user)
            user(form);
        while (form.window.visible())
            form.window.close();
    }
    /// Presses the start button and waits until nothing more comes.
    void download(ui::FrmDownload& form) {
        form.cmdStart.click();
        transfer_.deliver();
    }

private:
    FakeTransfer& transfer_;
};

/// The maker's server, and what it takes to be updated by it, in memory.
struct FakeUpdates {
    FakeTransfer transfer;
    FakeDownloads downloads;
    FakeKey key;
    FakeDownloadHost windows{transfer};
    update::Machine machine{transfer, downloads, key, windows, "https://maker.example"};
};

} // namespace brovin::fakes
