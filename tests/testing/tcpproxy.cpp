#include "tcpproxy.h"

#include <arpa/inet.h>
#include <array>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

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
void takeEncryptionOut(std::string *greeting)
{
    const size_t end = greeting->find('\0', 5);
    if (end != std::string::npos)
        greeting->at(end + 1 + 13 + 1) &= ~0x08;
}

/// Empty when the other end has hung up.
std::string receive(int socket)
{
    std::array<char, 65536> bytes{};
    const ssize_t count = ::recv(socket, bytes.data(), bytes.size(), 0);
    return std::string(bytes.data(), count > 0 ? static_cast<size_t>(count) : 0);
}

bool send(int socket, const std::string &bytes)
{
    return !bytes.empty() &&
           ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}
} // namespace

TcpProxy::TcpProxy(const DatabaseAddress &server) : m_server(server)
{
    listen();
    m_thread = std::thread([this] { serve(); });
}

/// On the port of before, if there was one.
void TcpProxy::listen()
{
    m_listener = newSocket();
    const int on = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in own = loopback(m_port);
    socklen_t size = sizeof own;
    auto *address = reinterpret_cast<sockaddr *>(&own);
    if (::bind(m_listener, address, size) != 0 || ::listen(m_listener, 50) != 0 ||
        ::getsockname(m_listener, address, &size) != 0)
        qFatal("No port for the proxy");
    m_port = ntohs(own.sin_port);
}

TcpProxy::~TcpProxy()
{
    m_isLeaving = true;
    m_thread.join();
    setDown(true);
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

void TcpProxy::setDown(bool isDown)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    if (!isDown)
        return listen();
    ::close(std::exchange(m_listener, -1));
    for (const Pair &pair : std::exchange(m_pairs, {})) {
        ::close(pair.client);
        ::close(pair.server);
    }
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
        // Negative: not listened to.
        all.push_back({pair.isEnded ? -1 : pair.server, POLLIN, 0});
    }
    ::poll(all.data(), all.size(), sliceMs);
    std::vector<Pair> kept;
    for (size_t i = 0; i < m_pairs.size(); ++i) {
        Pair &pair = m_pairs.at(i);
        if (all.at(2 * i + 2).revents != 0)
            hold(&pair);
        const bool isAsked = all.at(2 * i + 1).revents != 0;
        if ((!isAsked || send(pair.server, receive(pair.client))) && passOn(&pair)) {
            kept.push_back(std::move(pair));
        } else {
            ::close(pair.client);
            ::close(pair.server);
        }
    }
    m_pairs = std::move(kept);
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
    Pair pair;
    pair.client = client;
    pair.server = server;
    m_pairs.push_back(std::move(pair));
}

/// Takes what the server says; it is due after the delay.
void TcpProxy::hold(Pair *pair) const
{
    std::string bytes = receive(pair->server);
    pair->isEnded = bytes.empty();
    if (!pair->isGreeted && !pair->isEnded && m_hidesEncryption)
        takeEncryptionOut(&bytes);
    pair->isGreeted = true;
    if (!pair->isEnded)
        pair->held.push_back({std::move(bytes), Clock::now() + std::chrono::milliseconds(m_delayMs)});
}

/// Gives the client what is due; false when that was all there is, or the client has gone.
bool TcpProxy::passOn(Pair *pair)
{
    while (!pair->held.empty() && pair->held.front().due <= Clock::now()) {
        if (!send(pair->client, pair->held.front().bytes))
            return false;
        pair->held.pop_front();
    }
    return !pair->isEnded || !pair->held.empty();
}
