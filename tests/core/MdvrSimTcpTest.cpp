// mdvr-sim as a host sees it: the real binary, on a loopback port, through its framing.
#include <gtest/gtest.h>

#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "TemporaryFolder.h"
#include "protocol/Envelope.h"

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int kWaitMs = 5000;

// The binary in a child process, its standard output and error on a pipe; killed when the test ends,
// however it ends.
class SimProcess {
public:
    explicit SimProcess(std::vector<std::string> words) {
        words.insert(words.begin(), MDVR_SIM_PATH);
        std::vector<char*> argv;
        for (std::string& word : words) argv.push_back(word.data());
        argv.push_back(nullptr);
        int ends[2];
        if (pipe(ends) != 0) return;
        pid_ = fork();
        if (pid_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            dup2(ends[1], STDOUT_FILENO);
            dup2(ends[1], STDERR_FILENO);
            close(ends[0]);
            close(ends[1]);
            execv(argv[0], argv.data());
            _exit(127);
        }
        close(ends[1]);
        output_ = ends[0];
    }
    ~SimProcess() {
        if (pid_ > 0 && !exited_) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        close(output_);
    }

    // The output up to the first line break, or to its end when whole; what came in time.
    std::string Read(bool whole = false) {
        std::string text;
        char c = 0;
        pollfd readable = {output_, POLLIN, 0};
        while (poll(&readable, 1, kWaitMs) > 0 && read(output_, &c, 1) == 1 && (whole || c != '\n')) text += c;
        return text;
    }

