#pragma once

#include "connection.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// Stands between the program and the test server. It can fall silent, as a stopped server does or a pulled
/// cable, it can be a slow line, and it can hide that the server encrypts.
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
    /// From now on whatever the server answers comes so much later, on each connection for itself.
    void setDelay(int ms) { m_delayMs = ms; }
    /// Whoever is connected is cut off, and nobody gets in, as with a server that is not running.
    void setDown(bool isDown);
    /// From now on the server's greetings do not offer encryption.
    void hideEncryption() { m_hidesEncryption = true; }

private:
    using Clock = std::chrono::steady_clock;
    struct Answer
    {
        std::string bytes;
        Clock::time_point due;
    };
    struct Pair
    {
        int client = -1;
        int server = -1;
        bool isGreeted = false;
        /// The server has hung up: so does the proxy when everything is passed on.
        bool isEnded = false;
        std::deque<Answer> held;
    };
    void listen();
    void serve();
    void serveOnce();
    void acceptOne();
    void hold(Pair *pair) const;
    static bool passOn(Pair *pair);

    DatabaseAddress m_server;
    int m_listener = -1;
    int m_port = 0;
    std::vector<Pair> m_pairs;
    std::mutex m_guard;
    std::atomic<bool> m_isSilent{false};
    std::atomic<int> m_delayMs{0};
    std::atomic<bool> m_hidesEncryption{false};
    std::atomic<bool> m_isLeaving{false};
    std::thread m_thread;
};
