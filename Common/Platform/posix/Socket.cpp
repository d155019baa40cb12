#include "Socket.h"

#include "ThreadQueue.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <new>
#include <utility>

#include <arpa/inet.h>
#include <cerrno>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

namespace vdicom::platform {

namespace {

constexpr std::size_t kMostParts = 64;

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { freeaddrinfo(addresses); }
};

struct ErrorPair {
    int system;
    int windows;
};
constexpr ErrorPair kErrors[] = {
    {EINTR, 10004},        {EBADF, 10009},           {EACCES, 10013},          {EPERM, 10013},
    {EFAULT, 10014},       {EINVAL, 10022},          {EMFILE, 10024},          {ENFILE, 10024},
    {EAGAIN, 10035},       {EWOULDBLOCK, 10035},     {EINPROGRESS, 10036},     {EALREADY, 10037},
    {ENOTSOCK, 10038},     {EDESTADDRREQ, 10039},    {EMSGSIZE, 10040},        {EPROTOTYPE, 10041},
    {ENOPROTOOPT, 10042},  {EPROTONOSUPPORT, 10043}, {ESOCKTNOSUPPORT, 10044}, {EOPNOTSUPP, 10045},
    {EAFNOSUPPORT, 10047}, {EADDRINUSE, 10048},      {EADDRNOTAVAIL, 10049},   {ENETDOWN, 10050},
    {ENETUNREACH, 10051},  {ENETRESET, 10052},       {ECONNABORTED, 10053},    {ECONNRESET, 10054},
    {ENOBUFS, 10055},      {ENOMEM, 10055},          {EISCONN, 10056},         {ENOTCONN, 10057},
    {ESHUTDOWN, 10058},    {EPIPE, 10058},           {ETIMEDOUT, 10060},       {ECONNREFUSED, 10061},
    {EHOSTDOWN, 10064},    {EHOSTUNREACH, 10065},
};

int LastError() { return SocketErrorOf(errno); }
int ResultOf(int returned) { return returned == 0 ? 0 : LastError(); }
int DescriptorOf(SocketHandle socket) { return static_cast<int>(socket); }

const sockaddr* Native(const SocketAddress& address) { return reinterpret_cast<const sockaddr*>(address.bytes); }

/// SO_ERROR, which reading clears.
int PendingError(int descriptor) {
    int error = 0;
    socklen_t size = sizeof error;
    if (getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) != 0)
        error = errno;
    return error == 0 ? 0 : SocketErrorOf(error);
}

enum class State : unsigned char { unconnected, connecting, connected, listening };

State StateOf(int descriptor) {
    tcp_info info{};
    socklen_t size = sizeof info;
    if (getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) != 0 || info.tcpi_state == TCP_CLOSE)
        return State::unconnected;
    return info.tcpi_state == TCP_LISTEN                                        ? State::listening
           : info.tcpi_state == TCP_SYN_SENT || info.tcpi_state == TCP_SYN_RECV ? State::connecting
                                                                                : State::connected;
}

bool IsReadable(int descriptor) {
    pollfd state{descriptor, POLLIN, 0};
    return poll(&state, 1, 0) == 1;
}

/// The selections of one thread. epoll reports changes alone (edges); what is left of older ones is asked for when an
/// operation arms an event again, before the loop waits the next time.
class SocketEvents : public EventSource {
public:
    explicit SocketEvents(ThreadQueue& queue) : m_queue(queue) {}

    /// Those of this thread; null when there are none and `make` is false, or no memory.
    static SocketEvents* Current(bool make) {
        ThreadQueue* queue = ThreadQueue::Current();
        if (queue != nullptr && queue->Source() == nullptr && make) {
            try {
                queue->SetSource(std::make_unique<SocketEvents>(*queue));
            } catch (const std::bad_alloc&) {
                return nullptr;
            }
        }
        return queue == nullptr ? nullptr : static_cast<SocketEvents*>(queue->Source());
    }

