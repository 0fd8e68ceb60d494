// SPDX-License-Identifier: MIT
#include "simulator/listener.h"

#include "simulator/socketaddress.h"

#include <QtCore/QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace simulator {
namespace {

constexpr std::size_t mostPeers = 16; ///< the one that has been there longest gives way to another
constexpr int longestRequest = 64 * 1024;
constexpr int piece = 4096;
constexpr int pauseAfterRefusal = 100; ///< milliseconds

QString lastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// A file of the system that is closed with its object.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int opened) : number(opened)
    {
        if (number >= 0) {
            fcntl(number, F_SETFD, FD_CLOEXEC);
            fcntl(number, F_SETFL, O_NONBLOCK);
        }
    }
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        reset();
        number = std::exchange(other.number, -1);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return number; }
    [[nodiscard]] bool isOpen() const { return number >= 0; }
    void reset()
    {
        if (number >= 0) {
            close(std::exchange(number, -1));
        }
    }

private:
    int number = -1;
};

/// Whoever sends a command.
struct Peer {
    Descriptor socket;
    QByteArray request;
    QByteArray answer; ///< what of it is still to be sent; empty: the request is not complete
};

/// Whether the other side has closed altogether; whoever has but ended the request waits for the
/// answer.
bool hasGone(const Descriptor& socket)
{
    pollfd state{socket.get(), 0, 0};
    return poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
}

/// Takes more of the request, or gives more of the answer. False when the peer is done with.
bool serve(Peer& peer, const Listener::Handler& handler)
{
    if (peer.answer.isEmpty()) {
        std::array<char, piece> bytes{};
        const ssize_t count = recv(peer.socket.get(), bytes.data(), bytes.size(), 0);
        if (count < 0) {
            return errno == EAGAIN || errno == EINTR;
        }
        peer.request.append(bytes.data(), static_cast<int>(count));
        if (count > 0 && peer.request.size() <= longestRequest) {
            return true;
        }
        // Somebody who was told that nobody answers does not count on its being done.
        if (hasGone(peer.socket)) {
            return false;
        }
        peer.answer = handler(peer.request.left(longestRequest + 1));
    }
    const ssize_t count = send(peer.socket.get(), peer.answer.constData(),
                               static_cast<std::size_t>(peer.answer.size()), MSG_NOSIGNAL);
    if (count < 0) {
        return errno == EAGAIN || errno == EINTR;
    }
    peer.answer.remove(0, static_cast<int>(count));
    return !peer.answer.isEmpty();
}

/// What tells a file from every other one that there is.
struct Identity {
    dev_t device;
    ino_t number;
    bool operator==(const Identity&) const = default;
};

std::optional<Identity> identityOf(const char* path)
{
    struct stat facts {};
    return lstat(path, &facts) == 0 ? std::optional<Identity>({facts.st_dev, facts.st_ino})
                                    : std::nullopt;
}

/// The right to put a socket at a path or to take one away, which one process has at a time. A lock
/// file that a killed process leaves is in nobody's way: the right ends with the process.
class PathLock {
public:
    /// Waits for it.
    explicit PathLock(const QByteArray& socketPath);
    ~PathLock();
    PathLock(const PathLock&) = delete;
    PathLock& operator=(const PathLock&) = delete;

    [[nodiscard]] bool isHeld() const { return file.isOpen(); }

private:
    QByteArray path;
    Descriptor file;
    bool isOurs = false; ///< an empty file, and no other one that has its name
};

