// mdvr-sim: the simulated recorder on a TCP port, for hosts that carry the panel's requests over a
// network link. See kUsage for the options and the framing.
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "SimulatedRecorder.h"

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#endif

namespace {

constexpr char kUsage[] =
    "usage: mdvr-sim [options]\n"
    "\n"
    "Serves a simulated recorder on a TCP port, one connection at a time, until stopped\n"
    "(Ctrl+C, SIGINT or SIGTERM).\n"
    "\n"
    "  --model TEXT    the recorder's model, which sets its video channels, alarm inputs and\n"
    "                  outputs and serial ports (default MR8-O1)\n"
    "  --port N        the TCP port; 0 picks a free one (default 0)\n"
    "  --listen ADDR   the IPv4 address to listen on (default 127.0.0.1); an address outside\n"
    "                  127.0.0.0/8 is refused unless --allow-remote is given as well\n"
    "  --allow-remote  allow --listen with an address that other machines can reach\n"
    "  --state FILE    keep the settings in FILE: read at start, saved after every accepted setting\n"
    "  --latency MS    wait MS milliseconds (at most 60000) before every reply\n"
    "  --help          show this text\n"
    "\n"
    "When ready it prints one line, \"listening on ADDR:PORT\", on standard output.\n"
    "\n"
    "Framing: each request is a 4-byte little-endian length followed by that many bytes of request\n"
    "text (what the panel writes into its request record, without the terminator). Each reply comes\n"
    "back the same way. A length above 65536 ends the connection.\n";

constexpr char kDefaultModel[] = "MR8-O1";
constexpr uint32_t kMaxFrame = 64 * 1024;
constexpr uint64_t kMaxLatencyMs = 60000;
constexpr long kPollMs = 200;
// A client that stops in the middle of a frame is dropped, so the next one can be served.
constexpr std::chrono::seconds kStallLimit{10};

std::atomic<bool> stopRequested{false};
static_assert(std::atomic<bool>::is_always_lock_free, "the flag is set from a signal handler");

#ifdef _WIN32
using Socket = SOCKET;
const Socket kNoSocket = INVALID_SOCKET;
void CloseSocket(Socket socket) { closesocket(socket); }
bool Interrupted() { return false; }
BOOL WINAPI OnConsoleControl(DWORD) {
    stopRequested = true;
    return TRUE;
}
void InstallStopHandlers() { SetConsoleCtrlHandler(OnConsoleControl, TRUE); }
#else
using Socket = int;
const Socket kNoSocket = -1;
void CloseSocket(Socket socket) { close(socket); }
bool Interrupted() { return errno == EINTR; }
void OnStopSignal(int) { stopRequested = true; }
void InstallStopHandlers() {
    struct sigaction action = {};
    action.sa_handler = OnStopSignal;  // without SA_RESTART: a waiting select returns at once
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    signal(SIGPIPE, SIG_IGN);  // a client that left makes send fail instead of ending the process
}
#endif

struct Options {
    std::string model = kDefaultModel;
    uint16_t port = 0;
    std::string listen = "127.0.0.1";
    bool allowRemote = false;
    std::string stateFile;
    uint64_t latencyMs = 0;
};

enum class Parsed { Run, Help, Invalid };

Parsed ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        if (option == "--help" || option == "-h") return Parsed::Help;
        if (option == "--allow-remote") {
            options.allowRemote = true;
            continue;
        }
        if (i + 1 >= argc) {
            std::fprintf(stderr, "mdvr-sim: %s needs a value (see --help)\n", argv[i]);
            return Parsed::Invalid;
        }
        const std::string_view value = argv[++i];
        const std::optional<uint64_t> number = varcfg::sim::PlainNumber(value);
        if (option == "--model" && !value.empty()) {
            options.model = value;
        } else if (option == "--port" && number && *number <= 65535) {
            options.port = static_cast<uint16_t>(*number);
        } else if (option == "--listen") {
            options.listen = value;
        } else if (option == "--state" && !value.empty()) {
            options.stateFile = value;
        } else if (option == "--latency" && number && *number <= kMaxLatencyMs) {
            options.latencyMs = *number;
        } else {
            std::fprintf(stderr, "mdvr-sim: %s %s is not a valid option (see --help)\n", argv[i - 1], argv[i]);
            return Parsed::Invalid;
        }
    }
    return Parsed::Run;
}

enum class Wait { Ready, TimedOut, Failed };

Wait WaitReadable(Socket socket) {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(socket, &readable);
    timeval timeout = {0, kPollMs * 1000};
#ifdef _WIN32
    const int ready = select(0, &readable, nullptr, nullptr, &timeout);
#else
    const int ready = select(socket + 1, &readable, nullptr, nullptr, &timeout);
#endif
    if (ready > 0) return Wait::Ready;
    if (ready == 0 || Interrupted()) return Wait::TimedOut;
    return Wait::Failed;
}