    int Select(int descriptor, WindowHandle window, unsigned int message, unsigned int events);
    void Forget(int descriptor);

    /// @name What operations tell of a socket, selected or not
    /// @{
    void Listening(int descriptor) {
        if (Selection* selection = Find(descriptor))
            selection->state = State::listening;
    }
    void Connecting(int descriptor) {
        if (Selection* selection = Find(descriptor))
            selection->state = State::connecting;
    }
    /// @param drained nothing was left when it was asked
    void Received(int descriptor, bool drained, bool ended, int error) {
        Selection* selection = Find(descriptor);
        if (selection == nullptr)
            return;
        selection->readArmed = true;
        if (ended)
            selection->ended = true;
        if (error != 0)
            selection->error = error;
        if (!drained || selection->ended)
            SetDue(*selection);
    }
    void WouldBlock(int descriptor) {
        if (Selection* selection = Find(descriptor))
            selection->writeArmed = true;
    }
    void Accepted(int descriptor, bool starved) {
        Selection* selection = Find(descriptor);
        if (selection == nullptr)
            return;
        selection->acceptArmed = true;
        // Without descriptors the waiting connection stays; it is looked at again when one has become free.
        selection->starved = starved;
        m_anyStarved = m_anyStarved || starved;
        if (!starved)
            SetDue(*selection);
    }
    /// @}

    void OnReady(int descriptor, std::uint32_t events) override;
    void BeforeWait() override;
    bool IsDue() const override { return !m_due.empty(); }

private:
    struct Selection {
        int descriptor;
        WindowHandle window;
        unsigned int message;
        unsigned int events;
        State state;
        bool readArmed = true;
        bool writeArmed = true;
        bool acceptArmed = true;
        bool starved = false;
        bool ended = false; ///< the peer sends nothing more
        bool closePosted = false;
        bool due = false;
        int error = 0;
    };

    Selection* Find(int descriptor) {
        const auto index = static_cast<std::size_t>(descriptor);
        return index < m_selections.size() ? m_selections[index].get() : nullptr;
    }
    void SetDue(Selection& selection) {
        if (!std::exchange(selection.due, true))
            m_due.push_back(selection.descriptor); // there is room for all of them
    }
    /// Posts an event that is armed and selected; one that cannot be posted is tried again.
    void Post(Selection& selection, unsigned int event, int error, bool& armed);
    void Check(Selection& selection);

    ThreadQueue& m_queue;
    std::vector<std::unique_ptr<Selection>> m_selections; ///< by descriptor
    std::vector<int> m_due;
    bool m_anyStarved = false;
};

void SocketEvents::Post(Selection& selection, unsigned int event, int error, bool& armed) {
    if (!armed || (selection.events & event) == 0)
        return;
    const auto words = static_cast<std::uint32_t>(error) << 16 | event;
    armed = !m_queue.Post({selection.window, selection.message, static_cast<std::uintptr_t>(selection.descriptor),
                           static_cast<std::intptr_t>(words)});
    if (armed)
        SetDue(selection);
}

int SocketEvents::Select(int descriptor, WindowHandle window, unsigned int message, unsigned int events) {
    if (events == 0) {
        Forget(descriptor);
        return 0;
    }
    if (!IsOwnWindow(window) || descriptor < 0)
        return SocketErrorOf(EINVAL);
    if (Selection* selection = Find(descriptor)) {
        selection->window = window;
        selection->message = message;
        selection->events = events;
        selection->readArmed = selection->acceptArmed = true;
        SetDue(*selection);
        return 0;
    }
    State state = StateOf(descriptor);
    // An accepted one that its peer has broken off already looks like one that was never connected.
    const int error = state == State::unconnected ? PendingError(descriptor) : 0;
    if (error != 0)
        state = State::connected;
    const auto index = static_cast<std::size_t>(descriptor);
    try {
        if (index >= m_selections.size())
            m_selections.resize(index + index / 2 + 16);
        m_due.reserve(std::max(m_due.capacity(), m_selections.size()));
        m_selections[index] = std::make_unique<Selection>(Selection{descriptor, window, message, events, state});
        m_selections[index]->ended = error != 0;
        m_selections[index]->error = error;
    } catch (const std::bad_alloc&) {
        return kSocketNoBuffers;
    }
    if (!m_queue.Watch(descriptor, EPOLLIN | EPOLLOUT | EPOLLRDHUP | static_cast<std::uint32_t>(EPOLLET))) {
        const int failure = LastError();
        m_selections[index].reset();
        return failure;
    }
    return 0;
}

