#include "persistence/json_string_buffer.h"

#include <gtest/gtest.h>

#include "persistence/json_exception.h"

namespace dunvey {
namespace {

TEST(JSONStringBuffer, DoublesAndNothingElse) {
    JSONStringBuffer buffer(uint64_t{4});
    buffer.Append("abcd");
    EXPECT_EQ(buffer.data->Size(), 4u);
    buffer.Append("e");
    EXPECT_EQ(buffer.data->Size(), 8u);
    buffer.Append(std::string(20, 'x'));
    EXPECT_EQ(buffer.data->Size(), 32u);
    EXPECT_EQ(std::string(buffer), "abcde" + std::string(20, 'x'));
}

TEST(JSONStringBuffer, CountsCharactersPieceByPiece) {
    JSONStringBuffer buffer(std::string_view("日本 and plain bytes"));
    EXPECT_EQ(buffer.binaryLength, 22u);
    EXPECT_EQ(buffer.Len(), 18u);
    buffer.Append("\xFF日\xE6");
    EXPECT_EQ(buffer.Len(), 21u);
    buffer.Append("\x97\xA5");
    EXPECT_EQ(buffer.Len(), 23u);
    EXPECT_EQ(buffer.StringValue().Encoding, TextEncoding::None);
}

TEST(JSONStringBuffer, StartsFromNothing) {
    JSONStringBuffer empty(std::string_view(""));
    empty.Append("abc");
    EXPECT_EQ(std::string(empty), "abc");
    JSONStringBuffer fresh;
    EXPECT_EQ(std::string(fresh), "");
    fresh = "abc";
    EXPECT_EQ(fresh.data->Size(), 1024u);
    fresh = "def";
    EXPECT_EQ(std::string(fresh), "abcdef");
}

TEST(JSONException, MessageHasNeitherPositionNorDetailWhereThereIsNone) {
    EXPECT_EQ(JSONException("Text", 3, int64_t{-1}).Message, "Text");
    EXPECT_EQ(JSONException("Text", 3, std::string(" \t\n")).Message, "Text");
}

}  // namespace
}  // namespace dunvey
