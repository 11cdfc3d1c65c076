#include "version/header_version.h"

#include <array>
#include <string_view>

#include "platform/files/streams.h"
#include "platform/text/reg_ex_xojo.h"
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

std::string HeaderHex(const Ref<FolderItem>& item) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(item, false);
        const std::string block = stream->Read(kHeaderBytes);
        stream->Close();
        return Lowercase(EncodeHex(block));
    } catch (const IOException&) {
        return {};
    }
}

/// The two captured pairs of digits with a dot between them; empty if there is no version.
std::string CutVersion(const std::string& hex, const DocumentKind& kind) {
    for (const HeaderForm& form : {kind.littleEndian, kind.bigEndian}) {
        if (InStr(0, hex, form.probe) == 0) continue;
        const std::string cut =
            RegExXojo::Replace(hex, std::string(form.expression), "\\1.\\2", 0, true);
        // Without a match the text comes back unchanged. Its first and last byte are no version.
        return cut == hex ? std::string() : cut;
    }
    return {};
}

int64_t HexadecimalByte(const std::string& digits) {
    return Truncate(Val("&h" + digits));
}

}  // namespace

std::vector<int64_t> GetVerHexToDec(const Ref<FolderItem>& item, const std::string& extension) {
    std::vector<int64_t> version = {0, 0};
    const std::string hex = HeaderHex(item);
    if (hex.empty()) return version;
    const std::string lowered = Lowercase(extension);
    for (const DocumentKind& kind : kKinds) {
        if (kind.extension != lowered) continue;
        const std::string cut = CutVersion(hex, kind);
        if (cut.empty()) break;
        version[0] = HexadecimalByte(LeftB(cut, 2));
        version[1] = HexadecimalByte(RightB(cut, 2));
        break;
    }
    return version;
}

}  // namespace dunvey::InDesign