void SocketEvents::Forget(int descriptor) {
    if (Find(descriptor) == nullptr)
        return;
    m_queue.Unwatch(descriptor);
    m_selections[static_cast<std::size_t>(descriptor)].reset();
    m_due.erase(std::remove(m_due.begin(), m_due.end(), descriptor), m_due.end());
    if (!std::exchange(m_anyStarved, false))
        return;
    for (const auto& selection : m_selections) {
        if (selection != nullptr && std::exchange(selection->starved, false))
            SetDue(*selection);
    }
}

void SocketEvents::OnReady(int descriptor, std::uint32_t events) {
    Selection* selection = Find(descriptor);
    if (selection == nullptr)
        return;
    if (selection->state == State::connecting && (events & (EPOLLOUT | EPOLLERR | EPOLLHUP)) != 0) {
        const int error = PendingError(descriptor);
        selection->state = error == 0 ? State::connected : State::unconnected;
        bool armed = true;
        Post(*selection, kConnectEvent, error, armed);
    }
    if (selection->state == State::listening || selection->state == State::connected) {
        if ((events & (EPOLLRDHUP | EPOLLHUP | EPOLLERR)) != 0)
            selection->ended = true;
        if ((events & EPOLLOUT) != 0 && selection->state == State::connected)
            Post(*selection, kWriteEvent, 0, selection->writeArmed);
        // Without an end to be read, readable means that there are bytes.
        if ((events & EPOLLIN) != 0 && selection->state == State::connected && !selection->ended)
            Post(*selection, kReadEvent, 0, selection->readArmed);
        else
            Check(*selection);
    }
}

void SocketEvents::Check(Selection& selection) {
    if (selection.state == State::listening) {
        if (selection.acceptArmed && IsReadable(selection.descriptor))
            Post(selection, kAcceptEvent, 0, selection.acceptArmed);
        return;
    }
    if (selection.state != State::connected || !selection.readArmed)
        return;
    int bytes = 0;
    if ((selection.events & kReadEvent) != 0 && ioctl(selection.descriptor, FIONREAD, &bytes) == 0 && bytes > 0) {
        Post(selection, kReadEvent, 0, selection.readArmed);
        return;
    }
    if (!selection.ended || selection.closePosted)
        return;
    if (selection.error == 0)
        selection.error = PendingError(selection.descriptor);
    bool armed = true;
    Post(selection, kCloseEvent, selection.error, armed);
    selection.closePosted = !armed;
}

void SocketEvents::BeforeWait() {
    const std::size_t count = m_due.size();
    for (std::size_t i = 0; i < count; ++i) {
        Selection& selection = *Find(m_due[i]);
        selection.due = false;
        Check(selection);
    }
    m_due.erase(m_due.begin(), m_due.begin() + static_cast<std::ptrdiff_t>(count));
}

} // namespace

int SocketErrorOf(int platformError) {
    for (const ErrorPair& pair : kErrors) {
        if (pair.system == platformError)
            return pair.windows;
    }
    return platformError;
}

int StartSockets() { return 0; }

void StopSockets() {}

