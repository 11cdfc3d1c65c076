#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "persistence/json_item.h"
#include "persistence/json_string_buffer.h"
#include "platform/text/number_format.h"

namespace dunvey {

class Collection;

/// Writes JSON in the way that one item's options say.
class JSONWriter {
 public:
    /// The item with the options; it lives longer than the writer.
    explicit JSONWriter(const JSONItem& options);

    /// The item as JSON text. Raises JSONException 11 and 14; then there is no text.
    std::string Serialize(const JSONItem& item);

 private:
    class Entries;

    void serialise(const Variant& value, int64_t level, JSONStringBuffer& buffer);
    void serialise(const Object& object, int64_t level, JSONStringBuffer& buffer);
    void serialise(const Collection& collection, int64_t level, JSONStringBuffer& buffer);
    void serialise(const Dictionary& dictionary, int64_t level, JSONStringBuffer& buffer);
    void serialise(const JSONItem& item, int64_t level, JSONStringBuffer& buffer);
    void AppendNumber(double number);
    void AppendText(const Variant& text);
    void AppendKey(std::string_view key);
    void _escape(std::string_view text);
    void StartLine(int64_t level);
    void indentBuffer(int64_t count);
    void Flush(JSONStringBuffer& buffer);

    const JSONItem& options_;
    std::string_view decimalFormat_;
    NumberFormat numberFormat_;
    int depth_ = 0;
    // Small pieces are gathered here; the buffer gets large ones.
    std::string pending_;
};

}  // namespace dunvey
