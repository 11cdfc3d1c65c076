// How fast JSONItem reads and writes beside two other libraries, what it takes of memory, and how
// the cost grows. Run it alone on a quiet machine; the last lines sum up.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "persistence/json_item.h"
#include "report.h"

namespace {

bool counting = false;
size_t allocated = 0;

}  // namespace

void* operator new(size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    if (counting) allocated += malloc_usable_size(memory) + sizeof(size_t);
    return memory;
}

void operator delete(void* memory) noexcept {
    if (counting && memory != nullptr) allocated -= malloc_usable_size(memory) + sizeof(size_t);
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
    operator delete(memory);
}

namespace {

using dunvey::JSONItem;

const std::string kPreferences =
    "{\n  \"AllowOpenHigherVersion\":false,\n  \"AllowQuitButtonActiveted\":true,\n"
    "  \"NonReleaseVersion\":1234,\n  \"IconVersion\":\"10.2.0\"\n}";

/// Nested objects and arrays, texts in Latin and Japanese letters, escapes, numbers of all kinds.
std::string Mixed(size_t size) {
    std::mt19937 random(7);
    std::string text = "{\"records\":[";
    for (int i = 0; text.size() < size; ++i) {
        const auto number = std::to_string(random() % 100000);
        if (i > 0) text += ',';
        text += "{\"id\":" + std::to_string(i) + ",\"name\":\"Layout " + number +
                "\",\"path\":\"\\/Users\\/someone\\/Documents\\/" + number +
                ".indd\",\"title\":\"雑誌の表紙と目次" + number +
                "\",\"note\":\"a \\\"quoted\\\" word\\tand \\u00e9\",\"size\":[" +
                std::to_string(random() % 600) + ".5," + std::to_string(random() % 900) +
                ".25],\"ratio\":0." + std::to_string(random()) +
                ",\"open\":" + (random() % 2 == 0 ? "true" : "false") +
                ",\"parent\":null,\"tags\":[\"print\",\"web\",\"draft\"],\"pages\":{\"first\":1,"
                "\"last\":" +
                std::to_string(random() % 300) + "}}";
    }
    return text + "]}";
}

std::string Numbers(size_t size) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> values(-1000, 1000);
    std::string text = "[";
    while (text.size() < size) {
        char number[40];
        std::snprintf(number, sizeof number, "%s%.15g", text.size() > 1 ? "," : "", values(random));
        text += number;
    }
    return text + "]";
}

const std::string& Document(const std::string& name) {
    static const std::map<std::string, std::string> kDocuments = {
        {"preferences", kPreferences}, {"mixed", Mixed(2 << 20)}, {"numbers", Numbers(2 << 20)}};
    return kDocuments.at(name);
}

/// What the three libraries have in common.
struct Dunvey {
    JSONItem item;
    void Parse(const std::string& text) { item.Load(text); }
    std::string Write(bool compact) {
        item.Compact = compact;
        return item.ToString();
    }
};

struct Nlohmann {
    nlohmann::json json;
    void Parse(const std::string& text) { json = nlohmann::json::parse(text); }
    std::string Write(bool compact) const { return json.dump(compact ? -1 : 2); }
};

struct RapidJson {
    rapidjson::Document document;
    void Parse(const std::string& text) {
        document.Parse<rapidjson::kParseFullPrecisionFlag>(text.data(), text.size());
    }
    std::string Write(bool compact) const {
        rapidjson::StringBuffer buffer;
        if (compact) {
            rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
            document.Accept(writer);
        } else {
            rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
            writer.SetIndent(' ', 2);
            document.Accept(writer);
        }
        return {buffer.GetString(), buffer.GetSize()};
    }
};

