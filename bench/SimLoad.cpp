// mdvr-sim-load: many clients asking an mdvr-sim on this machine for its version as fast as it answers,
// one request at a time each, while one more client stays connected and silent. Prints how many
// requests were answered per second and whether every client was served. Loopback only, and bounded
// in clients and time.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "Framing.h"
#include "SettingsCatalog.h"
#include "protocol/Envelope.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr char kUsage[] =
    "usage: mdvr-sim-load PORT [CLIENTS [SECONDS]]\n"
    "\n"
    "Connects CLIENTS clients (1 to 2000, default 200) to the mdvr-sim at 127.0.0.1:PORT, plus one that\n"
    "sends nothing, and has each ask for the version again as soon as it has the reply, for SECONDS\n"
    "seconds (1 to 60, default 5). Exit status: 0 when every client was answered, 1 when not, 2 for a\n"
    "wrong argument.\n";

struct Client {
    int socket = -1;
    std::string received;
    Clock::time_point sentAt;
    unsigned long answered = 0;
};

int Connect(uint16_t port) {
    const int connection = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        close(connection);
        return -1;
    }
    const int noDelay = 1;
    setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &noDelay, sizeof noDelay);
    return connection;
}

std::optional<uint64_t> Argument(int argc, char** argv, int index, uint64_t fallback, uint64_t least, uint64_t most) {
    if (index >= argc) return fallback;
    const std::optional<uint64_t> value = varcfg::sim::PlainNumber(argv[index]);
    if (!value || *value < least || *value > most) return std::nullopt;
    return value;
}

}  // namespace

int main(int argc, char** argv) {
    const std::optional<uint64_t> port = Argument(argc, argv, 1, 0, 1, 65535);
    const std::optional<uint64_t> clientCount = Argument(argc, argv, 2, 200, 1, 2000);
    const std::optional<uint64_t> seconds = Argument(argc, argv, 3, 5, 1, 60);
    if (argc < 2 || argc > 4 || !port || !clientCount || !seconds) {
        std::fputs(kUsage, stderr);
        return 2;
    }

    const std::string request = varcfg::sim::Frame(varcfg::kVersionQueryText);

    const int silent = Connect(static_cast<uint16_t>(*port));
    std::vector<Client> clients(*clientCount);
    for (Client& client : clients) {
        client.socket = Connect(static_cast<uint16_t>(*port));
        if (client.socket < 0 || silent < 0) {
            std::fprintf(stderr, "mdvr-sim-load: cannot connect to 127.0.0.1:%u: %s\n",
                         static_cast<unsigned>(*port), std::strerror(errno));
            return 1;
        }
    }

    const Clock::time_point start = Clock::now();
    const Clock::time_point end = start + std::chrono::seconds(*seconds);
    Clock::duration slowest{};
    bool broken = false;
    for (Client& client : clients) {
        client.sentAt = Clock::now();
        broken |= send(client.socket, request.data(), request.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(request.size());
    }
    std::vector<pollfd> entries(clients.size());
    while (!broken && Clock::now() < end) {
        for (std::size_t i = 0; i < clients.size(); ++i) entries[i] = {clients[i].socket, POLLIN, 0};
        if (poll(entries.data(), entries.size(), 100) < 0) break;
        for (std::size_t i = 0; i < clients.size(); ++i) {
            if (entries[i].revents == 0) continue;
            Client& client = clients[i];
            char buffer[4096];
            const ssize_t count = recv(client.socket, buffer, sizeof buffer, 0);
            if (count <= 0) {
                broken = true;
                break;
            }
            client.received.append(buffer, static_cast<std::size_t>(count));
            if (client.received.size() < varcfg::sim::kFrameHeaderSize) continue;
            const std::size_t frame =
                varcfg::sim::kFrameHeaderSize + varcfg::sim::AnnouncedLength(client.received.data());
            if (client.received.size() < frame) continue;
            client.received.erase(0, frame);
            ++client.answered;
            const Clock::time_point now = Clock::now();
            slowest = std::max(slowest, now - client.sentAt);
            client.sentAt = now;
            broken |= send(client.socket, request.data(), request.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(request.size());
        }
    }
    const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();

    unsigned long answered = 0;
    std::size_t served = 0;
    for (const Client& client : clients) {
        answered += client.answered;
        served += client.answered > 0 ? 1 : 0;
        close(client.socket);
    }
    close(silent);
    std::printf("%zu clients at once (and 1 silent): %zu answered, %lu requests in %.1f s, %.0f per second, "
                "slowest reply %lld ms%s\n",
                clients.size(), served, answered, elapsed, answered / elapsed,
                static_cast<long long>(std::chrono::duration_cast<std::chrono::milliseconds>(slowest).count()),
                broken ? "; a connection broke" : "");
    return served == clients.size() && !broken ? 0 : 1;
}