int ResolveAddress(const char* host, unsigned int port, bool listening, std::vector<SocketAddress>& addresses) {
    if (port > 0xFFFF)
        return SocketErrorOf(EINVAL);
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV | (listening ? AI_PASSIVE : 0);
    addrinfo* found = nullptr;
    const int code = getaddrinfo(host, std::to_string(port).c_str(), &hints, &found);
    switch (code) {
    case 0:
        break;
    case EAI_AGAIN:
        return 11002;
    case EAI_FAIL:
        return 11003;
    case EAI_MEMORY:
        return kSocketNoBuffers;
    case EAI_SYSTEM:
        return LastError();
    default:
        return 11001;
    }
    const std::unique_ptr<addrinfo, FreeAddresses> owned(found);
    addresses.clear();
    for (const addrinfo* at = found; at != nullptr; at = at->ai_next) {
        SocketAddress address;
        if (at->ai_addrlen > sizeof address.bytes)
            continue;
        address.size = at->ai_addrlen;
        std::memcpy(address.bytes, at->ai_addr, at->ai_addrlen);
        addresses.push_back(address);
    }
    return addresses.empty() ? 11001 : 0;
}

void DescribeAddress(const SocketAddress& address, std::string& text, unsigned int& port) {
    char host[NI_MAXHOST] = "";
    char service[NI_MAXSERV] = "0";
    getnameinfo(Native(address), address.size, host, sizeof host, service, sizeof service,
                NI_NUMERICHOST | NI_NUMERICSERV);
    text = host;
    port = static_cast<unsigned int>(std::strtoul(service, nullptr, 10));
}

std::uint64_t RaiseDescriptorLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return 0;
    const rlim_t before = std::exchange(limit.rlim_cur, limit.rlim_max);
    if (setrlimit(RLIMIT_NOFILE, &limit) != 0)
        limit.rlim_cur = before;
    return limit.rlim_cur == RLIM_INFINITY ? 0 : limit.rlim_cur;
}

