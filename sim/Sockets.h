// The few socket calls mdvr-sim and the reference host make, alike on POSIX systems and on Windows, and
// the system's text for an error number.
#pragma once

#include <string>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#endif

namespace varcfg::sim {

#ifdef _WIN32
using Socket = SOCKET;
using PollEntry = WSAPOLLFD;
inline const Socket kNoSocket = INVALID_SOCKET;
inline void CloseSocket(Socket socket) { closesocket(socket); }
inline int LastSocketError() { return WSAGetLastError(); }
inline bool WouldBlock(int error) { return error == WSAEWOULDBLOCK; }
inline bool Interrupted(int error) { return error == WSAEINTR; }
inline bool OutOfDescriptors(int error) { return error == WSAEMFILE || error == WSAENOBUFS; }
inline int PollSockets(PollEntry* entries, std::size_t count, int timeoutMs) {
    return WSAPoll(entries, static_cast<ULONG>(count), timeoutMs);
}
inline bool SetNonBlocking(Socket socket) {
    u_long nonBlocking = 1;
    return ioctlsocket(socket, FIONBIO, &nonBlocking) == 0;
}
// The system's own text for a Windows or Winsock error number, and the number. The text's inserts
// ("Bad EXE format for %1.") name the subject.
inline std::string WindowsErrorText(unsigned long error, const std::string& subject = "it") {
    char* text = nullptr;
    const DWORD size = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
        reinterpret_cast<char*>(&text), 0, nullptr);
    std::string message(text != nullptr ? text : "", size);
    LocalFree(text);
    for (std::size_t insert = message.find('%'); insert != std::string::npos; insert = message.find('%', insert)) {
        const bool numbered = insert + 1 < message.size() && message[insert + 1] >= '1' && message[insert + 1] <= '9';
        if (numbered) message.replace(insert, 2, subject);
        insert += numbered ? subject.size() : 1;
    }
    while (!message.empty() && (message.back() == '\n' || message.back() == '\r' || message.back() == '.')) {
        message.pop_back();
    }
    return (message.empty() ? "unknown error" : message) + " (Windows error " + std::to_string(error) + ")";
}
inline std::string SocketErrorText(int error) { return WindowsErrorText(static_cast<unsigned long>(error)); }
#else
using Socket = int;
using PollEntry = pollfd;
inline const Socket kNoSocket = -1;
inline void CloseSocket(Socket socket) { close(socket); }
inline int LastSocketError() { return errno; }
inline bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK; }
inline bool Interrupted(int error) { return error == EINTR; }
inline bool OutOfDescriptors(int error) { return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM; }
inline int PollSockets(PollEntry* entries, std::size_t count, int timeoutMs) {
    return poll(entries, static_cast<nfds_t>(count), timeoutMs);
}
inline bool SetNonBlocking(Socket socket) {
    const int flags = fcntl(socket, F_GETFL);
    return flags != -1 && fcntl(socket, F_SETFL, flags | O_NONBLOCK) == 0;
}
inline std::string SocketErrorText(int error) { return std::strerror(error); }
#endif

}  // namespace varcfg::sim
