#include "sharing/wire/Sha256.h"

#include <gtest/gtest.h>

using InkSharing::Sha256;

namespace {

QByteArray hexOf(const QByteArray &bytes)
{
    Sha256 hash;
    hash.add(bytes);
    return hash.result().toHex();
}

} // namespace

// The examples of FIPS 180-4's authors, and the hash of nothing.
TEST(Sha256, hashesAreThoseOfTheStandard)
{
    EXPECT_EQ(hexOf({}), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(hexOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(hexOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(hexOf(QByteArray(1'000'000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, moreMayBeAddedAfterAResult)
{
    Sha256 hash;
    hash.add("a");
    EXPECT_EQ(hash.result().toHex(), "ca978112ca1bbdcafac231b39a23dc4da786eff8147c4e72b9807785afee48bb");
    hash.add("bc", 2);
    EXPECT_EQ(hash.result().toHex(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}
