#include "version/header_version.h"

#include <array>
#include <string_view>

#include "platform/files/streams.h"
#include "platform/controls/reg_ex_xojo.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey::InDesign {
namespace {

constexpr int64_t kHeaderBytes = 48;

/// The header of one kind of document in one byte order, as hexadecimal text: a marker to search
/// for, then an expression that captures the two version bytes.
struct HeaderForm {
    std::string_view probe;
    std::string_view expression;
};

struct DocumentKind {
    std::string_view extension;
    HeaderForm littleEndian;
    HeaderForm bigEndian;
};

constexpr HeaderForm kDocumentLittle = {"444f43554d454e5401700f0",
                                        ".+444f43554d454e5401700f0000(..)000000(..).*"};
constexpr HeaderForm kDocumentBig = {"444f43554d454e540200000f7",
                                     ".+444f43554d454e540200000f70000000(..)000000(..).*"};

constexpr std::array<DocumentKind, 4> kKinds = {{
    {"indd", kDocumentLittle, kDocumentBig},
    {"indt", kDocumentLittle, kDocumentBig},
    {"indb",
     {"424f4f4b424f4f4b01700f0", ".+424f4f4b01700f0000(..)000000(..).*"},
     {"424f4f4b424f4f4b0200000f7", ".+424f4f4b424f4f4b0200000f70000000(..)000000(..).*"}},
    {"indl",
     {"4c4942524152593401700f0", ".+4c4942524152593401700f0000(..)000000(..).*"},
     // In this byte order the type word may end in any letter.
     {"4c494252415259", ".+4c494252415259..0200000f70000000(..)000000(..).*"}},
}};

/// The first 48 bytes as hexadecimal text; false if the file can't be read.
bool ReadHex(const Ref<FolderItem>& item, std::string& hex) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(item, false);
        const std::string block = stream->Read(kHeaderBytes);
        stream->Close();
        hex = Lowercase(EncodeHex(block));
        return true;
    } catch (const IOException&) {
        return false;
    }
}

int64_t HexadecimalByte(const std::string& digits) {
    return Truncate(Val("&h" + digits));
}

/// Reads the version with one byte order's form, whose marker is in the text.
void ReadVersion(const std::string& hex, const HeaderForm& form, HeaderReading& reading) {
    const std::string cut =
        RegExXojo::Replace(hex, std::string(form.expression), "\\1.\\2", 0, true);
    // Without a match the text comes back unchanged. Its first and last byte are no version.
    reading.state = cut.empty() || cut == hex ? HeaderReading::kNoMatch : HeaderReading::kFound;
    if (reading.state == HeaderReading::kFound)
        reading.version = {HexadecimalByte(LeftB(cut, 2)), HexadecimalByte(RightB(cut, 2))};
}

}  // namespace

HeaderReading ReadHeader(const Ref<FolderItem>& item, const std::string& extension) {
    HeaderReading reading;
    std::string hex;
    if (!ReadHex(item, hex)) {
        reading.state = HeaderReading::kUnreadable;
        return reading;
    }
    const std::string lowered = Lowercase(extension);
    for (const DocumentKind& kind : kKinds) {
        if (kind.extension != lowered) continue;
        for (const HeaderForm* form : {&kind.littleEndian, &kind.bigEndian}) {
            if (InStr(0, hex, form->probe) == 0) continue;
            reading.littleEndian = form == &kind.littleEndian;
            ReadVersion(hex, *form, reading);
            break;
        }
    }
    return reading;
}

std::vector<int64_t> GetVerHexToDec(const Ref<FolderItem>& item, const std::string& extension) {
    return ReadHeader(item, extension).version;
}

}  // namespace dunvey::InDesign
