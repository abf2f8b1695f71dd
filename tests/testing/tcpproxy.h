#pragma once

#include "connection.h"

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

/// Stands between the program and the test server. It can fall silent, as a stopped server does or a pulled
/// cable, and it can hide that the server encrypts.
class TcpProxy
{
public:
    explicit TcpProxy(const DatabaseAddress &server);
    ~TcpProxy();
    Q_DISABLE_COPY(TcpProxy)

    /// The server's address, through this proxy.
    DatabaseAddress address() const;
    /// Nothing is passed on to anybody, and whoever comes waits; what was held back is passed on afterwards.
    void setSilent(bool isSilent);
    /// From now on the server's greetings do not offer encryption.
    void hideEncryption() { m_hidesEncryption = true; }

private:
    struct Pair
    {
        int client;
        int server;
        bool isGreeted;
    };
    void serve();
    void serveOnce();
    void acceptOne();
    bool passOn(int from, int to, bool isGreeting) const;

    DatabaseAddress m_server;
    int m_listener = -1;
    int m_port = 0;
    std::vector<Pair> m_pairs;
    std::mutex m_guard;
    std::atomic<bool> m_isSilent{false};
    std::atomic<bool> m_hidesEncryption{false};
    std::atomic<bool> m_isLeaving{false};
    std::thread m_thread;
};
