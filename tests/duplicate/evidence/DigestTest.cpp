#include "duplicate/evidence/Digest.h"

#include <gtest/gtest.h>
#include <map>

namespace orvana
{

namespace
{

std::string digestOf(DigestFormat format, std::string_view text)
{
    Digest digest(format);
    digest.add(text);
    return digest.text();
}

// Made with md5sum, sha1sum, sha256sum, xxhsum and the reference program for ASC MHL.
const std::map<DigestFormat, std::string> OfAbcde{
    {DigestFormat::Xxh128, "3043c78169f25c3f97d5a48ef320eec2"},
    {DigestFormat::Xxh64, "07e3670c0c8dc7eb"},
    {DigestFormat::Xxh3, "55c65158ee9e652d"},
    {DigestFormat::Md5, "ab56b4d92b40713acc5af89985d4b786"},
    {DigestFormat::Sha1, "03de6c570bfe24bfc328ccd7ca46b76eadaf4334"},
    {DigestFormat::C4,
     "c43iBCuwmnzwKtHgzDrw59KY9ZDyBQQfa1nyUWfz8pMNJEfStXiRqG9HLqjGVwj21arJsmTvCdfYR4nUJxcnCPQgsz"},
    {DigestFormat::Sha256, "36bbe50ed96841d10443bcb670d6554f0a34b761be67ec9c4a8ad2c0c44ca42c"},
};

TEST(Digest, OfAShortTextIsTheKnownOne)
{
    for (const auto format : AllDigestFormats)
        EXPECT_EQ(digestOf(format, "abcde"), OfAbcde.at(format)) << nameOf(format);
}

TEST(Digest, OfNothingIsTheKnownOne)
{
    EXPECT_EQ(digestOf(DigestFormat::Xxh128, ""), "99aa06d3014798d86001c324468d497f");
    EXPECT_EQ(digestOf(DigestFormat::Xxh64, ""), "ef46db3751d8e999");
    EXPECT_EQ(digestOf(DigestFormat::C4, ""),
              "c459dsjfscH38cYeXXYogktxf4Cd9ibshE3BHUo6a58hBXmRQdZrAkZzsWcbWtDg5oQstpDuni4Hirj75GEmTc1sFT");
    EXPECT_EQ(Digest(DigestFormat::Md5).text(), "d41d8cd98f00b204e9800998ecf8427e") << "without any block";
}

TEST(Digest, BlocksMayHaveAnySize)
{
    std::string text(300'000, '\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char>(i * 31 % 251);
    for (const auto format : AllDigestFormats) {
        Digest digest(format);
        std::size_t at = 0;
        for (std::size_t size = 0; at < text.size(); size = size * 3 + 1) {
            const auto block = std::string_view(text).substr(at, size);
            digest.add(block);
            at += block.size();
        }
        EXPECT_EQ(digest.text(), digestOf(format, text)) << nameOf(format);
    }
}

TEST(Digest, IsToldByItsText)
{
    for (const auto format : AllDigestFormats) {
        auto text = OfAbcde.at(format);
        EXPECT_EQ(text.size(), lengthOf(format));
        EXPECT_TRUE(isDigest(format, text));
        EXPECT_FALSE(isDigest(format, text + "0"));
        EXPECT_FALSE(isDigest(format, ""));
        text.back() = 'l'; // no digit of base 58 either
        EXPECT_FALSE(isDigest(format, text)) << nameOf(format);
    }
    EXPECT_TRUE(isDigest(DigestFormat::Xxh64, "07E3670C0C8DC7EB"));
    EXPECT_FALSE(isDigest(DigestFormat::C4, std::string(90, '1')));
}

TEST(Digest, NamesGoBothWays)
{
    for (const auto format : AllDigestFormats)
        EXPECT_EQ(digestFormatNamed(nameOf(format)), format);
    EXPECT_EQ(digestFormatNamed("MD5"), std::nullopt);
    EXPECT_EQ(digestFormatNamed(""), std::nullopt);
}

} // namespace

} // namespace orvana
