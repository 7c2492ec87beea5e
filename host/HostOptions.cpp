#include "HostOptions.h"

#include <optional>

namespace varcfg::host {

const char kHostUsage[] =
    "usage: varcfg-host [options]\n"
    "\n"
    "Loads the configuration panel plug-in as a fleet video client does and shows its panel in a window\n"
    "of the panel's size. The panel's requests go to a simulated recorder inside this program or, with\n"
    "--recorder, to an mdvr-sim over TCP.\n"
    "\n"
    "  --dll FILE            the plug-in to load (default: libvarcfg_18.dll beside this program)\n"
    "  --lang FILE           the language file handed to the plug-in (default: Lang\\English.ini beside\n"
    "                        this program; Lang\\Deutsch.ini shows the panel in German). A relative FILE\n"
    "                        is looked for in the current folder, then beside this program\n"
    "  --model TEXT          the model of the simulated recorder, which sets its channels, alarm inputs\n"
    "                        and outputs and serial ports (default MR8-O1)\n"
    "  --state FILE          keep the simulated recorder's settings in FILE: read at start, saved after\n"
    "                        every accepted setting\n"
    "  --recorder HOST:PORT  send the requests to the recorder at HOST:PORT instead (mdvr-sim's framing:\n"
    "                        a 4-byte little-endian length, then the request text; the reply likewise)\n"
    "  --timeout MS          with --recorder: the longest an exchange may take, 1 to 60000 (default 3000).\n"
    "                        A recorder that does not answer in time, refuses the connection or sends a\n"
    "                        broken frame gives the panel a zero result, as an unreachable recorder does\n"
    "  --screenshots DIR     show every category and every tab, save each as a PNG file in DIR (message\n"
    "                        tips too, which are then closed with Enter), list the files and exit\n"
    "  --probe               send the version query through the request callback the panel gets, check\n"
    "                        the reply as the panel does, print the result, the reply (control\n"
    "                        characters as \\xNN), what went wrong if anything, and the time taken, and\n"
    "                        exit; the plug-in is not loaded\n"
    "  --version             show the version of this release and exit\n"
    "  --help                show this text\n"
    "\n"
    "The configuration-file requests of the panel are only logged. Replies longer than 2047 bytes are\n"
    "cut to 2047 bytes, so that the reply record stays terminated.\n"
    "\n"
    "Exit status: 0 when the panel was closed, every screenshot was saved or the probe was answered\n"
    "with a reply the panel accepts; 1 when the plug-in could not be loaded or refused this host, a\n"
    "screenshot failed or the probe got no answer; 2 for a wrong option or state file; 3 when the probe\n"
    "was answered with a reply the panel refuses.\n";

namespace {

// For messages and plain ASCII values: anything else shows as '?'.
std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (wchar_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
    return narrow;
}

// Decimal digits only, at most max.
template <class Text>
std::optional<uint32_t> Number(const Text& text, uint32_t max) {
    if (text.empty() || text.size() > 9) return std::nullopt;
    uint32_t value = 0;
    for (auto c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + static_cast<uint32_t>(c - '0');
    }
    if (value > max) return std::nullopt;
    return value;
}

// What an option that takes a value accepts, for messages.
std::string ValueOf(const std::wstring& option) {
    if (option == L"--recorder") return "HOST:PORT with a port from 1 to 65535";
    if (option == L"--timeout") return "milliseconds from 1 to 60000";
    if (option == L"--model") return "a model text in plain ASCII";
    if (option == L"--state") return "a file name in plain ASCII";
    return option == L"--screenshots" ? "a folder" : "a file";
}

bool IsAscii(const std::wstring& text) {
    for (wchar_t c : text) {
        if (c >= 0x80) return false;
    }
    return true;
}

}  // namespace

bool ParseRecorderAddress(const std::string& text, RecorderAddress& address) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0) return false;
    const std::optional<uint32_t> port = Number(text.substr(colon + 1), 65535);
    if (!port || *port == 0) return false;
    address.host = text.substr(0, colon);
    address.port = static_cast<uint16_t>(*port);
    return true;
}

ParsedOptions ParseHostOptions(const std::vector<std::wstring>& args) {
    ParsedOptions parsed;
    HostOptions& options = parsed.options;
    auto invalid = [&parsed](const std::string& problem) {
        parsed.outcome = ParsedOptions::Outcome::Invalid;
        parsed.problem = problem;
        return parsed;
    };
    bool modelGiven = false;
    bool timeoutGiven = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::wstring& option = args[i];
        if (option == L"--help" || option == L"-h") {
            parsed.outcome = ParsedOptions::Outcome::Help;
            return parsed;
        }
        if (option == L"--probe") {
            options.probe = true;
            continue;
        }
        const bool takesValue = option == L"--dll" || option == L"--lang" || option == L"--model" ||
                                option == L"--state" || option == L"--recorder" || option == L"--timeout" ||
                                option == L"--screenshots";
        if (!takesValue) return invalid(Narrow(option) + " is not an option");
        if (i + 1 >= args.size() || args[i + 1].empty()) {
            return invalid(Narrow(option) + " needs a value: " + ValueOf(option));
        }
        const std::wstring& value = args[++i];
        if (option == L"--dll") {
            options.pluginPath = value;
        } else if (option == L"--lang") {
            options.languageFile = value;
        } else if (option == L"--screenshots") {
            options.screenshotFolder = value;
        } else if (option == L"--state") {
            if (!IsAscii(value)) return invalid("--state " + Narrow(value) + ": not " + ValueOf(option));
            options.stateFile = Narrow(value);
        } else if (option == L"--model") {
            if (!IsAscii(value)) return invalid("--model " + Narrow(value) + ": not " + ValueOf(option));
            options.model = Narrow(value);
            modelGiven = true;
        } else if (option == L"--recorder") {
            if (!IsAscii(value) || !ParseRecorderAddress(Narrow(value), options.recorder)) {
                return invalid("--recorder " + Narrow(value) + ": not " + ValueOf(option));
            }
            options.useRecorder = true;
        } else {
            const std::optional<uint32_t> timeout = Number(value, kMaxTimeoutMs);
            if (!timeout || *timeout == 0) return invalid("--timeout " + Narrow(value) + ": not " + ValueOf(option));
            options.timeoutMs = *timeout;
            timeoutGiven = true;
        }
    }
    // The simulated recorder's options mean nothing to a recorder elsewhere, and the other way round:
    // refusing them beats ignoring them silently.
    if (options.useRecorder && (modelGiven || !options.stateFile.empty())) {
        return invalid("--model and --state describe the simulated recorder; give them to mdvr-sim instead");
    }
    if (!options.useRecorder && timeoutGiven) return invalid("--timeout applies only with --recorder");
    if (options.probe && !options.screenshotFolder.empty()) return invalid("--probe and --screenshots exclude each other");
    return parsed;
}

}  // namespace varcfg::host
