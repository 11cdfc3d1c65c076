#include "inspect/report.h"

#include <algorithm>
#include <array>

#include "inspect/texts.h"
#include "persistence/json_item.h"
#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

/// A word of the report: `code` for programs, `text` for people.
struct Word {
    std::string_view code;
    LocalizedText text;
};

/// The columns of a finding; one that doesn't apply is empty.
using Row = std::array<std::string, 8>;
using State = InDesign::HeaderReading::State;

constexpr Word kNothing{"", {"", ""}};
constexpr Word kRefusals[] = {kNothing,
                              {"missing", InspectText::kMissing},
                              {"folder", InspectText::kFolder},
                              {"not-regular", InspectText::kNotRegular},
                              {"other-kind", InspectText::kOtherKind}};
constexpr Word kStates[] = {kNothing,
                            {"unreadable", InspectText::kUnreadable},
                            {"no-marker", InspectText::kNoMarker},
                            {"no-match", InspectText::kNoMatch}};
constexpr Word kRunning[] = {{"none", InspectText::kNone},
                             {"others", InspectText::kOthers},
                             {"own", InspectText::kOwn},
                             {"own-and-others", InspectText::kOwnAndOthers}};
constexpr Word kDecisions[] = {{"open", InspectText::kOpen},
                               {"ask-another-runs", InspectText::kAnotherRuns},
                               {"ask-not-installed", InspectText::kNotInstalled}};

bool HasVersion(const Finding& finding) {
    return finding.answer != nullptr && finding.header.state == State::kFound;
}

Word ReasonOf(const Finding& finding) {
    if (finding.answer == nullptr) return kRefusals[static_cast<int>(finding.refusal)];
    return kStates[finding.header.state];
}

Word ByteOrderOf(const InDesign::HeaderReading& header) {
    if (header.state != State::kFound && header.state != State::kNoMatch) return kNothing;
    return header.littleEndian ? Word{"little", InspectText::kLittle}
                               : Word{"big", InspectText::kBig};
}

Row RowOf(const Finding& finding, bool forPeople = false) {
    const auto text = [&](const Word& word) {
        return forPeople && !word.code.empty() ? word.text("") : std::string(word.code);
    };
    const std::vector<int64_t>& version = finding.header.version;
    const bool hasVersion = HasVersion(finding);
    Row row = {finding.path,
               hasVersion ? Str(version[0]) + "." + Str(version[1]) : text(ReasonOf(finding))};
    if (finding.answer == nullptr) return row;
    const VersionAnswer& answer = *finding.answer;
    const OpenDecision& decision = answer.decision;
    row[2] = text(ByteOrderOf(finding.header));
    row[3] = hasVersion ? answer.product : std::string();
    row[4] = answer.application;
    row[5] = answer.applicationVersion;
    row[6] = text(kRunning[(decision.IsBootingApp ? 2 : 0) + (decision.IsBootingOtherApp ? 1 : 0)]);
    row[7] = text(kDecisions[static_cast<int>(decision.question)]);
    return row;
}

/// The columns that a text takes on a terminal: two for each character from U+3000 on.
size_t WidthOf(const std::string& text) {
    size_t width = 0;
    for (const char byte : text) {
        if (BeginsCharacter(byte)) width += static_cast<unsigned char>(byte) >= 0xE3 ? 2 : 1;
    }
    return width;
}

std::string Table(const std::vector<Finding>& findings) {
    using namespace InspectText;
    std::vector<Row> rows = {{kFile(""), kVersion(""), kByteOrder(""), kProduct(""),
                              kApplication(""), kApplicationVersion(""), InspectText::kRunning(""),
                              kDecision("")}};
    for (const Finding& finding : findings)
        rows.push_back(RowOf(finding, true));
    std::array<size_t, 8> widths{};
    for (Row& row : rows) {
        for (size_t i = 0; i < row.size(); ++i) {
            row[i] = Printable(row[i]);
            widths[i] = std::max(widths[i], WidthOf(row[i]));
        }
    }
    std::string text;
    for (const Row& row : rows) {
        std::string line;
        for (size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - WidthOf(row[i]) + 2, ' ');
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

/// The text in valid UTF-8: other bytes become U+FFFD.
std::string ValidText(const std::string& text) {
    using namespace Encodings;
    return ConvertEncoding(ConvertEncoding({text, UTF8}, UTF16), UTF8).Bytes;
}

std::string JsonText(const std::vector<Finding>& findings) {
    constexpr const char* kKeys[] = {"file",    "version",     "byteOrder",
                                     "product", "application", "applicationVersion",
                                     "running", "decision"};
    if (findings.empty()) return "[]\n";
    JSONItem array;
    array.EscapeSlashes = false;
    for (const Finding& finding : findings) {
        const auto object = New<JSONItem>();
        const Row row = RowOf(finding);
        for (size_t i = 0; i < row.size(); ++i)
            object->SetValue(kKeys[i], row[i].empty() ? Variant() : Variant(ValidText(row[i])));
        object->SetValue("reason", HasVersion(finding) ? Variant() : Variant(row[1]));
        if (!HasVersion(finding)) object->SetValue("version", Variant());
        array.Append(object);
    }
    return array.ToString() + "\n";
}

}  // namespace

std::string Report(const std::vector<Finding>& findings, ReportFormat format) {
    if (format == ReportFormat::kTable) return Table(findings);
    if (format == ReportFormat::kJson) return JsonText(findings);
    std::string text;
    for (const Finding& finding : findings) {
        const Row row = RowOf(finding);
        if (format == ReportFormat::kVersions) {
            text += (HasVersion(finding) ? row[1] : "-") + "\n";
            continue;
        }
        for (const std::string& column : row)
            text += Printable(column) + (&column == &row.back() ? "\n" : "\t");
    }
    return text;
}

}  // namespace dunvey
