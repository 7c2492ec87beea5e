#include "Probe.h"

#include <fcntl.h>
#include <io.h>

#include <chrono>
#include <cstdio>
#include <cstring>

#include "protocol/Envelope.h"

namespace varcfg::host {
namespace {

// The panel's reply check, with the line it prints on a refusal taken from standard output.
int CheckVersionReply(const std::string& reply, std::string& refusal) {
    QueryReply checked;
    std::fflush(stdout);
    int ends[2];
    const int saved = _dup(_fileno(stdout));
    if (saved < 0 || _pipe(ends, 4096, _O_BINARY) != 0) {
        if (saved >= 0) _close(saved);
        return checked.Check(reply);
    }
    _dup2(ends[1], _fileno(stdout));
    const int result = checked.Check(reply);
    std::fflush(stdout);
    _dup2(saved, _fileno(stdout));
    _close(saved);
    _close(ends[1]);
    char printed[4096];
    const int count = _read(ends[0], printed, sizeof printed);
    _close(ends[0]);
    refusal.assign(printed, count > 0 ? static_cast<std::size_t>(count) : 0);
    while (!refusal.empty() && (refusal.back() == '\n' || refusal.back() == '\r')) refusal.pop_back();
    return result;
}

}  // namespace

std::string Printable(std::string_view text) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string printable;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            printable += "\\x";
            printable += kDigits[byte >> 4];
            printable += kDigits[byte & 0x0F];
        } else if (c == '\\') {
            printable += "\\\\";
        } else {
            printable += c;
        }
    }
    return printable;
}

ProbeReport Probe(RecorderLink& link) {
    MDVR_MsgRecord records[2] = {};
    MDVR_MsgRecord& request = records[0];
    MDVR_MsgRecord& reply = records[1];
    std::memcpy(request.data, kVersionQueryText, sizeof kVersionQueryText);
    request.length = static_cast<int32_t>(std::strlen(kVersionQueryText));
    const auto start = std::chrono::steady_clock::now();
    const int32_t result = CarryPluginRequest(MDVR_REQUEST_EXCHANGE, &request, &reply, &link);
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start).count();

    ProbeReport report;
    report.text = "result " + std::to_string(result) + "\n";
    if (result == 0) {
        report.text += "problem " + Printable(link.Problem()) + "\n";
    } else {
        report.text += "reply " + Printable(reply.data) + "\n";
        std::string refusal;
        if (CheckVersionReply(reply.data, refusal) == 0) {
            report.status = kProbeAnswered;
        } else {
            report.status = kProbeRefusedAnswer;
            report.text += "problem the panel refuses this reply: " + Printable(refusal) + "\n";
        }
    }
    report.text += "time " + std::to_string(elapsed) + " ms\n";
    return report;
}

}  // namespace varcfg::host
