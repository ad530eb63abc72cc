// SPDX-FileCopyrightText: 2026 The Brovin contributors
// SPDX-License-Identifier: GPL-3.0-or-later
#include "static_answers.h"

#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace brovin::update_server {
namespace {

TEST(StaticAnswers, areForOlderVersionsOnly) {
    constexpr struct {
        const char* version;
        const char* asked;
        bool nothing;
    } kCases[] = {
        {"1.5", "1.5", true},  {"1.5", "1.50", true},  {"1.5", "1.49", false}, {"1.5", "1.6", true},
        {"1.5", "1", false},   {"1.5", "2", true},     {"1.5", "10.1", true},  {"1.5", "0.9", false},
        {"1.5", "01.5", true}, {"1.5", "", false},     {"1.25", "1.3", true},  {"1.25", "1.2", false},
        {"2.0", "2", true},    {"2.0", "1.99", false}, {"2", "2.0", true},     {"19", "9", false},
        {"19", "20", true},    {"19", "18.9", false},  {"1.9", "1.89", false}, {"1.9", "1.91", true}};
    for (const auto& [version, asked, nothing] : kCases)
        EXPECT_EQ(nothing, std::regex_search(asked, std::regex("^" + atLeast(version))))
            << version << " on offer, " << asked << " asks";
}

TEST(StaticAnswers, holdAllThatTheServerWouldSay) {
    const posix::ScratchFolder disk;
    disk.addText("offer/program.txt", "version=2.8.0\nfile=setup.deb\nchanges=Faster\n");
    disk.addText("offer/setup.deb", std::string(3000, 's'));
    disk.addText("offer/a.blp", "language=A\nlanguageDesc=a\nlangversion=1.5\n");
    ASSERT_TRUE(publish(disk.path("offer"), "https://m.example", disk.path("out")));
    EXPECT_EQ((std::vector<std::string>{"offer", "offer/a.blp", "offer/program.txt", "offer/setup.deb", "out",
                                        "out/answers", "out/answers/a.blp", "out/answers/none",
                                        "out/answers/program", "out/download", "out/download/files",
                                        "out/download/files/a.blp", "out/download/files/setup.deb",
                                        "out/nginx.conf"}),
              disk.tree());
    const Offers offers(disk.path("offer"));
    const auto said = [&](const std::string& name) {
        std::ifstream file(disk.path("out/answers/" + name));
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    EXPECT_EQ(offers.program("https://m.example"), said("program"));
    EXPECT_EQ(offers.pack("a.blp", "1.4", "https://m.example"), said("a.blp"));
    EXPECT_FALSE(publish(disk.path("offer"), "https://m.example", disk.path("out"))) << "is there already";
}

} // namespace
} // namespace brovin::update_server
