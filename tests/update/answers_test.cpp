#include "update/answers.h"

#include <gtest/gtest.h>

namespace brovin::update {
namespace {

TEST(ProgramOffer, hasItsFieldsBehindTheMark) {
    const auto offer = programOffer("<b>Version:2,8,10,https://a.example/b.deb,One|Two,345\r\n");
    ASSERT_TRUE(offer);
    EXPECT_EQ("2.8.10", offer->version.text());
    EXPECT_EQ("https://a.example/b.deb", offer->url);
    EXPECT_EQ("One|Two", offer->changes);
    EXPECT_EQ(345, offer->sizeKb);

    const auto bare = programOffer("Version:2,8,10,https://a.example/b.deb\n");
    ASSERT_TRUE(bare);
    EXPECT_EQ("https://a.example/b.deb", bare->url);
    EXPECT_EQ("", bare->changes);
    EXPECT_EQ(std::nullopt, bare->sizeKb);
}

TEST(ProgramOffer, isNoneInABadAnswer) {
    for (const std::string_view answer :
         {"", "No news", "Version", "Version:", "<html>Version 2.0 of this page was not found</html>",
          "Version:2,8,10", "Version:a,b,c,https://a.example/", "Version:-1,8,10,https://a.example/",
          "Version:1099511627776,0,0,https://a.example/", "Version:2,,10,https://a.example/",
          "Version:2.8.10,https://a.example/,x,9", "Version:0x2,8,10,https://a.example/"})
        EXPECT_FALSE(programOffer(answer)) << answer;
}

TEST(ProgramOffer, losesWhatStandsBehindACommaInTheChanges) {
    const auto offer = programOffer("Version:2,8,10,https://a.example/b,Faster, and nicer,345");
    ASSERT_TRUE(offer);
    EXPECT_EQ("Faster", offer->changes);
    EXPECT_EQ(std::nullopt, offer->sizeKb) << "no number";
}

TEST(ProgramOffer, comparesEachNumberOnItsOwn) {
    const Version running{2, 7, 106};
    for (const Version& newer : {Version{3, 0, 0}, Version{0, 8, 0}, Version{0, 0, 107}, Version{2, 6, 200}})
        EXPECT_TRUE(countsAsNewer(newer, running)) << newer.text();
    for (const Version& old : {Version{2, 7, 106}, Version{2, 6, 106}, Version{0, 0, 0}})
        EXPECT_FALSE(countsAsNewer(old, running)) << old.text();
}

TEST(PackOffer, beginsWithItsAddress) {
    const auto offer = packOffer("http://a.example/default.blp,1.75\r\n");
    ASSERT_TRUE(offer);
    EXPECT_EQ("http://a.example/default.blp", offer->url);
    EXPECT_EQ("1.75", offer->version);
    for (const std::string_view answer : {"", "none", " http://a.example/,1", "https://a.example/,1",
                                          "http://a.example/", "http://a.example/,", "http://a.example/,new",
                                          "http://a.example/,1.5\nand a line that looks like ours"})
        EXPECT_FALSE(packOffer(answer)) << answer;
}

TEST(Statement, hasFourLines) {
    const std::string hash(128, 'a');
    const auto statement = statementOf("2.8.10\n4096\n" + hash + "\nc2ln\n");
    ASSERT_TRUE(statement);
    EXPECT_EQ("2.8.10", statement->version);
    EXPECT_EQ(4096U, statement->size);
    EXPECT_EQ(hash, statement->sha512);
    EXPECT_EQ("c2ln", statement->signature);
    EXPECT_EQ(textToSign("2.8.10", 4096, hash), statement->signedText);
    for (const std::string& text :
         {std::string(), "2.8.10\n4096\n" + hash, "2.8.10\n4096\n" + hash + "\nc2ln\nmore",
          "2.8.10\nmany\n" + hash + "\nc2ln", "2.8.10\n-1\n" + hash + "\nc2ln",
          "2.8.10\n4096\n" + hash + "a\nc2ln", "2.8.10\n4096\n" + std::string(128, 'A') + "\nc2ln",
          std::string("<html>\n<body>\nNot found\n</body>")})
        EXPECT_FALSE(statementOf(text)) << text;
}

} // namespace
} // namespace brovin::update
