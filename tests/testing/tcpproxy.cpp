#include "tcpproxy.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
const int sliceMs = 2;

sockaddr_in loopback(int port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int newSocket()
{
    const int made = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    ::setsockopt(made, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return made;
}

/// The server's first packet: its length and number, the protocol's version, the server's version as a text,
/// thirteen bytes, then two of what it can do.
void takeEncryptionOut(char *greeting, size_t size)
{
    const size_t text = 5;
    const char *end = static_cast<const char *>(std::memchr(greeting + text, 0, size - text));
    if (end != nullptr)
        greeting[end - greeting + 1 + 13 + 1] &= ~0x08;
}
} // namespace

TcpProxy::TcpProxy(const DatabaseAddress &server) : m_server(server), m_listener(newSocket())
{
    sockaddr_in own = loopback(0);
    socklen_t size = sizeof own;
    auto *address = reinterpret_cast<sockaddr *>(&own);
    if (::bind(m_listener, address, size) != 0 || ::listen(m_listener, 50) != 0 ||
        ::getsockname(m_listener, address, &size) != 0)
        qFatal("No port for the proxy");
    m_port = ntohs(own.sin_port);
    m_thread = std::thread([this] { serve(); });
}

TcpProxy::~TcpProxy()
{
    m_isLeaving = true;
    m_thread.join();
    ::close(m_listener);
    for (const Pair &pair : m_pairs) {
        ::close(pair.client);
        ::close(pair.server);
    }
}

DatabaseAddress TcpProxy::address() const
{
    DatabaseAddress own = m_server;
    own.port = m_port;
    return own;
}

void TcpProxy::setSilent(bool isSilent)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_isSilent = isSilent;
}

void TcpProxy::serve()
{
    while (!m_isLeaving) {
        if (m_isSilent) {
            std::this_thread::sleep_for(std::chrono::milliseconds(sliceMs));
            continue;
        }
        serveOnce();
        std::this_thread::yield();
    }
}

void TcpProxy::serveOnce()
{
    const std::lock_guard<std::mutex> lock(m_guard);
    if (m_isSilent)
        return;
    std::vector<pollfd> all{{m_listener, POLLIN, 0}};
    for (const Pair &pair : m_pairs) {
        all.push_back({pair.client, POLLIN, 0});
        all.push_back({pair.server, POLLIN, 0});
    }
    if (::poll(all.data(), all.size(), sliceMs) <= 0)
        return;
    std::vector<Pair> kept;
    for (size_t i = 0; i < m_pairs.size(); ++i) {
        Pair pair = m_pairs.at(i);
        const bool fromServer = all.at(2 * i + 2).revents != 0;
        const bool isAlive = (all.at(2 * i + 1).revents == 0 || passOn(pair.client, pair.server, false)) &&
                             (!fromServer || passOn(pair.server, pair.client, !pair.isGreeted));
        pair.isGreeted = pair.isGreeted || fromServer;
        if (isAlive) {
            kept.push_back(pair);
        } else {
            ::close(pair.client);
            ::close(pair.server);
        }
    }
    m_pairs = kept;
    if (all.front().revents != 0)
        acceptOne();
}

void TcpProxy::acceptOne()
{
    const int client = ::accept(m_listener, nullptr, nullptr);
    const int server = newSocket();
    sockaddr_in address = loopback(m_server.port);
    if (client < 0 || ::connect(server, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0)
        qFatal("The proxy does not reach the server");
    m_pairs.push_back({client, server, false});
}

bool TcpProxy::passOn(int from, int to, bool isGreeting) const
{
    std::array<char, 65536> bytes{};
    const ssize_t count = ::recv(from, bytes.data(), bytes.size(), 0);
    if (count <= 0)
        return false;
    if (isGreeting && m_hidesEncryption)
        takeEncryptionOut(bytes.data(), static_cast<size_t>(count));
    return ::send(to, bytes.data(), static_cast<size_t>(count), MSG_NOSIGNAL) == count;
}
