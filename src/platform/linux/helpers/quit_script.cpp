#include "platform/linux/helpers/quit_script.h"

#include <algorithm>
#include <charconv>

namespace dunvey {
namespace {

constexpr double kMaxDelay = 86'400;
constexpr std::string_view kDigits = "0123456789";

/// The text between the two; nullopt if the line doesn't begin and end with them.
std::optional<std::string_view> Between(std::string_view line, std::string_view before,
                                        std::string_view after) {
    if (line.size() < before.size() + after.size()) return std::nullopt;
    if (!line.starts_with(before) || !line.ends_with(after)) return std::nullopt;
    return line.substr(before.size(), line.size() - before.size() - after.size());
}

bool IsName(std::string_view text) {
    const auto isLetter = [](char byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
    };
    const auto isPart = [&](char byte) { return isLetter(byte) || (byte >= '0' && byte <= '9'); };
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), isPart);
}

std::optional<double> Seconds(std::string_view text) {
    // A digit at the start excludes a sign, "nan" and "inf".
    if (text.empty() || kDigits.find(text.front()) == std::string_view::npos) return std::nullopt;
    double seconds = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, seconds, std::chars_format::fixed);
    if (result.ec != std::errc() || result.ptr != end || seconds > kMaxDelay) return std::nullopt;
    return seconds;
}

std::optional<QuitStep> ReadStep(std::string_view line, std::string_view name) {
    if (Between(line, "quit application ", "") == name) return QuitStep{QuitStep::Kind::Quit, 0};
    const std::optional<std::string_view> text = Between(line, "delay ", "");
    const std::optional<double> seconds = text ? Seconds(*text) : std::nullopt;
    if (!seconds) return std::nullopt;
    return QuitStep{QuitStep::Kind::Delay, *seconds};
}

}  // namespace

std::optional<std::vector<QuitStep>> ReadQuitScript(std::string_view script) {
    constexpr std::string_view kLastLine = "end run";
    const size_t firstEnd = script.find('\n');
    const auto name = Between(script.substr(0, firstEnd), "on run {", "}");
    if (!name || !IsName(*name)) return std::nullopt;
    std::vector<QuitStep> steps;
    for (size_t end = firstEnd; end != std::string_view::npos;) {
        script.remove_prefix(end + 1);
        if (script == kLastLine) return steps;
        end = script.find('\n');
        const std::optional<QuitStep> step = ReadStep(script.substr(0, end), *name);
        if (!step) return std::nullopt;
        steps.push_back(*step);
    }
    return std::nullopt;
}

}  // namespace dunvey
