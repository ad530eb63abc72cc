// SPDX-FileCopyrightText: 2026 The Brovin contributors
// SPDX-License-Identifier: GPL-3.0-or-later
#include "static_answers.h"

#include "text/strings.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <system_error>

namespace brovin::update_server {
namespace {

namespace fs = std::filesystem;

/// For texts of digits that are greater than `digits` at their first difference, each followed by `rest`.
std::string greater(std::string_view digits, bool sameLength) {
    std::string choices;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (digits[i] == '9')
            continue;
        choices += "|" + std::string(digits.substr(0, i)) + "[" + static_cast<char>(digits[i] + 1) + "-9]";
        if (sameLength)
            choices += "[0-9]{" + std::to_string(digits.size() - i - 1) + "}([^0-9]|$)";
    }
    return choices;
}

bool write(const fs::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text << std::flush;
    return static_cast<bool>(out);
}

constexpr std::string_view kHead =
    R"(# To be included in the block "http" of nginx.conf. Where the folder is moved to, "root" is changed.
map $args $brovin_answer {
    default /answers/none;
    ~^myid=brovin(&|$) /answers/program;
)";
constexpr std::string_view kTail = R"(}
server {
    listen 127.0.0.1:8080;
    root TARGET;
    access_log off; # nobody needs to know who asked
    location = /download/brovinupdate.php {
        default_type "text/plain; charset=utf-8";
        add_header Cache-Control "public, max-age=3600";
        try_files $brovin_answer =404;
    }
    location /download/files/ { default_type application/octet-stream; }
    location / { return 404; }
}
)";

} // namespace

std::string atLeast(std::string_view version) {
    const std::size_t point = std::min(version.find('.'), version.size());
    const std::string_view whole = version.substr(0, point);
    std::string_view fraction = version.substr(std::min(point + 1, version.size()));
    while (fraction.ends_with('0'))
        fraction.remove_suffix(1);
    const std::string longer = "[1-9][0-9]{" + std::to_string(whole.size()) + ",}";
    const std::string same =
        std::string(whole) +
        (fraction.empty() ? "([^0-9]|$)" : "[.](" + std::string(fraction) + greater(fraction, false) + ")");
    return "0*(" + longer + greater(whole, true) + "|" + same + ")";
}

bool publish(const std::string& folder, const std::string& publicUrl, const std::string& target) {
    const Offers offers(folder);
    std::error_code failed;
    const fs::path files = fs::path(target) / "download" / "files";
    const fs::path answers = fs::path(target) / "answers";
    if (publicUrl.empty() || fs::exists(target) || !fs::create_directories(files, failed) ||
        !fs::create_directories(answers, failed))
        return false;
    bool done = write(answers / "none", "none") && write(answers / "program", offers.program(publicUrl));
    std::string questions;
    for (const auto& entry : fs::directory_iterator(folder, failed)) {
        const std::string name = entry.path().filename().string();
        if (!offers.document(name))
            continue;
        done = done && fs::copy_file(entry.path(), files / name, failed);
        const std::string answer = offers.pack(name, "", publicUrl);
        if (answer == "none")
            continue;
        done = done && write(answers / name, answer);
        // In quotes, because a brace ends a word of that file.
        const std::string asked =
            "    \"~^myid=lang&mylang=" + text::replaceAll(name, ".", "[.]") + "&myver=";
        const std::string enough = atLeast(answer.substr(answer.rfind(',') + 1));
        for (const std::string_view piece : std::initializer_list<std::string_view>{
                 asked, enough, "\" /answers/none;\n", asked, "\" /answers/", name, ";\n"})
            questions += piece;
    }
    return done && !failed &&
           write(fs::path(target) / "nginx.conf",
                 std::string(kHead) + questions +
                     text::replaceAll(std::string(kTail), "TARGET", fs::absolute(target).string()));
}

} // namespace brovin::update_server
