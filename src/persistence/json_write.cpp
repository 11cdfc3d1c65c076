#include <cmath>

#include "persistence/json_escape.h"
#include "persistence/json_exception.h"
#include "persistence/json_writer.h"
#include "platform/text/text.h"
#include "platform/values/collection.h"

namespace dunvey {
namespace {

constexpr int kDeepest = 1000;
constexpr size_t kPiece = 4096;

[[noreturn]] void RaiseUnrecognized(const std::string& text) {
    throw JSONException("Unrecognized Object", 11, text);
}

}  // namespace

/// The entries of one container, from bracket to bracket. A document that holds itself is
/// recognised by its depth.
class JSONWriter::Entries {
 public:
    Entries(JSONWriter& writer, char bracket, int64_t level) : writer_(writer), level_(level) {
        if (writer.depth_ == kDeepest) {
            throw JSONException("Circular Reference Detected", 14, std::string());
        }
        ++writer.depth_;
        writer.pending_ += bracket;
    }
    ~Entries() { --writer_.depth_; }
    Entries(const Entries&) = delete;
    Entries& operator=(const Entries&) = delete;

    /// The blanks in front of each entry.
    int64_t Level() const { return level_ + writer_.options_.IndentSpacing; }
    /// Goes on to the place of the next entry.
    void Next() {
        if (any_) writer_.pending_ += ',';
        any_ = true;
        writer_.StartLine(Level());
    }
    void End(char bracket) {
        if (any_) writer_.StartLine(level_);
        writer_.pending_ += bracket;
    }

 private:
    JSONWriter& writer_;
    int64_t level_;
    bool any_ = false;
};

JSONWriter::JSONWriter(const JSONItem& options)
    : options_(options), decimalFormat_(options.DecimalFormat), numberFormat_(decimalFormat_) {}

std::string JSONWriter::Serialize(const JSONItem& item) {
    JSONStringBuffer buffer(uint64_t{1024});
    serialise(item, 0, buffer);
    Flush(buffer);
    return buffer.TakeText();
}

void JSONWriter::Flush(JSONStringBuffer& buffer) {
    buffer.Append(pending_);
    pending_.clear();
}

void JSONWriter::serialise(const Variant& value, int64_t level, JSONStringBuffer& buffer) {
    switch (value.VarType()) {
        case VariantType::Nil:
            pending_ += "null";
            break;
        case VariantType::Boolean:
            pending_ += value.BooleanValue() ? "true" : "false";
            break;
        case VariantType::Integer32:
        case VariantType::Integer64:
            pending_ += Str(value.Int64Value());
            break;
        case VariantType::Single:
        case VariantType::Double:
            AppendNumber(value.DoubleValue());
            break;
        case VariantType::String:
            AppendText(value);
            break;
        case VariantType::Object:
            serialise(*value.ObjectAddress(), level, buffer);
            break;
        default:
            RaiseUnrecognized(value.IsArray() ? std::string() : value.StringValue());
    }
    if (pending_.size() >= kPiece) Flush(buffer);
}

void JSONWriter::serialise(const Object& object, int64_t level, JSONStringBuffer& buffer) {
    if (const auto* item = dynamic_cast<const JSONItem*>(&object)) {
        serialise(*item, level, buffer);
    } else if (const auto* dictionary = dynamic_cast<const Dictionary*>(&object)) {
        serialise(*dictionary, level, buffer);
    } else if (const auto* collection = dynamic_cast<const Collection*>(&object)) {
        serialise(*collection, level, buffer);
    } else {
        RaiseUnrecognized({});
    }
}

void JSONWriter::serialise(const Collection& collection, int64_t level, JSONStringBuffer& buffer) {
    Entries entries(*this, '[', level);
    for (const Variant& value : collection.Items()) {
        entries.Next();
        serialise(value, entries.Level(), buffer);
    }
    entries.End(']');
}

void JSONWriter::serialise(const Dictionary& dictionary, int64_t level, JSONStringBuffer& buffer) {
    Entries entries(*this, '{', level);
    for (const OrderedTable::Entry& entry : dictionary.Table().Entries()) {
        entries.Next();
        AppendKey(entry.Key.StringValue());
        serialise(entry.Value, entries.Level(), buffer);
    }
    entries.End('}');
}

void JSONWriter::serialise(const JSONItem& item, int64_t level, JSONStringBuffer& buffer) {
    const bool isArray = item._mIsArray;
    Entries entries(*this, isArray ? '[' : '{', level);
    item._data.ForEach([&](const JSONData::Entry& entry) {
        entries.Next();
        if (!isArray) AppendKey(entry.name.value_or(std::string_view()));
        serialise(entry.value, entries.Level(), buffer);
    });
    entries.End(isArray ? ']' : '}');
}

void JSONWriter::StartLine(int64_t level) {
    if (options_.Compact) return;
    pending_ += EndOfLine::Platform;
    indentBuffer(level);
}

void JSONWriter::indentBuffer(int64_t count) {
    if (count > 0) pending_.append(static_cast<size_t>(count), ' ');
}

/// JSON has no form for what isn't finite: that becomes null.
void JSONWriter::AppendNumber(double number) {
    if (!std::isfinite(number)) {
        pending_ += "null";
    } else if (decimalFormat_.empty()) {
        pending_ += Str(number);
    } else {
        numberFormat_.AppendTo(pending_, number);
    }
}

void JSONWriter::AppendText(const Variant& text) {
    pending_ += '"';
    if (text.Encoding() == TextEncoding::None || text.Encoding() == Encodings::UTF8) {
        _escape(text.TextBytes());
    } else {
        _escape(text.StringValue());
    }
    pending_ += '"';
}

void JSONWriter::AppendKey(std::string_view key) {
    if (!options_._RenderAsJavascript) pending_ += '"';
    _escape(key);
    pending_ += options_._RenderAsJavascript ? ":" : "\":";
}

void JSONWriter::_escape(std::string_view text) {
    AppendEscaped(pending_, text, options_.EscapeSlashes);
}

}  // namespace dunvey