PathLock::PathLock(const QByteArray& socketPath) : path(socketPath + ".lock")
{
    for (;;) {
        Descriptor opened(
            open(path.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
        struct stat facts {};
        if (!opened.isOpen() || fstat(opened.get(), &facts) != 0) {
            return;
        }
        if (flock(opened.get(), LOCK_EX) != 0) {
            if (errno != EINTR) {
                return;
            }
        } else if (identityOf(path.constData()) == Identity{facts.st_dev, facts.st_ino}) {
            isOurs = S_ISREG(facts.st_mode) && facts.st_size == 0;
            file = std::move(opened);
            return;
        }
        // Interrupted; or whoever had it before has deleted the file.
    }
}

PathLock::~PathLock()
{
    if (isOurs) {
        unlink(path.constData());
    }
}

/// Whether the path is the socket of a process that has ended without taking it away.
bool isLeftBehind(const SocketAddress& address)
{
    struct stat facts {};
    if (lstat(address.path(), &facts) != 0 || !S_ISSOCK(facts.st_mode)) {
        return false;
    }
    const Descriptor probe(socket(AF_UNIX, SOCK_STREAM, 0));
    return connect(probe.get(), address.get(), SocketAddress::size()) != 0 && errno == ECONNREFUSED;
}

} // namespace

class Listener::Thread {
public:
    Thread(QByteArray socketPath, Handler handle)
        : path(std::move(socketPath)), handler(std::move(handle))
    {}
    ~Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    QString start();

private:
    QString bindTo(const SocketAddress& address);
    void run();

    QByteArray path;
    Handler handler;
    pid_t owner = getpid();
    Descriptor listener;
    std::optional<Identity> own; ///< of the socket at the path
    Descriptor endOfWork;        ///< an event
    std::thread worker;
};

QString Listener::Thread::bindTo(const SocketAddress& address)
{
    // A socket that another simulator has bound and does not listen at yet looks left behind.
    const PathLock lock(path);
    if (!lock.isHeld()) {
        return lastError();
    }
    Descriptor opened(socket(AF_UNIX, SOCK_STREAM, 0));
    if (bind(opened.get(), address.get(), SocketAddress::size()) != 0) {
        if (errno != EADDRINUSE) {
            return lastError();
        }
        if (!isLeftBehind(address)) {
            return QStringLiteral("something is there already");
        }
        unlink(address.path());
        if (bind(opened.get(), address.get(), SocketAddress::size()) != 0) {
            return lastError();
        }
    }
    // Nobody can connect before there is a listener.
    if (chmod(address.path(), S_IRUSR | S_IWUSR) != 0 ||
        listen(opened.get(), static_cast<int>(mostPeers)) != 0) {
        QString reason = lastError();
        unlink(address.path());
        return reason;
    }
    own = identityOf(address.path());
    listener = std::move(opened);
    return {};
}

QString Listener::Thread::start()
{
    const SocketAddress address(path.toStdString());
    if (!address.isValid()) {
        return QStringLiteral("the name is too long");
    }
    endOfWork = Descriptor(eventfd(0, 0));
    if (!endOfWork.isOpen()) {
        return lastError();
    }
    QString reason = bindTo(address);
    if (!reason.isEmpty()) {
        return reason;
    }
    // Signals are for the threads of the program.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        worker = std::thread([this] { run(); });
    } catch (const std::system_error& error) {
        reason = QString::fromLocal8Bit(error.what());
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return reason;
}

Listener::Thread::~Thread()
{
    if (getpid() != owner) {
        // The copy of a fork has neither the thread nor a right to the socket.
        worker.detach();
        return;
    }
    if (worker.joinable()) {
        eventfd_write(endOfWork.get(), 1);
        worker.join();
    }
    if (!listener.isOpen()) {
        return;
    }
    const SocketAddress address(path.toStdString());
    const PathLock lock(path);
    if (lock.isHeld() && own == identityOf(address.path())) {
        unlink(address.path());
    }
}

void Listener::Thread::run()
{
    std::vector<Peer> peers;
    bool refused = false; // a peer that stays in the queue, for want of descriptors
    for (;;) {
        std::vector<pollfd> events = {{endOfWork.get(), POLLIN, 0},
                                      {refused ? -1 : listener.get(), POLLIN, 0}};
        for (const Peer& peer : peers) {
            const auto wanted = static_cast<short>(peer.answer.isEmpty() ? POLLIN : POLLOUT);
            events.push_back({peer.socket.get(), wanted, 0});
        }
        const int patience = refused ? pauseAfterRefusal : -1;
        if (poll(events.data(), static_cast<nfds_t>(events.size()), patience) < 0) {
            continue;
        }
        if (events[0].revents != 0) {
            return;
        }
        auto event = events.cbegin() + 2;
        std::erase_if(peers,
                      [&](Peer& peer) { return (event++)->revents != 0 && !serve(peer, handler); });
        refused = false;
        if (events[1].revents != 0) {
            Descriptor socket(accept(listener.get(), nullptr, nullptr));
            refused = !socket.isOpen();
            if (!refused) {
                if (peers.size() == mostPeers) {
                    peers.erase(peers.begin());
                }
                peers.push_back({std::move(socket), {}, {}});
            }
        }
    }
}

Listener::Listener() = default;
Listener::~Listener() = default;

QString Listener::start(const QString& path, Handler handler)
{
    stop();
    auto started = std::make_unique<Thread>(QFile::encodeName(path), std::move(handler));
    QString reason = started->start();
    if (reason.isEmpty()) {
        thread = std::move(started);
    }
    return reason;
}

void Listener::stop()
{
    thread.reset();
}

} // namespace simulator
