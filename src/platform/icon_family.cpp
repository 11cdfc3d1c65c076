#include "platform/icon_family.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "platform/icon_channels.h"

namespace dunvey {

/// A kind of part that holds a picture: its size in pixels, and for one whose colours may stand
/// without alpha the type of the part that has it.
struct IconFamily::Kind {
    std::string_view type;
    int64_t size;
    std::string_view mask;
};

namespace {

constexpr std::string_view kPngMark = "\x89PNG\r\n\x1A\n";
constexpr std::string_view kArgbMark = "ARGB";
constexpr std::string_view kJpegBoxMark{"\0\0\0\x0CjP  ", 8};
constexpr std::string_view kJpegStreamMark = "\xFF\x4F\xFF\x51";
constexpr size_t kLongestMark = 8;
constexpr int64_t kHeaderLength = 8;

uint32_t BigEndian(const std::array<char, kHeaderLength>& header) {
    uint32_t number = 0;
    for (size_t place = 4; place < 8; ++place)
        number = number << 8 | static_cast<uint8_t>(header[place]);
    return number;
}

/// A header is a type and a length that counts the header itself.
bool ReadHeader(int file, off_t place, std::string& type, int64_t& length) {
    std::array<char, kHeaderLength> header;
    if (pread(file, header.data(), header.size(), place) != kHeaderLength) return false;
    type.assign(header.data(), 4);
    length = BigEndian(header);
    return length >= kHeaderLength;
}

}  // namespace

IconFamily::IconFamily(const std::string& path) {
    int error = 0;
    file_ = OpenRegularFile(path, error);
    if (file_) ListParts();
}

void IconFamily::ListParts() {
    struct stat status;
    std::string type;
    int64_t end = 0;
    if (fstat(file_.Get(), &status) != 0 || status.st_size > kIconFileLimit) return;
    if (!ReadHeader(file_.Get(), 0, type, end) || type != "icns") return;
    end = std::min<int64_t>(end, status.st_size);
    off_t place = kHeaderLength;
    int64_t length = 0;
    while (parts_.size() < kIconPartCount && end - place >= kHeaderLength &&
           ReadHeader(file_.Get(), place, type, length) && length <= end - place) {
        parts_.push_back(
            {type, place + kHeaderLength, static_cast<size_t>(length - kHeaderLength)});
        place += length;
    }
}

std::vector<IconFamily::Choice> IconFamily::ChoicesFor(int64_t pixels) const {
    // Among kinds of one size the first is the best.
    static constexpr Kind kKinds[] = {
        {"ic04", 16, ""},     {"icp4", 16, "s8mk"}, {"is32", 16, "s8mk"}, {"icsb", 18, ""},
        {"sb24", 24, ""},     {"ic05", 32, ""},     {"icp5", 32, "l8mk"}, {"ic11", 32, ""},
        {"il32", 32, "l8mk"}, {"icsB", 36, ""},     {"ih32", 48, "h8mk"}, {"SB24", 48, ""},
        {"icp6", 64, ""},     {"ic12", 64, ""},     {"ic07", 128, ""},    {"it32", 128, "t8mk"},
        {"ic08", 256, ""},    {"ic13", 256, ""},    {"ic09", 512, ""},    {"ic14", 512, ""},
        {"ic10", 1024, ""},
    };
    std::vector<Choice> choices;
    for (const Kind& kind : kKinds)
        for (const Part& part : parts_)
            if (part.type == kind.type) choices.push_back({&kind, &part});
    std::stable_sort(choices.begin(), choices.end(), [pixels](const Choice& a, const Choice& b) {
        const bool suffices = a.kind->size >= pixels;
        if (suffices != (b.kind->size >= pixels)) return suffices;
        return suffices ? a.kind->size < b.kind->size : a.kind->size > b.kind->size;
    });
    return choices;
}

Ref<Bitmap> IconFamily::Image(int64_t pixels, const PngDecoder& decodePng) const {
    for (const Choice& choice : ChoicesFor(pixels)) {
        if (choice.part == lastPart_) return last_;
        if (const Ref<Bitmap> bitmap = Decode(choice, decodePng)) {
            lastPart_ = choice.part;
            return last_ = bitmap;
        }
    }
    return nullptr;
}

std::string IconFamily::Read(const Part& part, size_t length) const {
    length = std::min(length, part.length);
    if (length > static_cast<size_t>(kIconPartLimit)) return {};
    std::string bytes(length, '\0');
    const ssize_t got = pread(file_.Get(), bytes.data(), length, part.place);
    if (got != static_cast<ssize_t>(length)) bytes.clear();
    return bytes;
}

Ref<Bitmap> IconFamily::Decode(const Choice& choice, const PngDecoder& decodePng) const {
    const std::string start = Read(*choice.part, kLongestMark);
    if (start.starts_with(kJpegBoxMark) || start.starts_with(kJpegStreamMark)) return nullptr;
    const std::string bytes = Read(*choice.part, choice.part->length);
    if (bytes.starts_with(kPngMark)) return decodePng(bytes);
    return DecodeChannels(*choice.kind, bytes);
}

Ref<Bitmap> IconFamily::DecodeChannels(const Kind& kind, std::string_view bytes) const {
    const auto count = static_cast<size_t>(kind.size * kind.size);
    if (bytes.starts_with(kArgbMark)) {
        const auto channels = UnpackRuns(bytes.substr(kArgbMark.size()), 4 * count);
        if (channels.empty()) return nullptr;
        const auto colors = channels.begin() + static_cast<std::ptrdiff_t>(count);
        return BitmapOfChannels({colors, channels.end()}, {channels.begin(), colors}, kind.size);
    }
    if (kind.mask.empty()) return nullptr;
    // The largest kind has four bytes of nothing ahead of its channels.
    if (kind.type == "it32") bytes.remove_prefix(std::min<size_t>(4, bytes.size()));
    const auto colors = bytes.size() == 3 * count ? std::vector<uint8_t>(bytes.begin(), bytes.end())
                                                  : UnpackRuns(bytes, 3 * count);
    return BitmapOfChannels(colors, Mask(kind), kind.size);
}

std::vector<uint8_t> IconFamily::Mask(const Kind& kind) const {
    for (const Part& part : parts_) {
        if (part.type != kind.mask) continue;
        const std::string bytes = Read(part, part.length);
        return {bytes.begin(), bytes.end()};
    }
    return {};
}

}  // namespace dunvey