/// With what it takes to let the document go, for each library.
template <typename Library>
void Parse(benchmark::State& state, const std::string& name) {
    const std::string& text = Document(name);
    for (auto _ : state) {
        Library library;
        library.Parse(text);
        benchmark::DoNotOptimize(library);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

template <typename Library>
void Write(benchmark::State& state, const std::string& name, bool compact) {
    Library library;
    library.Parse(Document(name));
    size_t size = 0;
    for (auto _ : state) {
        const std::string text = library.Write(compact);
        size = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}

template <typename Library>
void Register(const std::string& library) {
    for (const std::string name : {"preferences", "mixed", "numbers"}) {
        const auto add = [&](const std::string& job, auto&& body) {
            benchmark::RegisterBenchmark((job + " " + name + " " + library).c_str(), body)
                ->Repetitions(11)
                ->ReportAggregatesOnly();
        };
        add("parse", [name](benchmark::State& state) { Parse<Library>(state, name); });
        add("compact", [name](benchmark::State& state) { Write<Library>(state, name, true); });
        add("indented", [name](benchmark::State& state) { Write<Library>(state, name, false); });
    }
}

/// One step of an array's life at a size; the cost of the step for each size tells how it grows.
void Append(JSONItem& item, int64_t count) {
    for (int64_t i = 0; i < count; ++i)
        item.Append(i);
}

void GrowAppend(benchmark::State& state) {
    for (auto _ : state) {
        JSONItem item;
        Append(item, state.range(0));
        benchmark::DoNotOptimize(item.Count());
    }
    state.SetComplexityN(state.range(0));
}

void GrowInsertAndRemove(benchmark::State& state, bool atEnd) {
    JSONItem item;
    Append(item, state.range(0));
    const int64_t index = atEnd ? state.range(0) - 1 : 0;
    for (auto _ : state) {
        item.Insert(index, 1);
        item.Remove(index);
    }
    state.SetComplexityN(state.range(0));
}

void GrowParse(benchmark::State& state) {
    const std::string text = Mixed(static_cast<size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(JSONItem(text).Count());
    state.SetComplexityN(state.range(0));
}

void GrowWrite(benchmark::State& state) {
    const JSONItem item(Mixed(static_cast<size_t>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(item.ToString().data());
    state.SetComplexityN(state.range(0));
}

/// Keeps the times of the runs for the sums at the end.
class Summary : public benchmark::ConsoleReporter {
 public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const bool plain = run.aggregate_name.empty();
            if (plain || run.aggregate_name == "median") {
                times_[run.run_name.function_name] = run.GetAdjustedCPUTime();
                const auto rate = run.counters.find("bytes_per_second");
                if (rate != run.counters.end()) rates_[run.run_name.function_name] = rate->second;
            }
            if (plain && run.complexity_n > 0) {
                growth_[run.run_name.function_name].push_back(
                    {std::log(double(run.complexity_n)), std::log(run.GetAdjustedCPUTime())});
            }
        }
    }

    void PrintRatios() const {
        std::puts("\ndocuments in a time      for each of nlohmann's   for each of RapidJSON's");
        for (const auto& [name, time] : times_) {
            const size_t end = name.rfind(" dunvey");
            if (end == std::string::npos) continue;
            const std::string job = name.substr(0, end);
            std::printf("%-24s %23.2f %25.2f\n", job.c_str(), Rate(job + " nlohmann", time),
                        Rate(job + " rapidjson", time));
        }
    }

    /// The lines of the common table, as megabytes in a second.
    void ReportRates() const {
        using namespace dunvey::bench;
        for (const std::string document : {"preferences", "mixed", "numbers"}) {
            ReportRate("parse " + document, "nlohmann", RatioAtLeast(2));
            ReportRate("parse " + document, "rapidjson", RatioAtLeast(0.6));
            ReportRate("indented " + document, "nlohmann", RatioAtLeast(1));
            ReportRate("compact " + document, "nlohmann", RatioAtLeast(1));
        }
    }

    /// The exponent of growth between the smallest and the largest size.
    void PrintGrowth() const {
        std::puts("\noperation                exponent of growth");
        for (const auto& [name, points] : growth_) {
            const auto [x0, y0] = points.front();
            const auto [x1, y1] = points.back();
            std::printf("%-24s %18.2f\n", name.c_str(), (y1 - y0) / (x1 - x0));
        }
    }

 private:
    double Rate(const std::string& name, double ours) const {
        const auto found = times_.find(name);
        return found == times_.end() ? 0 : found->second / ours;
    }

    void ReportRate(const std::string& job, const std::string& peer,
                    const dunvey::bench::Goal& goal) const {
        const auto ours = rates_.find(job + " dunvey");
        const auto theirs = rates_.find(job + " " + peer);
        if (ours == rates_.end() || theirs == rates_.end()) return;
        dunvey::bench::Report(
            {"JSON, " + job, "MB/s", ours->second / 1e6, theirs->second / 1e6, peer, goal});
    }

    std::map<std::string, double> times_;
    std::map<std::string, double> rates_;
    std::map<std::string, std::vector<std::pair<double, double>>> growth_;
};

size_t Values(const nlohmann::json& json) {
    size_t count = 1;
    if (json.is_structured()) {
        for (const auto& value : json)
            count += Values(value);
    }
    return count;
}

void PrintMemory() {
    counting = true;
    std::puts("\nbytes of memory          for each value       for each byte of text");
    for (const std::string name : {"preferences", "mixed", "numbers"}) {
        const std::string& text = Document(name);
        const double values = double(Values(nlohmann::json::parse(text)));
        const auto print = [&](const std::string& library, size_t bytes) {
            std::printf("%-24s %14.1f %27.2f\n", (name + " " + library).c_str(),
                        double(bytes) / values, double(bytes) / double(text.size()));
        };
        size_t before = allocated;
        double ours = 0;
        {
            // Ours keeps the text it was given, so it gets one that counts.
            JSONItem item;
            item.Load(text);
            print("dunvey with its text", allocated - before);
            ours = double(allocated - before);
            print("dunvey", allocated - before - text.size());
        }
        before = allocated;
        {
            const nlohmann::json json = nlohmann::json::parse(text);
            print("nlohmann", allocated - before);
            const double peer = double(allocated - before) / double(text.size());
            const std::string stage = "JSON, memory for each byte of text, " + name;
            // Ours remembers the text that it was read from, as it is asked to; the peer doesn't.
            dunvey::bench::Report({stage, "bytes", ours / double(text.size()) - 1, peer, "nlohmann",
                                   dunvey::bench::RatioAtMost(1)});
            dunvey::bench::Report(
                {stage + ", with the text", "bytes", ours / double(text.size()), peer, "nlohmann"});
        }
        RapidJson rapid;
        rapid.Parse(text);
        print("rapidjson", rapid.document.GetAllocator().Capacity());
    }
}

}  // namespace

int main(int argc, char** argv) {
    // Freed memory is kept: handing it back to the system between two rounds hits one library or
    // the other by the chance of its block sizes, and costs more than what is measured.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    // The libraries take turns, so that a noisy moment hits all alike. The caller's own words come
    // last and win.
    std::vector<char*> words(argv, argv + argc);
    std::string turns = "--benchmark_enable_random_interleaving=true";
    std::string shortRuns = "--benchmark_min_time=0.1";
    words.insert(words.begin() + 1, {turns.data(), shortRuns.data()});
    argc = static_cast<int>(words.size());
    words.push_back(nullptr);
    argv = words.data();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    Register<Dunvey>("dunvey");
    Register<Nlohmann>("nlohmann");
    Register<RapidJson>("rapidjson");
    const auto grow = [](const char* name, auto&& body, int64_t first, int64_t last) {
        benchmark::RegisterBenchmark(name, body)->RangeMultiplier(10)->Range(first, last);
    };
    grow("append all", GrowAppend, 1000, 1000000);
    grow(
        "insert, remove first", [](benchmark::State& state) { GrowInsertAndRemove(state, false); },
        1000, 1000000);
    grow(
        "insert, remove last", [](benchmark::State& state) { GrowInsertAndRemove(state, true); },
        1000, 1000000);
    grow("parse", GrowParse, 10000, 10000000);
    grow("write", GrowWrite, 10000, 10000000);
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);
    summary.PrintRatios();
    summary.PrintGrowth();
    summary.ReportRates();
    PrintMemory();
    return 0;
}