int OpenSocket(const SocketAddress& kind, SocketHandle& handle) {
    handle = socket(Native(kind)->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    return handle >= 0 ? 0 : LastError();
}

OptionResult SetSocketOptions(SocketHandle handle, const SocketOptions& options, int& error) {
    const int descriptor = DescriptorOf(handle);
    const auto set = [&](int level, int option, int value) {
        const bool done = setsockopt(descriptor, level, option, &value, sizeof value) == 0;
        error = done ? 0 : LastError();
        return done;
    };
    // A peer that is switched off is noticed, though it says nothing.
    if (!set(SOL_SOCKET, SO_KEEPALIVE, options.keepAlive ? 1 : 0))
        return OptionResult::keepAliveFailed;
    if ((options.sendBuffer != 0 && !set(SOL_SOCKET, SO_SNDBUF, options.sendBuffer)) ||
        (options.receiveBuffer != 0 && !set(SOL_SOCKET, SO_RCVBUF, options.receiveBuffer)))
        return OptionResult::failed;
    // A server that is started again takes its port though connections of the last one are in TIME_WAIT.
    if (!set(SOL_SOCKET, SO_REUSEADDR, 1))
        return OptionResult::failed;
    // An IPv6 socket that listens at every address takes IPv4 as well; on others, and on IPv4, this changes nothing.
    set(IPPROTO_IPV6, IPV6_V6ONLY, 0);
    // Messages are small and wait for answers: Nagle's algorithm would hold each for 40 ms.
    set(IPPROTO_TCP, TCP_NODELAY, 1);
    error = 0;
    return OptionResult::done;
}

int BindSocket(SocketHandle handle, const SocketAddress& address) {
    return ResultOf(bind(DescriptorOf(handle), Native(address), address.size));
}

int ListenSocket(SocketHandle handle, int backlog) {
    const int error = ResultOf(listen(DescriptorOf(handle), backlog));
    SocketEvents* events = SocketEvents::Current(false);
    if (error == 0 && events != nullptr)
        events->Listening(DescriptorOf(handle));
    return error;
}

int ConnectSocket(SocketHandle handle, const SocketAddress& address) {
    const int returned = connect(DescriptorOf(handle), Native(address), address.size);
    if (returned != 0 && errno != EINPROGRESS && errno != EINTR)
        return LastError();
    if (SocketEvents* events = SocketEvents::Current(false))
        events->Connecting(DescriptorOf(handle));
    return 0;
}

int AcceptSocket(SocketHandle listener, SocketHandle& handle) {
    int returned = -1;
    do
        returned = accept4(DescriptorOf(listener), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    while (returned < 0 && errno == EINTR);
    const int error = returned < 0 ? LastError() : 0;
    handle = returned;
    if (SocketEvents* events = SocketEvents::Current(false))
        events->Accepted(DescriptorOf(listener), error == SocketErrorOf(EMFILE) || error == kSocketNoBuffers);
    return error;
}

void CloseSocket(SocketHandle handle) {
    if (handle < 0)
        return;
    if (SocketEvents* events = SocketEvents::Current(false))
        events->Forget(DescriptorOf(handle));
    close(DescriptorOf(handle));
}

int ReceiveFrom(SocketHandle handle, void* buffer, std::size_t size, std::size_t& done) {
    const int descriptor = DescriptorOf(handle);
    ssize_t returned = -1;
    do
        returned = recv(descriptor, buffer, std::min<std::size_t>(size, INT_MAX), 0);
    while (returned < 0 && errno == EINTR);
    const int error = returned < 0 ? LastError() : 0;
    done = returned < 0 ? 0 : static_cast<std::size_t>(returned);
    const bool broken = error != 0 && error != kSocketWouldBlock;
    if (done != 0) {
        // Peers that write header and body apart wait for an acknowledgement in between; the system forgets this
        // setting again and again.
        const int on = 1;
        setsockopt(descriptor, IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
    }
    const bool ended = broken || (error == 0 && done == 0 && size != 0);
    if (SocketEvents* events = SocketEvents::Current(false))
        events->Received(descriptor, done < size, ended, broken ? error : 0);
    return error;
}

int CountWaiting(SocketHandle handle, std::size_t& bytes) {
    int count = 0;
    const int error = ResultOf(ioctl(DescriptorOf(handle), FIONREAD, &count));
    bytes = error != 0 ? 0 : static_cast<std::size_t>(count);
    return error;
}

int SendTo(SocketHandle handle, const SendPart* parts, std::size_t count, std::size_t& done) {
    std::array<iovec, kMostParts> vectors{};
    msghdr message{};
    message.msg_iov = vectors.data();
    message.msg_iovlen = std::min(count, kMostParts);
    for (std::size_t i = 0; i < message.msg_iovlen; ++i)
        vectors[i] = {const_cast<void*>(parts[i].data), parts[i].size};
    ssize_t returned = -1;
    do
        returned = sendmsg(DescriptorOf(handle), &message, MSG_NOSIGNAL);
    while (returned < 0 && errno == EINTR);
    const int error = returned < 0 ? LastError() : 0;
    done = returned < 0 ? 0 : static_cast<std::size_t>(returned);
    if (error == kSocketWouldBlock) {
        if (SocketEvents* events = SocketEvents::Current(false))
            events->WouldBlock(DescriptorOf(handle));
    }
    return error;
}

namespace {

template <class Name> int AddressBy(Name name, SocketHandle handle, SocketAddress& address) {
    socklen_t size = sizeof address.bytes;
    const int error = ResultOf(name(DescriptorOf(handle), reinterpret_cast<sockaddr*>(address.bytes), &size));
    address.size = error != 0 ? 0 : size;
    return error;
}

} // namespace

int LocalAddress(SocketHandle handle, SocketAddress& address) { return AddressBy(getsockname, handle, address); }

int PeerAddress(SocketHandle handle, SocketAddress& address) { return AddressBy(getpeername, handle, address); }

int SelectSocketEvents(SocketHandle handle, WindowHandle window, unsigned int message, unsigned int events) {
    SocketEvents* current = SocketEvents::Current(events != 0);
    if (current == nullptr)
        return events == 0 ? 0 : kSocketNoBuffers;
    return current->Select(DescriptorOf(handle), window, message, events);
}

} // namespace vdicom::platform