    // The exit status, or nothing when the process has not ended in time.
    std::optional<int> WaitForExit() {
        for (int waited = 0; waited < kWaitMs; waited += 10) {
            int status = 0;
            if (waitpid(pid_, &status, WNOHANG) == pid_) {
                exited_ = true;
                return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return std::nullopt;
    }

    void Signal(int signalNumber) { kill(pid_, signalNumber); }

private:
    pid_t pid_ = -1;
    int output_ = -1;
    bool exited_ = false;
};

// The port of a simulator's "listening on" line; 0 when it did not start.
uint16_t PortOf(SimProcess& sim) {
    const std::string ready = sim.Read();
    const std::string prefix = "listening on 127.0.0.1:";
    if (ready.rfind(prefix, 0) != 0) {
        ADD_FAILURE() << "mdvr-sim did not start: " << ready;
        return 0;
    }
    return static_cast<uint16_t>(std::stoi(ready.substr(prefix.size())));
}

std::string Frame(const std::string& text, uint32_t length) {
    std::string frame;
    for (int shift = 0; shift < 32; shift += 8) frame += static_cast<char>((length >> shift) & 0xFFu);
    return frame + text;
}

// A host's connection, with a time-out on every read.
class Connection {
public:
    // A receiveBuffer above 0 makes the connection's receive buffer about that small.
    explicit Connection(uint16_t port, int receiveBuffer = 0) : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        const timeval timeout = {kWaitMs / 1000, 0};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
        if (receiveBuffer > 0) setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        connected = connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    }
    ~Connection() { close(socket_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool Send(const std::string& bytes) {
        return send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
    }
    // size bytes, or fewer when the connection ended or went quiet.
    std::string Receive(std::size_t size) {
        std::string bytes(size, '\0');
        const ssize_t count = recv(socket_, bytes.data(), size, MSG_WAITALL);
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }
    // Ends the connection with a reset rather than an orderly close.
    void Reset() {
        const linger abort = {1, 0};
        setsockopt(socket_, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
        close(socket_);
        socket_ = -1;
    }
    // The next reply frame's text; nothing when the connection ended instead.
    std::optional<std::string> ReceiveFrame() {
        const std::string header = Receive(4);
        if (header.size() != 4) return std::nullopt;
        uint32_t length = 0;
        for (int i = 3; i >= 0; --i) length = (length << 8) | static_cast<unsigned char>(header[i]);
        std::string reply = Receive(length);
        return reply.size() == length ? std::optional<std::string>(reply) : std::nullopt;
    }
    // The reply to one request; nothing when the connection ended instead.
    std::optional<std::string> Exchange(const std::string& request) {
        if (!Send(Frame(request, static_cast<uint32_t>(request.size())))) return std::nullopt;
        return ReceiveFrame();
    }
    // True when the other side closed the connection, rather than leaving it open and quiet. Bytes sent
    // after the close make it a reset.
    bool ClosedByPeer() {
        char byte = 0;
        const ssize_t count = recv(socket_, &byte, 1, 0);
        return count == 0 || (count < 0 && errno == ECONNRESET);
    }

    bool connected = false;

private:
    int socket_;
};

}  // namespace

TEST(MdvrSim, ServesQueriesAndSettingsOverItsFramingUntilTerminated) {
    SimProcess sim({"--model", "MR8-O1", "--port", "0"});
    const std::string ready = sim.Read();
    const std::string prefix = "listening on 127.0.0.1:";
    ASSERT_EQ(ready.rfind(prefix, 0), 0u) << ready;
    const auto port = static_cast<uint16_t>(std::stoi(ready.substr(prefix.size())));

    {
        Connection host(port);
        ASSERT_TRUE(host.connected);
        const std::optional<std::string> group =
            host.Exchange(R"(<VariCfgSec Action="DEVICE_QUERY"><stMainStream StartChn="6"></VariCfgSec>)");
        varcfg::QueryReply reply;
        ASSERT_TRUE(group && reply.Check(*group) == 0);
        EXPECT_NE(reply.Section()->FirstChildElement("stVideoPara")->FirstChildElement("VChn_7"), nullptr) << *group;

        const std::optional<std::string> set = host.Exchange(
            R"(<VariCfgSec Action="DEVICE_SET"><stPtt ucFD_Enable="1" usFD_GroupNo="42" /></VariCfgSec>)");
        ASSERT_TRUE(set && varcfg::CheckSettingReply(*set) == 0);
        const std::optional<std::string> kept = host.Exchange(varcfg::QueryText("stPtt"));
        ASSERT_TRUE(kept.has_value());
        EXPECT_NE(kept->find("usFD_GroupNo=\"42\""), std::string::npos) << *kept;

        // A frame longer than any request ends the connection, and the next host is served.
        ASSERT_TRUE(host.Send(Frame("", 0x7FFFFFFFu)));
        EXPECT_TRUE(host.ClosedByPeer());
    }
    Connection next(port);
    ASSERT_TRUE(next.connected);
    EXPECT_TRUE(next.Exchange(varcfg::kVersionQueryText).has_value());

    sim.Signal(SIGTERM);
    EXPECT_EQ(sim.WaitForExit(), 0);
}

// One client stays quiet, one drips a frame a byte at a time, one never reads its replies, one announces
// a frame too long and one resets its connection in the middle of a frame: meanwhile 200 clients
// connecting at once are all answered, and each misbehaving client is dropped when its own limit runs
// out and named on standard error.
TEST(MdvrSim, ServesManyClientsAtOnceAndDropsThoseThatMisbehave) {
    SimProcess sim({"--model", "MR8-Q2", "--idle-limit", "2500", "--frame-limit", "300", "--send-limit", "300"});
    const uint16_t port = PortOf(sim);
    ASSERT_NE(port, 0);
    const Clock::time_point start = Clock::now();

    Connection stalled(port);
    Connection dripping(port);
    Connection oversized(port);
    Connection resetting(port);
    ASSERT_TRUE(stalled.connected && dripping.connected && oversized.connected && resetting.connected);
    ASSERT_TRUE(oversized.Send(Frame("", 0x7FFFFFFFu)));
    ASSERT_TRUE(resetting.Send(Frame("", 100).substr(0, 2)));
    std::this_thread::sleep_for(50ms);  // the simulator has read the two bytes
    resetting.Reset();
    Connection unread(port, 4096);
    const std::string bulkyQuery = R"(<VariCfgSec Action="DEVICE_QUERY"><stMainStream StartChn="0"></VariCfgSec>)";
    std::thread flood([&unread, &bulkyQuery] {
        while (unread.Send(Frame(bulkyQuery, static_cast<uint32_t>(bulkyQuery.size())))) {
        }
    });
    // A byte every 50 ms keeps arriving, but the whole frame is late after 300 ms.
    std::thread drip([&dripping] {
        const std::string frame = Frame(std::string(60, 'x'), 60);
        for (std::size_t i = 0; i < frame.size() && dripping.Send(frame.substr(i, 1)); ++i) {
            std::this_thread::sleep_for(50ms);
        }
    });

    std::vector<std::unique_ptr<Connection>> crowd;
    for (int i = 0; i < 200; ++i) crowd.push_back(std::make_unique<Connection>(port));
    for (auto& client : crowd) {
        ASSERT_TRUE(client->connected);
        ASSERT_TRUE(client->Send(Frame(varcfg::kVersionQueryText, sizeof varcfg::kVersionQueryText - 1)));
    }
    int answered = 0;
    for (auto& client : crowd) {
        const std::optional<std::string> reply = client->ReceiveFrame();
        answered += reply && reply->find("Model=\"MR8-Q2\"") != std::string::npos;
    }
    EXPECT_EQ(answered, 200);
    EXPECT_LT(Clock::now() - start, 2000ms) << "the crowd waited for a misbehaving client";

    drip.join();
    flood.join();
    EXPECT_TRUE(dripping.ClosedByPeer());
    EXPECT_TRUE(oversized.ClosedByPeer());
    EXPECT_TRUE(stalled.ClosedByPeer()) << "quiet longer than the idle limit";
    Connection late(port);
    EXPECT_TRUE(late.Exchange(varcfg::kVersionQueryText).has_value());

    sim.Signal(SIGTERM);
    EXPECT_EQ(sim.WaitForExit(), 0);
    const std::string log = sim.Read(true);
    for (const char* reason : {"a request not complete within 300 ms", "a reply not taken within 300 ms",
                               "no request for 2500 ms", "announced a request of 2147483647 bytes, more than 65536",
                               "connection broken: Connection reset by peer"}) {
        EXPECT_NE(log.find(reason), std::string::npos) << reason << " in:\n" << log;
    }
}

// Whatever its clients are doing, a signal ends the simulator at once: while it waits out a latency,
// and while a client leaves a reply unread.
TEST(MdvrSim, EndsAtOnceOnASignalWhateverItsClientsDo) {
    struct Case {
        const char* what;
        int signalNumber;
        std::vector<std::string> options;
        bool readsReplies;
    };
    const Case cases[] = {
        {"waiting out a latency", SIGTERM, {"--latency", "60000"}, true},
        {"a reply left unread", SIGINT, {"--send-limit", "600000"}, false},
    };
    for (const Case& c : cases) {
        SimProcess sim(c.options);
        const uint16_t port = PortOf(sim);
        ASSERT_NE(port, 0) << c.what;
        Connection client(port, c.readsReplies ? 0 : 4096);
        std::thread requests([&client, &c] {
            const std::string query = varcfg::QueryText("stMainStream");
            do {
            } while (client.Send(Frame(query, static_cast<uint32_t>(query.size()))) && !c.readsReplies);
        });
        std::this_thread::sleep_for(300ms);  // the simulator is now waiting, or blocked on the client
        const Clock::time_point signalled = Clock::now();
        sim.Signal(c.signalNumber);
        EXPECT_EQ(sim.WaitForExit(), 0) << c.what;
        EXPECT_LT(Clock::now() - signalled, 1s) << c.what;
        requests.join();
    }
}

// A wrong option names the option, the value and what would be accepted; a state file that cannot keep
// settings is refused before anything listens, and so is an address other machines can reach.
TEST(MdvrSim, RefusesWrongOptionsSayingWhatIsAccepted) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.path / "pipe").c_str(), 0600), 0);
    struct Case {
        std::vector<std::string> options;
        std::string message;
    };
    const Case cases[] = {
        {{"--bogus"}, "mdvr-sim: --bogus is not an option"},
        {{"--port", "99999"}, "mdvr-sim: --port 99999: not a number from 0 to 65535"},
        {{"--port"}, "mdvr-sim: --port needs a value: a number from 0 to 65535"},
        {{"--latency", "-5"}, "mdvr-sim: --latency -5: not a number from 0 to 60000"},
        {{"--frame-limit", "0"}, "mdvr-sim: --frame-limit 0: not a number from 1 to 600000"},
        {{"--model", ""}, "mdvr-sim: --model needs a value: a model text"},
        {{"--listen", "localhost"}, "mdvr-sim: --listen localhost: not an IPv4 address"},
        {{"--listen", "0.0.0.0"}, "add --allow-remote to listen on it"},
        {{"--state", folder.path.string()}, "is a folder, not a file"},
        {{"--state", (folder.path / "pipe").string()}, "is a named pipe, not a file"},
        {{"--state", (folder.path / "gone" / "x").string()}, "gone does not exist"},
    };
    for (const Case& c : cases) {
        SimProcess refused(c.options);
        const std::string output = refused.Read(true);
        EXPECT_EQ(refused.WaitForExit(), 2) << c.message;
        EXPECT_EQ(output.find("listening"), std::string::npos) << output;
        EXPECT_NE(output.find(c.message), std::string::npos) << output;
    }

    SimProcess otherLoopback({"--listen", "127.0.0.2", "--port", "0"});
    const std::string ready = otherLoopback.Read();
    EXPECT_EQ(ready.rfind("listening on 127.0.0.2:", 0), 0u) << ready;

    SimProcess first({});
    const uint16_t port = PortOf(first);
    SimProcess second({"--port", std::to_string(port)});
    const std::string output = second.Read(true);
    EXPECT_EQ(second.WaitForExit(), 1);
    EXPECT_NE(output.find("cannot listen on 127.0.0.1:" + std::to_string(port) + ": Address already in use"),
              std::string::npos)
        << output;
}
