#include "text/strings.h"
#include "update/answers.h"
#include "update/statement.h"

#include <gtest/gtest.h>

namespace brovin::update {
namespace {

TEST(ProgramOffer, hasItsFieldsBehindTheMark) {
    const auto offer =
        programOffer("<b>A Version of news: Version:2,8,10,https://a.example/b.deb,One|Two,345\r\n");
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

TEST(Statement, saysWhichFileOfWhichProduct) {
    const Claim claim{Kind::Pack, "default.blp", "1.75", "2026-11-21", 4096, std::string(128, 'a')};
    const std::string good = textToSign(claim) + "c2ln\n";
    const auto statement = statementOf(good);
    ASSERT_TRUE(statement);
    EXPECT_EQ(claim, statement->claim);
    EXPECT_EQ("c2ln", statement->signature);
    EXPECT_EQ(textToSign(claim), statement->signedText);
    constexpr std::pair<std::string_view, std::string_view> kSpoilt[] = {
        {"product=Brovin", "product=Broom"},
        {"kind=pack", "kind=theme"},
        {"file=default.blp", "file="},
        {"kind=pack\n", ""},
        {"date=2026-11-21", "date=2026-11-31"},
        {"size=4096", "size=-1"},
        {"size=4096", "size=many"},
        {"sha512=a", "sha512=A"},
        {"sha512=a", "sha512=aa"},
        {"version=1.75", "Version=1.75"},
        {"c2ln", "c2ln\nmore"},
    };
    for (const auto& [what, with] : kSpoilt)
        EXPECT_FALSE(statementOf(text::replaceFirst(good, what, with))) << with;
    EXPECT_FALSE(statementOf(textToSign(claim)));
}

} // namespace
} // namespace brovin::update
