#include "platform/values/memory_block.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text/hex_text.h"
#include "platform/text/text.h"
#include "platform/text/white_space.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

TEST(MemoryBlock, ReadsAndWritesWithinItsBounds) {
    MemoryBlock block(uint64_t{4});
    EXPECT_EQ(block.StringValue(0, 4), std::string(4, '\0'));
    block.SetStringValue(1, 3, "abcdef");
    EXPECT_EQ(block.StringValue(0, 4), std::string("\0abc", 4));
    block.SetStringValue(1, 3, "x");
    EXPECT_EQ(block.StringValue(1, 3), std::string("x\0\0", 3));
    block.SetSize(6);
    EXPECT_EQ(block.StringValue(4, 2), std::string(2, '\0'));
    block.SetStringValue(5, 1, "z");
    block.SetStringValue(1, 1, "y");
    EXPECT_EQ(block.StringValue(0, 6), std::string("\0y\0\0\0z", 6));
    EXPECT_EQ(block.StringValue(6, 0), "");
    block.SetSize(2);
    block.SetSize(6);
    EXPECT_EQ(block.StringValue(0, 6), std::string("\0y\0\0\0\0", 6));
    EXPECT_THROW(block.StringValue(5, 2), OutOfBoundsException);
    EXPECT_THROW(block.StringValue(7, 0), OutOfBoundsException);
    EXPECT_THROW(block.StringValue(1, UINT64_MAX), OutOfBoundsException);
    EXPECT_THROW(block.SetStringValue(3, 4, ""), OutOfBoundsException);
}

TEST(HexText, DecodesWhatWasEncodedAndPassesOverTheRest) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(DecodeHex(EncodeHex(all)), all);
    EXPECT_EQ(DecodeHex(EncodeHex(all, true)), all);
    EXPECT_EQ(DecodeHex("4a4B"), "JK");
    EXPECT_EQ(DecodeHex("4x-A4B5"), "JK");
}

TEST(WhiteSpace, TrimLeavesWhatIsInside) {
    EXPECT_EQ(Trim(" \t\r\n\v\fa b\n"), "a b");
    EXPECT_EQ(Trim("a"), "a");
    EXPECT_EQ(Trim(" \n"), "");
    EXPECT_EQ(Trim(""), "");
}

}  // namespace
}  // namespace dunvey
