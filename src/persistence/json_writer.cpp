#include <algorithm>
#include <array>
#include <cmath>

#include "persistence/json_exception.h"
#include "persistence/json_item.h"
#include "platform/text/text.h"
#include "platform/values/collection.h"

namespace dunvey {
namespace {

constexpr int kMaxDepth = 1000;

struct CodeRange {
    uint32_t first;
    uint32_t last;
};

/// The characters that are written as "\u" escapes.
constexpr std::array<CodeRange, 11> kEscaped = {{{0x0000, 0x001F},
                                                 {0x007F, 0x007F},
                                                 {0x00AD, 0x00AD},
                                                 {0x0600, 0x0604},
                                                 {0x070F, 0x070F},
                                                 {0x17B4, 0x17B5},
                                                 {0x200C, 0x200F},
                                                 {0x2028, 0x202F},
                                                 {0x2060, 0x206F},
                                                 {0xFEFF, 0xFEFF},
                                                 {0xFFF0, 0xFFFF}}};

/// The escape of a character that has a short one; empty for others.
constexpr std::string_view ShortEscape(char c) {
    switch (c) {
        case '\\':
            return "\\\\";
        case '"':
            return "\\\"";
        case '\b':
            return "\\b";
        case '\f':
            return "\\f";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        case '/':
            return "\\/";
        default:
            return {};
    }
}

/// Bit i of the escapes that a text may need is for kEscaped[i], the next one for short escapes.
constexpr uint32_t kShort = 1u << kEscaped.size();

/// The first byte of a character in UTF-8.
constexpr uint32_t LeadByte(uint32_t code) {
    if (code < 0x80) return code;
    return code < 0x800 ? 0xC0 | code >> 6 : 0xE0 | code >> 12;
}

/// For each byte, the escapes that characters beginning with it may need.
constexpr std::array<uint32_t, 256> MakeNeeds() {
    std::array<uint32_t, 256> needs = {};
    for (size_t i = 0; i < kEscaped.size(); ++i) {
        for (uint32_t code = kEscaped[i].first; code <= kEscaped[i].last; ++code)
            needs[LeadByte(code)] |= 1u << i;
    }
    for (uint32_t byte = 0; byte < 0x80; ++byte) {
        if (!ShortEscape(static_cast<char>(byte)).empty()) needs[byte] = kShort;
    }
    return needs;
}

uint32_t NeedsOf(char c) {
    static constexpr std::array<uint32_t, 256> kNeeds = MakeNeeds();
    return kNeeds[static_cast<unsigned char>(c)];
}

bool IsUTF8(const Variant& text) {
    return text.Encoding() == TextEncoding::None || text.Encoding() == Encodings::UTF8;
}

[[noreturn]] void RaiseUnrecognized(const std::string& text) {
    throw JSONException("Unrecognized Object", 11, text);
}

}  // namespace

std::string JSONItem::Serialize(const JSONItem* item) const {
    if (item == nullptr) return {};
    JSONStringBuffer buffer(uint64_t{1024});
    serialise(*item, 0, buffer, 0);
    buffer.data->SetSize(buffer.binaryLength);
    return buffer.data->Release();
}

void JSONItem::serialise(const Variant& value, int64_t level, JSONStringBuffer& buffer,
                         int depth) const {
    switch (value.VarType()) {
        case VariantType::Nil:
            return buffer.AppendAscii("null");
        case VariantType::Boolean:
            return buffer.AppendAscii(value.BooleanValue() ? "true" : "false");
        case VariantType::Integer32:
        case VariantType::Integer64:
            return buffer.AppendAscii(Str(value.Int64Value()));
        case VariantType::Single:
        case VariantType::Double: {
            // JSON has no form for NaN and infinities.
            const double number = value.DoubleValue();
            return buffer.Append(std::isfinite(number) ? Str(number, DecimalFormat()) : "null");
        }
        case VariantType::String:
            buffer.AppendAscii("\"");
            _escape(IsUTF8(value) ? value.TextBytes() : value.StringValue(), buffer);
            return buffer.AppendAscii("\"");
        case VariantType::Object:
            return serialise(*value.ObjectAddress(), level, buffer, depth);
        default:
            RaiseUnrecognized(value.IsArray() ? std::string() : value.StringValue());
    }
}

/// Writes a container, from bracket to bracket.
class JSONItem::Entries {
 public:
    Entries(const JSONItem& options, bool isArray, int64_t level, JSONStringBuffer& buffer,
            int depth)
        : options_(options), isArray_(isArray), level_(level), buffer_(buffer), depth_(depth) {
        // A document that contains itself is recognised by its depth.
        if (depth == kMaxDepth)
            throw JSONException("Circular Reference Detected", 14, std::string());
        buffer.AppendAscii(isArray ? "[" : "{");
        const int64_t blanks = std::max<int64_t>(0, level + options.IndentSpacing);
        if (!options.Compact)
            start_.append(EndOfLine::Platform).append(static_cast<size_t>(blanks), ' ');
        if (!isArray && !options._RenderAsJavascript) start_ += '"';
    }

