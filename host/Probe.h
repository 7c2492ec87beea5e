// The probe: the version query sent through the request callback the panel gets, and its reply
// checked as the panel checks it.
#pragma once

#include <string>
#include <string_view>

#include "RecorderLink.h"

namespace varcfg::host {

// Exit statuses of the probe.
inline constexpr int kProbeAnswered = 0;
inline constexpr int kProbeNoAnswer = 1;
inline constexpr int kProbeRefusedAnswer = 3;

struct ProbeReport {
    int status = kProbeNoAnswer;
    // "result N", then "reply TEXT" when there is a reply, "problem REASON" when the probe failed, and
    // "time N ms"; one line each.
    std::string text;
};

ProbeReport Probe(RecorderLink& link);

// The text with its control characters and backslashes written as \xNN and \\, so that a reply cannot
// move the cursor or change the terminal.
std::string Printable(std::string_view text);

}  // namespace varcfg::host
