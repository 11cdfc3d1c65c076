#include "platform/pictures/icon_family.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace dunvey {
namespace {

constexpr size_t kHeaderLength = 8;
/// A part of that size is read at once; of a larger one first what tells whether it can be used.
constexpr size_t kReadAtOnce = 64 * 1024;

/// The small pictures stand first; so much of the file is read at once.
constexpr size_t kStartLength = 4096;

uint32_t BigEndian(std::string_view bytes) {
    uint32_t number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<uint8_t>(byte);
    return number;
}

}  // namespace

IconFamily::IconFamily(const std::string& path) {
    int error = 0;
    file_ = OpenRegularFile(path, error);
    if (!file_) return;
    start_ = Read(0, kStartLength);
    ListParts();
}

void IconFamily::ListParts() {
    struct stat status;
    const Part file = PartAt(0);
    if (fstat(file_.Get(), &status) != 0 || status.st_size > kIconFileLimit) return;
    if (file.type != "icns") return;
    const int64_t end = std::min<int64_t>(file.End(), status.st_size);
    for (off_t place = kHeaderLength; parts_.size() < kIconPartCount; place = parts_.back().End()) {
        Part part = PartAt(place);
        if (part.type.empty() || part.End() > end) return;
        parts_.push_back(std::move(part));
    }
}

IconFamily::Part IconFamily::PartAt(off_t place) const {
    const std::string header = Read(place, kHeaderLength);
    if (header.size() != kHeaderLength) return {};
    // It counts the header itself.
    const uint32_t length = BigEndian(std::string_view(header).substr(4));
    if (length < kHeaderLength) return {};
    return {header.substr(0, 4), place + static_cast<off_t>(kHeaderLength), length - kHeaderLength};
}

std::vector<IconFamily::Choice> IconFamily::ChoicesFor(int64_t pixels) const {
    // Among kinds of one size the first is the best.
    static constexpr IconKind kKinds[] = {
        {"ic04", 16, ""},     {"icp4", 16, "s8mk"}, {"is32", 16, "s8mk"}, {"icsb", 18, ""},
        {"sb24", 24, ""},     {"ic05", 32, ""},     {"icp5", 32, "l8mk"}, {"ic11", 32, ""},
        {"il32", 32, "l8mk"}, {"icsB", 36, ""},     {"ih32", 48, "h8mk"}, {"SB24", 48, ""},
        {"icp6", 64, ""},     {"ic12", 64, ""},     {"ic07", 128, ""},    {"it32", 128, "t8mk"},
        {"ic08", 256, ""},    {"ic13", 256, ""},    {"ic09", 512, ""},    {"ic14", 512, ""},
        {"ic10", 1024, ""},
    };
    std::vector<Choice> choices;
    for (const IconKind& kind : kKinds)
        for (const Part& part : parts_)
            if (part.type == kind.type) choices.push_back({&kind, &part});
    std::stable_sort(choices.begin(), choices.end(), [pixels](const Choice& a, const Choice& b) {
        const bool suffices = a.kind->size >= pixels;
        if (suffices != (b.kind->size >= pixels)) return suffices;
        return suffices ? a.kind->size < b.kind->size : a.kind->size > b.kind->size;
    });
    return choices;
}

Ref<Bitmap> IconFamily::Image(int64_t pixels, const PackedIcon::PngDecoder& decodePng) const {
    for (const Choice& choice : ChoicesFor(pixels)) {
        if (choice.part == lastPart_) return last_;
        const Ref<PackedIcon> packed = Packed(choice);
        const Ref<Bitmap> bitmap = packed ? packed->Unpack(decodePng) : nullptr;
        if (!bitmap) continue;
        lastPart_ = choice.part;
        return last_ = bitmap;
    }
    return nullptr;
}

Ref<PackedIcon> IconFamily::Packed(int64_t pixels) const {
    for (const Choice& choice : ChoicesFor(pixels))
        if (Ref<PackedIcon> packed = Packed(choice)) return packed;
    return nullptr;
}

Ref<PackedIcon> IconFamily::Packed(const Choice& choice) const {
    const Part& part = *choice.part;
    const bool isLarge = part.length > kReadAtOnce;
    if (isLarge && PackedIcon::IsUnusable(Read(part, PackedIcon::kLongestMark))) return nullptr;
    std::string bytes = Read(part, part.length);
    if (bytes.empty() || PackedIcon::IsUnusable(bytes)) return nullptr;
    Ref<PackedIcon> packed = New<PackedIcon>(*choice.kind, std::move(bytes));
    if (packed->LacksMask()) packed->SetMask(Mask(*choice.kind));
    return packed;
}

std::string IconFamily::Read(const Part& part, size_t length) const {
    length = std::min(length, part.length);
    if (length > static_cast<size_t>(kIconPartLimit)) return {};
    std::string bytes = Read(part.place, length);
    if (bytes.size() != length) bytes.clear();
    return bytes;
}

std::string IconFamily::Read(off_t place, size_t length) const {
    const auto offset = static_cast<size_t>(place);
    if (offset + length <= start_.size()) return start_.substr(offset, length);
    std::string bytes(length, '\0');
    const ssize_t got = pread(file_.Get(), bytes.data(), length, place);
    bytes.resize(got > 0 ? static_cast<size_t>(got) : 0);
    return bytes;
}

std::string IconFamily::Mask(const IconKind& kind) const {
    for (const Part& part : parts_)
        if (part.type == kind.mask) return Read(part, part.length);
    return {};
}

}  // namespace dunvey