    void Add(std::string_view key, const Variant& value) {
        // The first entry has no comma.
        buffer_.AppendAscii(std::string_view(start_).substr(isEmpty_ ? 1 : 0));
        isEmpty_ = false;
        if (!isArray_) {
            options_._escape(key, buffer_);
            buffer_.AppendAscii(options_._RenderAsJavascript ? ":" : "\":");
        }
        options_.serialise(value, level_ + options_.IndentSpacing, buffer_, depth_ + 1);
    }

    void End() {
        if (!isEmpty_ && !options_.Compact) {
            buffer_.AppendAscii(EndOfLine::Platform);
            indentBuffer(level_, buffer_);
        }
        buffer_.AppendAscii(isArray_ ? "]" : "}");
    }

 private:
    const JSONItem& options_;
    bool isArray_;
    int64_t level_;
    JSONStringBuffer& buffer_;
    int depth_;
    bool isEmpty_ = true;
    /// What precedes each entry: comma, line break, indentation and the quote of a key.
    std::string start_ = ",";
};

void JSONItem::serialise(const Object& object, int64_t level, JSONStringBuffer& buffer,
                         int depth) const {
    const auto* item = dynamic_cast<const JSONItem*>(&object);
    const auto* collection = item != nullptr ? nullptr : dynamic_cast<const Collection*>(&object);
    const auto* dictionary =
        item != nullptr ? &item->_data : dynamic_cast<const Dictionary*>(&object);
    if (collection == nullptr && dictionary == nullptr) RaiseUnrecognized({});
    const bool isArray = item != nullptr ? item->_mIsArray : collection != nullptr;
    Entries entries(*this, isArray, level, buffer, depth);
    if (collection != nullptr) {
        for (const Variant& value : collection->Items())
            entries.Add({}, value);
    } else if (isArray) {
        item->serialiseElements(entries);
    } else {
        for (const Dictionary::Entry& entry : dictionary->Entries())
            entries.Add(entry.Key.IsText() ? entry.Key.TextBytes() : entry.Key.StringValue(),
                        entry.Value);
    }
    entries.End();
}

/// Writes the values in the order of their indexes, not in that of their insertion.
void JSONItem::serialiseElements(Entries& entries) const {
    const auto isBefore = [](const Dictionary::Entry& left, const Dictionary::Entry& right) {
        if (!left.Key.IsInteger()) return false;
        return !right.Key.IsInteger() || left.Key.Int64Value() < right.Key.Int64Value();
    };
    std::vector<Dictionary::Entry> sorted;
    const std::vector<Dictionary::Entry>* elements = &_data.Entries();
    if (!_data.IsList()) {
        sorted = *elements;
        std::stable_sort(sorted.begin(), sorted.end(), isBefore);
        elements = &sorted;
    }
    for (const Dictionary::Entry& entry : *elements)
        entries.Add({}, entry.Value);
}

void JSONItem::_escape(std::string_view text, JSONStringBuffer& buffer) const {
    for (;;) {
        size_t plain = 0;
        uint64_t characters = 0;
        for (; plain < text.size() && NeedsOf(text[plain]) == 0; ++plain)
            characters += BeginsCharacter(text[plain]);
        buffer.AppendCounted(text.substr(0, plain), characters);
        if (plain == text.size()) return;
        text.remove_prefix(plain);
        text.remove_prefix(escapeFirst(text, buffer));
    }
}

/// Writes the first character, which may need an escape, and returns its length in bytes.
size_t JSONItem::escapeFirst(std::string_view text, JSONStringBuffer& buffer) const {
    const uint32_t needs = NeedsOf(text[0]);
    if (needs == kShort) {
        const bool isPlain = text[0] == '/' && !EscapeSlashes;
        buffer.AppendAscii(isPlain ? "/" : ShortEscape(text[0]));
        return 1;
    }
    const std::string_view character =
        text.substr(0, static_cast<size_t>(BytesOfCharacters(text, 1)));
    std::string escaped(character);
    for (size_t i = 0; i < kEscaped.size(); ++i) {
        const auto [first, last] = kEscaped[i];
        if ((needs >> i & 1) != 0 && Chr(first) <= character && character <= Chr(last))
            escaped = _escapeRange(escaped, first, last);
    }
    buffer.Append(escaped);
    return character.size();
}

std::string JSONItem::_escapeRange(std::string text, int64_t first, int64_t last) {
    if (last == -1) last = first;
    for (int64_t code = first; code <= last; ++code) {
        const std::string bytes = {static_cast<char>(code >> 8), static_cast<char>(code)};
        text =
            ReplaceAll(std::move(text), Chr(static_cast<uint32_t>(code)), "\\u" + EncodeHex(bytes));
    }
    return text;
}

void JSONItem::indentBuffer(int64_t count, JSONStringBuffer& buffer) {
    if (count > 0) buffer.AppendAscii(std::string(static_cast<size_t>(count), ' '));
}

}  // namespace dunvey
