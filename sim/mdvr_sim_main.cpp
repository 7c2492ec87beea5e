// mdvr-sim: the simulated recorder on a TCP port, for hosts that carry the panel's requests over a
// network link. See kUsage for the options and the framing.
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "RecorderServer.h"
#include "SimulatedRecorder.h"
#include "Sockets.h"
#include "StateFile.h"

#ifndef _WIN32
#include <csignal>
#endif

namespace {

using varcfg::sim::Socket;

constexpr char kUsage[] =
    "usage: mdvr-sim [options]\n"
    "\n"
    "Serves a simulated recorder on a TCP port to any number of clients at once, until stopped\n"
    "(Ctrl+C, SIGINT or SIGTERM).\n"
    "\n"
    "  --model TEXT       the recorder's model, which sets its video channels, alarm inputs and\n"
    "                     outputs and serial ports (default MR8-O1)\n"
    "  --port N           the TCP port, 0 to 65535; 0 picks a free one (default 0)\n"
    "  --listen ADDR      the IPv4 address to listen on (default 127.0.0.1); an address outside\n"
    "                     127.0.0.0/8 is refused unless --allow-remote is given as well\n"
    "  --allow-remote     allow --listen with an address that other machines can reach\n"
    "  --state FILE       keep the settings in FILE: read at start, saved after every accepted setting.\n"
    "                     A new FILE is made readable by its owner only; a link is followed\n"
    "  --latency MS       wait MS milliseconds, 0 to 60000, before every reply (default 0)\n"
    "  --idle-limit MS    drop a client that sends no request for MS milliseconds, 1 to 86400000\n"
    "                     (default 600000)\n"
    "  --frame-limit MS   drop a client whose request takes longer than MS milliseconds to arrive\n"
    "                     whole, 1 to 600000 (default 10000)\n"
    "  --send-limit MS    drop a client that leaves a reply unread for MS milliseconds, 1 to 600000\n"
    "                     (default 10000)\n"
    "  --help             show this text\n"
    "\n"
    "When ready it prints one line, \"listening on ADDR:PORT\", on standard output. Clients it drops\n"
    "and settings it cannot save are reported on standard error.\n"
    "\n"
    "Framing: each request is a 4-byte little-endian length followed by that many bytes of request\n"
    "text (what the panel writes into its request record, without the terminator). Each reply comes\n"
    "back the same way. A length above 65536 ends the connection.\n"
    "\n"
    "Exit status: 0 when stopped, 1 when it cannot listen, 2 for a wrong option or state file.\n";

constexpr char kDefaultModel[] = "MR8-O1";

std::atomic<bool> stopRequested{false};
static_assert(std::atomic<bool>::is_always_lock_free, "the flag is set from a signal handler");

#ifdef _WIN32
BOOL WINAPI OnConsoleControl(DWORD) {
    stopRequested = true;
    return TRUE;
}
void InstallStopHandlers() { SetConsoleCtrlHandler(OnConsoleControl, TRUE); }
#else
void OnStopSignal(int) { stopRequested = true; }
void InstallStopHandlers() {
    struct sigaction action = {};
    action.sa_handler = OnStopSignal;  // without SA_RESTART: a waiting poll returns at once
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    signal(SIGPIPE, SIG_IGN);  // a client that left makes send fail instead of ending the process
}
#endif

struct Options {
    std::string model = kDefaultModel;
    uint64_t port = 0;
    std::string listen = "127.0.0.1";
    bool allowRemote = false;
    std::string stateFile;
    uint64_t latencyMs = 0;
    uint64_t idleLimitMs = 600000;
    uint64_t frameLimitMs = 10000;
    uint64_t sendLimitMs = 10000;
};

struct NumberOption {
    std::string_view name;
    uint64_t least;
    uint64_t most;
    uint64_t Options::*value;
};

constexpr NumberOption kNumberOptions[] = {
    {"--port", 0, 65535, &Options::port},
    {"--latency", 0, 60000, &Options::latencyMs},
    {"--idle-limit", 1, 86400000, &Options::idleLimitMs},
    {"--frame-limit", 1, 600000, &Options::frameLimitMs},
    {"--send-limit", 1, 600000, &Options::sendLimitMs},
};

struct TextOption {
    std::string_view name;
    std::string_view what;
    std::string Options::*value;
};

const TextOption kTextOptions[] = {
    {"--model", "a model text such as MR8-O1", &Options::model},
    {"--listen", "an IPv4 address such as 127.0.0.1", &Options::listen},
    {"--state", "a file name", &Options::stateFile},
};

enum class Parsed { Run, Help, Invalid };

// Reports a wrong option or option value; returns the exit status for it.
int Complain(const std::string& problem) {
    std::fprintf(stderr, "mdvr-sim: %s (see --help)\n", problem.c_str());
    return 2;
}

Parsed ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--help" || option == "-h") return Parsed::Help;
        if (option == "--allow-remote") {
            options.allowRemote = true;
            continue;
        }
        const bool hasValue = i + 1 < argc;
        const std::string value = hasValue ? argv[i + 1] : "";
        i += hasValue ? 1 : 0;
        bool known = false;
        for (const NumberOption& number : kNumberOptions) {
            if (option != number.name) continue;
            known = true;
            const std::string range =
                "a number from " + std::to_string(number.least) + " to " + std::to_string(number.most);
            if (!hasValue) {
                Complain(option + " needs a value: " + range);
                return Parsed::Invalid;
            }
            const std::optional<uint64_t> parsed = varcfg::sim::PlainNumber(value);
            if (!parsed || *parsed < number.least || *parsed > number.most) {
                Complain(option + " " + value + ": not " + range);
                return Parsed::Invalid;
            }
            options.*number.value = *parsed;
        }
        for (const TextOption& text : kTextOptions) {
            if (option != text.name) continue;
            known = true;
            if (value.empty()) {
                Complain(option + " needs a value: " + std::string(text.what));
                return Parsed::Invalid;
            }
            options.*text.value = value;
        }
        if (!known) {
            Complain(option + " is not an option");
            return Parsed::Invalid;
        }
    }
    return Parsed::Run;
}

