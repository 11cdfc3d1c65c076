#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "persistence/json_string_buffer.h"
#include "platform/values/dictionary.h"
#include "platform/values/memory_block.h"
#include "platform/values/reference.h"
#include "platform/values/variant.h"

namespace dunvey {

/// A JSON object or a JSON array in memory. An array's values are stored under their index from 0,
/// an object's under their name; two names are the same only if their bytes are. Objects and arrays
/// inside it are items of their own, shared with other owners of a reference. An item that contains
/// itself is never freed.
///
/// Operations with an index raise JSONException 12 if the item holds something and is no array,
/// values under a name raise 13 if it is an array, both before anything changes.
class JSONItem : public Object {
 public:
    // How the item is written; items inside it are written the same way.
    bool Compact = true;  ///< without line ends and indentation
    /// See Str; empty for the plain conversion.
    std::string_view DecimalFormat() const {
        return decimalFormat_ ? std::string_view(*decimalFormat_) : "-0.0##############";
    }
    void SetDecimalFormat(std::string format) {
        decimalFormat_ = std::make_unique<std::string>(std::move(format));
    }
    bool EscapeSlashes = true;  ///< "/" as "\/"
    int64_t IndentSpacing = 2;  ///< blanks per nesting level

    /// The document as JSON text. Raises JSONException 11 for a value that JSON has no form for and
    /// 14 for a document that contains itself or is nested deeper than 1,000 levels.
    std::string ToString() const { return Serialize(this); }
    /// Another item, written with the options of this one; empty for nullptr. Raises as ToString.
    std::string Serialize(const JSONItem* item) const;

    /// Adds the value at the index Count() and makes the item an array.
    virtual void Append(Variant value);
    /// The item under the index. Raises OutOfBoundsException if there is no value,
    /// IllegalCastException if it is no item.
    virtual Ref<JSONItem> Child(int64_t index) const;
    virtual void SetChild(int64_t index, const Ref<JSONItem>& child);
    /// The item under the name. Raises KeyNotFoundException if there is no value,
    /// IllegalCastException if it is no item.
    virtual Ref<JSONItem> Child(const std::string& name) const;
    virtual void SetChild(const std::string& name, const Ref<JSONItem>& child);
    /// Removes all values. An array stays an array.
    virtual void Clear();
    JSONItem() = default;
    /// As Load on an empty item.
    explicit JSONItem(std::string text);
    /// The number of values.
    virtual int64_t Count() const;
    virtual bool HasName(const Variant& name) const;
    /// Puts the value at the index after moving the values from there to Count()-1 up by one.
    /// Raises KeyNotFoundException, with nothing changed, if one of them is missing.
    virtual void Insert(int64_t index, Variant value);
    /// The value under a key as Key gives it. Raises KeyNotFoundException.
    virtual Variant InternalValue(const Variant& key) const;
    virtual bool IsArray() const;
    /// Replaces the values by those of a JSON text; a blank text changes nothing. Raises
    /// JSONException 1 to 10 and keeps the values; 2 also for nesting deeper than 1,000 levels.
    virtual void Load(std::string text);
    /// The value under the name or `defaultValue`; a text is in UTF-8.
    virtual Variant Lookup(const std::string& name, const Variant& defaultValue) const;
    /// The name at a position from 0; empty for a value of an array. Raises OutOfBoundsException.
    virtual std::string Name(int64_t position) const;
    virtual std::vector<std::string> Names() const;
    /// The pairs of a dictionary, the keys converted to text.
    explicit JSONItem(const Dictionary& source);
    /// The value under the index as it is stored. Raises OutOfBoundsException.
    virtual Variant Subscript(int64_t index) const;
    /// Raises OutOfBoundsException for an index of Count() or more.
    virtual void SetSubscript(int64_t index, Variant value);
    /// Removes the value under the index and moves those after it down by one; an index past the
    /// last one removes the last. Raises KeyNotFoundException, with nothing changed, if a value
    /// that has to be moved or removed is missing.
    virtual void Remove(int64_t index);
    /// Raises KeyNotFoundException.
    virtual void Remove(const std::string& name);
    /// The value under the index; a text is in UTF-8. Raises KeyNotFoundException.
    virtual Variant Value(int64_t index) const;
    /// Takes any index: an array may have gaps.
    virtual void SetValue(int64_t index, Variant value);
    /// The value under the name; a text is in UTF-8. Raises KeyNotFoundException.
    virtual Variant Value(const std::string& name) const;
    /// An array of Booleans, numbers, texts or objects becomes an item; of other values it raises
    /// TypeMismatchException.
    virtual void SetValue(const std::string& name, Variant value);

