#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "persistence/json_data.h"
#include "platform/values/dictionary.h"
#include "platform/values/memory_block.h"
#include "platform/values/object.h"
#include "platform/values/reference.h"
#include "platform/values/variant.h"

namespace dunvey {

/// The format of floating-point numbers, almost always the default one: a format of its own takes
/// memory, the default none.
class DecimalFormatText {
 public:
    DecimalFormatText& operator=(std::string_view format) {
        own_ = std::make_unique<std::string>(format);
        return *this;
    }
    operator std::string_view() const { return own_ ? *own_ : kDefault; }

 private:
    static constexpr std::string_view kDefault = "-0.0##############";

    std::unique_ptr<std::string> own_;
};

/// A JSON object or a JSON array in memory. An array's values stand under their index from 0, an
/// object's under their name; two names are the same only if their bytes are. Objects and arrays
/// below are items of their own, shared with whoever else refers to them.
///
/// Raised here: JSONException 12 by operations with an index if the item holds something and is no
/// array, 13 by values under a name if it is an array, both before anything changes.
class JSONItem : public Object {
 protected:
    friend class JSONParser;
    friend class JSONWriter;

    // First, where they fill a gap.
    bool _mIsArray = false;
    bool _RenderAsJavascript = false;  ///< names without quotes

 public:
    JSONItem();
    /// As Load on an empty item.
    explicit JSONItem(std::string text);
    /// The pairs of a dictionary, their keys as text.
    explicit JSONItem(const Dictionary& source);

    // How the item is written; items below it are written the same way.
    bool Compact = true;              ///< without line ends and indentation
    bool EscapeSlashes = true;        ///< "/" as "\/"
    int64_t IndentSpacing = 2;        ///< blanks for each level of nesting
    DecimalFormatText DecimalFormat;  ///< see NumberFormat; empty for the plain conversion

    /// The document as JSON text. Raises JSONException 11 for a value that JSON has no form for and
    /// 14 for a document that holds itself or is nested deeper than 1,000 levels.
    std::string ToString() const { return Serialize(this); }
    /// Another item written in this item's way; the empty text for nullptr. Raises as ToString.
    std::string Serialize(const JSONItem* item) const;

    /// Puts the value behind the last and makes the item an array.
    virtual void Append(Variant value);
    /// The item under the index. Raises OutOfBoundsException if there is no value,
    /// IllegalCastException if it is no item.
    virtual Ref<JSONItem> Child(int64_t index) const;
    virtual void SetChild(int64_t index, const Ref<JSONItem>& child);
    /// The item under the name. Raises KeyNotFoundException if there is no value,
    /// IllegalCastException if it is no item.
    virtual Ref<JSONItem> Child(const std::string& name) const;
    virtual void SetChild(const std::string& name, const Ref<JSONItem>& child);
    /// Removes all values. What was an array stays one.
    virtual void Clear();
    /// The number of values.
    virtual int64_t Count() const;
    virtual bool HasName(const Variant& name) const;
    /// Puts the value at the index and moves those from there on up by one. Raises
    /// KeyNotFoundException, with nothing changed, if one of them is missing.
    virtual void Insert(int64_t index, Variant value);
    /// The value under a key as Key gives it. Raises KeyNotFoundException.
    virtual Variant InternalValue(const Variant& key) const;
    virtual bool IsArray() const;
    /// Takes over the values of a JSON text; blank text changes nothing. Raises JSONException 1 to
    /// 10, the values unchanged. Nesting deeper than 1,000 levels is refused.
    virtual void Load(std::string text);
    /// The value under the name or `defaultValue`; a text is in UTF-8.
    virtual Variant Lookup(const std::string& name, const Variant& defaultValue) const;
    /// The name at a position from 0; empty for a value of an array. Raises OutOfBoundsException.
    virtual std::string Name(int64_t position) const;
    virtual std::vector<std::string> Names() const;
    /// The value under the index as it stands. Raises OutOfBoundsException.
    virtual Variant Subscript(int64_t index) const;
    /// Raises OutOfBoundsException from Count() on.
    virtual void SetSubscript(int64_t index, Variant value);
    /// Removes the value under the index and moves those behind it down by one; an index behind the
    /// last removes the last. Raises KeyNotFoundException on an empty item.
    virtual void Remove(int64_t index);
    /// Raises KeyNotFoundException.
    virtual void Remove(const std::string& name);
    /// The value under the index; a text is in UTF-8. Raises KeyNotFoundException.
    virtual Variant Value(int64_t index) const;
    /// Takes any index; Count() then tells the number of values, not the last index.
    virtual void SetValue(int64_t index, Variant value);
    /// The value under the name; a text is in UTF-8. Raises KeyNotFoundException.
    virtual Variant Value(const std::string& name) const;
    /// An array of Booleans, numbers, texts or objects becomes an item; of anything else it raises
    /// TypeMismatchException.
    virtual void SetValue(const std::string& name, Variant value);

    /// The key of the value at a position from 0: the index in an array, else the hexadecimal text
    /// of the name's bytes. Raises OutOfBoundsException.
    Variant Key(int64_t position) const;

    /// What `item[index]` gives: read or assigned through Subscript and SetSubscript.
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
    Variant operator[](int64_t index) const { return Subscript(index); }

 protected:
    JSONData _data;
    Ref<MemoryBlock> _ParseBuffer;  ///< the text parsed last

 private:
    static std::string KeyEncode(std::string_view name);
    static std::string KeyDecode(std::string_view key);

    Ref<JSONItem> Parse(std::string text);
    const Variant* FindInternal(const Variant& key) const;
    void CheckArray(const char* message) const;
    void CheckObject() const;
};

}  // namespace dunvey