bool IsLoopback(const in_addr& address) { return (reinterpret_cast<const unsigned char*>(&address)[0]) == 127; }

// A socket listening on address:port with the longest backlog the system allows; the port it got (for a
// port of 0) in bound.
std::optional<Socket> Listen(const in_addr& address, uint16_t port, sockaddr_in& bound, std::string& problem) {
    const Socket listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    if (listener == varcfg::sim::kNoSocket) {
        problem = varcfg::sim::SocketErrorText(varcfg::sim::LastSocketError());
        return std::nullopt;
    }
#ifndef _WIN32
    const int reuse = 1;  // a restart may take the port at once
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
#endif
    bound = {};
    bound.sin_family = AF_INET;
    bound.sin_addr = address;
    bound.sin_port = htons(port);
    socklen_t boundSize = sizeof bound;
    if (bind(listener, reinterpret_cast<sockaddr*>(&bound), sizeof bound) != 0 || listen(listener, SOMAXCONN) != 0 ||
        getsockname(listener, reinterpret_cast<sockaddr*>(&bound), &boundSize) != 0) {
        problem = varcfg::sim::SocketErrorText(varcfg::sim::LastSocketError());
        varcfg::sim::CloseSocket(listener);
        return std::nullopt;
    }
    return listener;
}

int Run(const Options& options) {
    in_addr address = {};
    if (inet_pton(AF_INET, options.listen.c_str(), &address) != 1) {
        return Complain("--listen " + options.listen + ": not an IPv4 address such as 127.0.0.1");
    }
    if (!IsLoopback(address) && !options.allowRemote) {
        return Complain("--listen " + options.listen +
                       ": other machines can reach this address; add --allow-remote to listen on it");
    }
    if (!options.stateFile.empty()) {
        const std::string fault = varcfg::sim::StateFile(options.stateFile).Fault();
        if (!fault.empty()) return Complain("--state " + options.stateFile + ": " + fault);
    }

    varcfg::sim::SimulatedRecorder recorder(options.model, options.stateFile);
    if (!varcfg::BuiltInModelTable().ProfileOf(options.model)) {
        std::fprintf(stderr,
                     "mdvr-sim: model %s is not in the model table: 4 video channels, no alarms, no serial ports\n",
                     options.model.c_str());
    }
    const std::string stateProblem = recorder.StateFileProblem();
    if (!stateProblem.empty()) std::fprintf(stderr, "mdvr-sim: %s\n", stateProblem.c_str());
    recorder.OnSaveFailure([](const std::string& reason) {
        std::fprintf(stderr, "mdvr-sim: setting refused: %s\n", reason.c_str());
    });

    sockaddr_in bound = {};
    std::string problem;
    const std::optional<Socket> listener = Listen(address, static_cast<uint16_t>(options.port), bound, problem);
    if (!listener) {
        std::fprintf(stderr, "mdvr-sim: cannot listen on %s:%u: %s\n", options.listen.c_str(),
                     static_cast<unsigned>(options.port), problem.c_str());
        return 1;
    }

    varcfg::sim::ServerLimits limits;
    limits.idle = std::chrono::milliseconds(options.idleLimitMs);
    limits.frame = std::chrono::milliseconds(options.frameLimitMs);
    limits.send = std::chrono::milliseconds(options.sendLimitMs);
    limits.latency = std::chrono::milliseconds(options.latencyMs);
    varcfg::sim::RecorderServer server(recorder, *listener, limits);
    InstallStopHandlers();
    std::printf("listening on %s:%u\n", options.listen.c_str(), unsigned{ntohs(bound.sin_port)});
    std::fflush(stdout);
    return server.Run(stopRequested) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    switch (ParseOptions(argc, argv, options)) {
        case Parsed::Help:
            std::fputs(kUsage, stdout);
            return 0;
        case Parsed::Invalid:
            return 2;
        case Parsed::Run:
            break;
    }
#ifdef _WIN32
    WSADATA winsock;
    if (WSAStartup(MAKEWORD(2, 2), &winsock) != 0) {
        std::fprintf(stderr, "mdvr-sim: Winsock did not start\n");
        return 1;
    }
    const int result = Run(options);
    WSACleanup();
    return result;
#else
    return Run(options);
#endif
}