    /// The key at a position from 0, in the order in which the keys were added: an index, or the
    /// hexadecimal text of a name's bytes. Raises OutOfBoundsException.
    Variant Key(int64_t position) const;

    /// The result of `item[index]`, read or assigned through Subscript and SetSubscript.
    class Element {
     public:
        Element(JSONItem& item, int64_t index) : item_(item), index_(index) {}
        operator Variant() const { return item_.Subscript(index_); }
        Element& operator=(Variant value) {
            item_.SetSubscript(index_, std::move(value));
            return *this;
        }

     private:
        JSONItem& item_;
        int64_t index_;
    };
    Element operator[](int64_t index) { return {*this, index}; }

 protected:
    Dictionary _data;  ///< names as they are; Key gives the hexadecimal form
    bool _mIsArray = false;
    Ref<MemoryBlock> _ParseBuffer;     ///< the text parsed last
    bool _RenderAsJavascript = false;  ///< names without quotes; only derived classes set it

    // The parser, in json_parser.cpp. It reads from _ParseBuffer; a position is a byte offset,
    // advanced past what was read. `depth` counts the open objects and arrays.
    Ref<JSONItem> Parse(std::string text);
    /// The next `count` bytes, fewer at the end of the text.
    std::string_view ParseGet(int64_t& position, int64_t count) const;
    /// The same without moving the position.
    std::string_view ParsePeek(int64_t position, int64_t count) const;
    void skipWhiteSpace(int64_t& position) const;
    Variant parseValue(int64_t& position, int depth) const;
    Ref<JSONItem> parseObject(int64_t& position, int depth) const;
    Ref<JSONItem> parseArray(int64_t& position, int depth) const;
    /// The result has no encoding.
    EncodedText parseString(int64_t& position) const;
    /// A Double for a number with a point or an exponent, else an integer, of 32 bits if it fits.
    Variant parseNumber(int64_t& position) const;

    // The writer, in json_writer.cpp. `level` is the indentation of the closing bracket.
    void serialise(const Variant& value, int64_t level, JSONStringBuffer& buffer, int depth) const;
    void _escape(std::string_view text, JSONStringBuffer& buffer) const;
    /// The text with each character from `first` to `last` as a "\u" escape; -1 means `first`.
    static std::string _escapeRange(std::string text, int64_t first, int64_t last);
    static void indentBuffer(int64_t count, JSONStringBuffer& buffer);

 private:
    static std::string KeyEncode(std::string_view name);
    static std::string KeyDecode(std::string_view key);

    void CheckArray(const char* message) const;
    void CheckObject() const;
    /// Raises KeyNotFoundException unless there is a value under each index from `first` to `last`.
    void CheckAllPresent(int64_t first, int64_t last) const;

    char peekByte(int64_t position) const;
    char takeByte(int64_t& position) const;
    std::string parseEscape(int64_t& position) const;
    void parseDigits(int64_t& position) const;
    std::string_view parsePlain(int64_t& position) const;

    class Entries;
    void serialise(const Object& object, int64_t level, JSONStringBuffer& buffer, int depth) const;
    size_t escapeFirst(std::string_view text, JSONStringBuffer& buffer) const;
    void serialiseElements(Entries& entries) const;

    std::unique_ptr<const std::string> decimalFormat_;  // nullptr for the default
};

}  // namespace dunvey
