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

TEST(HostOptions, RefusesWhatItCouldOnlyMisread) {
    const std::vector<std::vector<std::wstring>> refused = {
        {L"--recorder", L"127.0.0.1"},         // no port
        {L"--recorder", L"127.0.0.1:0"},       // no such port
        {L"--recorder", L"127.0.0.1:65536"},   // nor this one
        {L"--recorder", L":6000"},             // no host
        {L"--timeout", L"0", L"--recorder", L"127.0.0.1:6000"},
        {L"--timeout", L"60001", L"--recorder", L"127.0.0.1:6000"},
        {L"--timeout", L"500"},                // no recorder to wait for
        {L"--recorder", L"127.0.0.1:6000", L"--model", L"MR4-A1"},  // the model is mdvr-sim's
        {L"--recorder", L"127.0.0.1:6000", L"--state", L"state.txt"},
        {L"--probe", L"--screenshots", L"out"},
        {L"--lang"},                           // no value
        {L"--screenshot", L"out"},             // not an option
    };
    for (const auto& args : refused) {
        const ParsedOptions parsed = ParseHostOptions(args);
        EXPECT_EQ(parsed.outcome, Outcome::Invalid) << args[0] << L" " << (args.size() > 1 ? args[1] : L"");
        EXPECT_FALSE(parsed.problem.empty());
    }
}
