// mdvr-sim as a host sees it: the real binary, on a loopback port, through its framing.
#include <gtest/gtest.h>

#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "protocol/Envelope.h"

namespace {

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

std::string Frame(const std::string& text, uint32_t length) {
    std::string frame;
    for (int shift = 0; shift < 32; shift += 8) frame += static_cast<char>((length >> shift) & 0xFFu);
    return frame + text;
}

// A host's connection, with a time-out on every read.
class Connection {
public:
    explicit Connection(uint16_t port) : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        const timeval timeout = {kWaitMs / 1000, 0};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        connected = connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    }
    ~Connection() { close(socket_); }

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
    // The reply to one request; nothing when the connection ended instead.
    std::optional<std::string> Exchange(const std::string& request) {
        const std::string header = Send(Frame(request, static_cast<uint32_t>(request.size()))) ? Receive(4) : "";
        if (header.size() != 4) return std::nullopt;
        uint32_t length = 0;
        for (int i = 3; i >= 0; --i) length = (length << 8) | static_cast<unsigned char>(header[i]);
        std::string reply = Receive(length);
        return reply.size() == length ? std::optional<std::string>(reply) : std::nullopt;
    }
    // True when the other side closed the connection, rather than leaving it open and quiet.
    bool ClosedByPeer() {
        char byte = 0;
        return recv(socket_, &byte, 1, 0) == 0;
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

TEST(MdvrSim, RefusesAnAddressOtherMachinesCanReachUnlessAllowed) {
    SimProcess refused({"--listen", "0.0.0.0", "--port", "0"});
    const std::string output = refused.Read(true);
    EXPECT_EQ(refused.WaitForExit(), 2);
    EXPECT_EQ(output.find("listening"), std::string::npos) << output;
    EXPECT_NE(output.find("--allow-remote"), std::string::npos) << output;

    SimProcess otherLoopback({"--listen", "127.0.0.2", "--port", "0"});
    const std::string ready = otherLoopback.Read();
    EXPECT_EQ(ready.rfind("listening on 127.0.0.2:", 0), 0u) << ready;
}
