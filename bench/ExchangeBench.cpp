// What the plug-in spends on one exchange's reply: the query check and the decode into the section's
// record, beside a bare TinyXML parse of the same text. Replies are the simulated recorder's, for a
// model with every peripheral, so their attribute lists are those a recorder sends.
//
// After Google Benchmark's own output, prints one row per section: CPU nanoseconds per bare parse, per
// check and decode, their ratio, and whether the ratio is within the target. Exits non-zero when a row
// is not, or when a reply is refused or does not decode.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <tinyxml.h>

#include "SimulatedRecorder.h"
#include "protocol/ConfigTask.h"
#include "protocol/Envelope.h"

namespace {

// The check and decode may cost at most this many bare parses.
constexpr double kTargetRatio = 2.0;
constexpr char kModel[] = "MR8-Q2";

using Decode = bool (*)(const TiXmlElement& section);

// Decodes into a fresh zeroed record, as the pages do.
template <class Record, bool (*kImport)(const TiXmlElement&, Record&)>
bool DecodeInto(const TiXmlElement& section) {
    Record record{};
    const bool decoded = kImport(section, record);
    benchmark::DoNotOptimize(record);
    return decoded;
}

bool ImportBaseInfo(const TiXmlElement& section, varcfg::BaseInfoRecord& record) {
    return CConfig_Task::Import_stBaseInfo(section, record);
}

struct Section {
    const char* name;
    Decode decode;
};

// Every section CConfig_Task decodes.
const Section kSections[] = {
    {"stVersion", DecodeInto<varcfg::VersionRecord, CConfig_Task::Import_stVersion>},
    {"stNetWorkMode", DecodeInto<varcfg::NetWorkModeRecord, CConfig_Task::Import_stNetWorkMode>},
    {"stBaseInfo", DecodeInto<varcfg::BaseInfoRecord, ImportBaseInfo>},
    {"stPower", DecodeInto<varcfg::PowerRecord, CConfig_Task::Import_stPower>},
    {"stCMS", DecodeInto<varcfg::ServerRecord, CConfig_Task::Import_stCMS>},
};

void BareParse(benchmark::State& state, const std::string& reply) {
    for (auto _ : state) {
        TiXmlDocument document;
        document.Parse(reply.c_str());
        benchmark::DoNotOptimize(document.RootElement());
    }
}

void CheckAndDecode(benchmark::State& state, const std::string& reply, Decode decode) {
    for (auto _ : state) {
        varcfg::QueryReply checked;
        if (checked.Check(reply) != 0 || !decode(*checked.Section())) {
            state.SkipWithError("the reply was refused or did not decode");
            break;
        }
    }
}

// Google Benchmark's console output, keeping each benchmark's CPU time per iteration (the median of the
// repetitions when there are several, else the one run). CPU time, because the machine may be busy with
// other work: on one thread it counts only this work, where wall time also counts the waits.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string& name = run.run_name.function_name;
            if (run.error_occurred) {
                failed_ = true;
            } else if (run.run_type == Run::RT_Aggregate ? run.aggregate_name == "median" : !nanoseconds_.count(name)) {
                nanoseconds_[name] = run.GetAdjustedCPUTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::optional<double> Nanoseconds(const std::string& name) const {
        const auto found = nanoseconds_.find(name);
        return found == nanoseconds_.end() ? std::nullopt : std::optional<double>(found->second);
    }
    bool Failed() const { return failed_; }

private:
    std::map<std::string, double> nanoseconds_;
    bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    varcfg::sim::SimulatedRecorder recorder(kModel);
    std::map<std::string, std::string> replies;
    for (const Section& section : kSections) {
        const std::optional<std::string> reply = recorder.Handle(varcfg::QueryText(section.name));
        if (!reply) {
            std::fprintf(stderr, "the simulated recorder did not answer the query of %s\n", section.name);
            return 1;
        }
        const std::string& text = replies[section.name] = *reply;
        benchmark::RegisterBenchmark((std::string("parse/") + section.name).c_str(), BareParse, text);
        benchmark::RegisterBenchmark((std::string("check_decode/") + section.name).c_str(), CheckAndDecode, text,
                                     section.decode);
    }

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    bool allMet = !reporter.Failed();
    std::printf("\n%-14s %6s %14s %18s %7s  %s\n", "section", "bytes", "ns bare parse", "ns check+decode", "ratio",
                "target");
    for (const Section& section : kSections) {
        const std::optional<double> parse = reporter.Nanoseconds(std::string("parse/") + section.name);
        const std::optional<double> decode = reporter.Nanoseconds(std::string("check_decode/") + section.name);
        if (!parse || !decode) continue;  // left out by --benchmark_filter
        const double ratio = *decode / *parse;
        const bool met = ratio <= kTargetRatio;
        allMet = allMet && met;
        std::printf("%-14s %6zu %14.0f %18.0f %7.2f  %s %.1fx\n", section.name, replies[section.name].size(), *parse,
                    *decode, ratio, met ? "meets" : "OVER", kTargetRatio);
    }
    return allMet ? 0 : 1;
}
