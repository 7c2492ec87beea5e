// The reference host's command line: what it accepts, and the combinations it refuses instead of
// ignoring.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostOptions.h"

using varcfg::host::ParsedOptions;
using varcfg::host::ParseHostOptions;
using Outcome = ParsedOptions::Outcome;

TEST(HostOptions, DefaultsToTheSimulatedRecorderAndReadsEveryOption) {
    const ParsedOptions none = ParseHostOptions({});
    ASSERT_EQ(none.outcome, Outcome::Run);
    EXPECT_FALSE(none.options.useRecorder);
    EXPECT_EQ(none.options.model, "MR8-O1");
    EXPECT_TRUE(none.options.pluginPath.empty());
    EXPECT_TRUE(none.options.screenshotFolder.empty());

    const ParsedOptions remote =
        ParseHostOptions({L"--recorder", L"127.0.0.1:6000", L"--timeout", L"500", L"--probe", L"--lang", L"de.ini"});
    ASSERT_EQ(remote.outcome, Outcome::Run) << remote.problem;
    EXPECT_TRUE(remote.options.useRecorder);
    EXPECT_EQ(remote.options.recorder.host, "127.0.0.1");
    EXPECT_EQ(remote.options.recorder.port, 6000);
    EXPECT_EQ(remote.options.timeoutMs, 500u);
    EXPECT_TRUE(remote.options.probe);
    EXPECT_EQ(remote.options.languageFile, L"de.ini");

    EXPECT_EQ(ParseHostOptions({L"--model", L"MR4-A1", L"--help"}).outcome, Outcome::Help);
}

// Each refusal names the option, the value at fault and what would be accepted.
TEST(HostOptions, RefusesWhatItCouldOnlyMisread) {
    const struct {
        std::vector<std::wstring> args;
        const char* problem;
    } refused[] = {
        {{L"--recorder", L"127.0.0.1"}, "--recorder 127.0.0.1: not HOST:PORT with a port from 1 to 65535"},
        {{L"--recorder", L"127.0.0.1:0"}, "--recorder 127.0.0.1:0: not HOST:PORT with a port from 1 to 65535"},
        {{L"--recorder", L"127.0.0.1:65536"}, "--recorder 127.0.0.1:65536: not HOST:PORT"},
        {{L"--recorder", L":6000"}, "--recorder :6000: not HOST:PORT"},
        {{L"--timeout", L"0", L"--recorder", L"127.0.0.1:6000"}, "--timeout 0: not milliseconds from 1 to 60000"},
        {{L"--timeout", L"60001", L"--recorder", L"127.0.0.1:6000"}, "--timeout 60001: not milliseconds from 1"},
        {{L"--timeout", L"500"}, "--timeout applies only with --recorder"},
        {{L"--recorder", L"127.0.0.1:6000", L"--model", L"MR4-A1"}, "give them to mdvr-sim instead"},
        {{L"--recorder", L"127.0.0.1:6000", L"--state", L"state.txt"}, "give them to mdvr-sim instead"},
        {{L"--probe", L"--screenshots", L"out"}, "--probe and --screenshots exclude each other"},
        {{L"--lang"}, "--lang needs a value: a file"},
        {{L"--timeout"}, "--timeout needs a value: milliseconds from 1 to 60000"},
        {{L"--screenshot", L"out"}, "--screenshot is not an option"},
    };
    for (const auto& c : refused) {
        const ParsedOptions parsed = ParseHostOptions(c.args);
        EXPECT_EQ(parsed.outcome, Outcome::Invalid) << c.problem;
        EXPECT_NE(parsed.problem.find(c.problem), std::string::npos) << parsed.problem;
    }
}