// Reads exactly size bytes. Between frames a client may stay quiet as long as it likes; once a frame
// has begun, it must go on arriving.
bool ReceiveAll(Socket socket, char* buffer, std::size_t size, bool frameBegun) {
    std::size_t received = 0;
    auto lastProgress = std::chrono::steady_clock::now();
    while (received < size) {
        if (stopRequested) return false;
        const Wait wait = WaitReadable(socket);
        if (wait == Wait::Failed) return false;
        if (wait == Wait::TimedOut) {
            const bool stalled = std::chrono::steady_clock::now() - lastProgress > kStallLimit;
            if ((frameBegun || received > 0) && stalled) return false;
            continue;
        }
        const int count = recv(socket, buffer + received, static_cast<int>(size - received), 0);
        if (count <= 0) {
            if (count < 0 && Interrupted()) continue;
            return false;
        }
        received += static_cast<std::size_t>(count);
        lastProgress = std::chrono::steady_clock::now();
    }
    return true;
}

bool SendAll(Socket socket, const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const int count = send(socket, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
        if (count <= 0) {
            if (count < 0 && Interrupted()) continue;
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

std::string Frame(const std::string& text) {
    const auto length = static_cast<uint32_t>(text.size());
    std::string frame;
    for (int shift = 0; shift < 32; shift += 8) frame += static_cast<char>((length >> shift) & 0xFFu);
    return frame + text;
}

// Answers frames until the client leaves, sends a bad frame, or a request is lost (an injected
// transport failure, which a client sees as the connection ending).
void Serve(Socket connection, varcfg::sim::SimulatedRecorder& recorder) {
    for (;;) {
        unsigned char header[4];
        if (!ReceiveAll(connection, reinterpret_cast<char*>(header), sizeof header, false)) return;
        const uint32_t length = header[0] | (header[1] << 8) | (header[2] << 16) | (uint32_t{header[3]} << 24);
        if (length > kMaxFrame) return;
        std::string request(length, '\0');
        if (!ReceiveAll(connection, request.data(), request.size(), true)) return;
        const std::optional<std::string> reply = recorder.Handle(request);
        if (!reply || !SendAll(connection, Frame(*reply))) return;
    }
}

bool IsLoopback(const in_addr& address) { return (reinterpret_cast<const unsigned char*>(&address)[0]) == 127; }

int Run(const Options& options) {
    in_addr address = {};
    if (inet_pton(AF_INET, options.listen.c_str(), &address) != 1) {
        std::fprintf(stderr, "mdvr-sim: --listen %s is not an IPv4 address\n", options.listen.c_str());
        return 2;
    }
    if (!IsLoopback(address) && !options.allowRemote) {
        std::fprintf(stderr,
                     "mdvr-sim: refusing to listen on %s, which other machines can reach; "
                     "add --allow-remote to do so\n",
                     options.listen.c_str());
        return 2;
    }

    varcfg::sim::SimulatedRecorder recorder(options.model, options.stateFile);
    if (!varcfg::BuiltInModelTable().ProfileOf(options.model)) {
        std::fprintf(stderr,
                     "mdvr-sim: model %s is not in the model table: 4 video channels, no alarms, no serial ports\n",
                     options.model.c_str());
    }
    const std::string stateProblem = recorder.StateFileProblem();
    if (!stateProblem.empty()) std::fprintf(stderr, "mdvr-sim: %s\n", stateProblem.c_str());
    varcfg::sim::Faults faults;
    faults.latency = std::chrono::milliseconds(options.latencyMs);
    recorder.SetFaults(faults);

    const Socket listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    if (listener == kNoSocket) {
        std::fprintf(stderr, "mdvr-sim: no socket\n");
        return 1;
    }
#ifndef _WIN32
    const int reuse = 1;  // a restart may take the port at once
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
#endif
    sockaddr_in bound = {};
    bound.sin_family = AF_INET;
    bound.sin_addr = address;
    bound.sin_port = htons(options.port);
    socklen_t boundSize = sizeof bound;
    if (bind(listener, reinterpret_cast<sockaddr*>(&bound), sizeof bound) != 0 || listen(listener, 4) != 0 ||
        getsockname(listener, reinterpret_cast<sockaddr*>(&bound), &boundSize) != 0) {
        std::fprintf(stderr, "mdvr-sim: cannot listen on %s:%u\n", options.listen.c_str(), unsigned{options.port});
        CloseSocket(listener);
        return 1;
    }

    InstallStopHandlers();
    std::printf("listening on %s:%u\n", options.listen.c_str(), unsigned{ntohs(bound.sin_port)});
    std::fflush(stdout);

    while (!stopRequested) {
        const Wait wait = WaitReadable(listener);
        if (wait == Wait::Failed) break;
        if (wait == Wait::TimedOut) continue;
        const Socket connection = accept(listener, nullptr, nullptr);
        if (connection == kNoSocket) continue;
        Serve(connection, recorder);
        CloseSocket(connection);
    }
    CloseSocket(listener);
    return 0;
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
