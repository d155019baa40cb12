#include "Connection.h"

#include "Guarded.h"

#include <string_view>
#include <utility>

namespace vdicom {

namespace {

constexpr unsigned int kClientEvents =
    platform::kReadEvent | platform::kWriteEvent | platform::kConnectEvent | platform::kCloseEvent;
constexpr unsigned int kServerEvents = platform::kAcceptEvent | platform::kConnectEvent | platform::kCloseEvent;
constexpr unsigned int kAcceptedEvents = platform::kReadEvent | platform::kWriteEvent | platform::kCloseEvent;
constexpr std::uintptr_t kTimer = 1;

unsigned int CodeOf(int socketError) {
    return socketError == 0 ? DICOM_OK : VDicomNet::GetError(static_cast<VDicomULong>(socketError));
}

/// The object behind a window; null while it has none.
VDicomNet* NetOf(platform::WindowHandle window) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): slots hold numbers
    return reinterpret_cast<VDicomNet*>(platform::GetWindowSlot(window, Connection::objectSlot));
}

bool IsGiven(const char* text) { return text != nullptr && *text != '\0'; }

} // namespace

Connection::Connection(VDicomNet& net, const char* tempPath)
    : requested(1), accepted(0), assembler(tempPath), m_net(net), m_tempPath(tempPath == nullptr ? "" : tempPath),
      m_command(tempPath) {}

Connection::~Connection() {
    Close();
    Forget();
}

unsigned int Connection::SetTempPath(const char* path) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        m_tempPath = path == nullptr ? "" : path;
        assembler.SetTempPath(path);
        return DICOM_OK;
    });
}

Connection::Watch::Watch(Connection& connection) : m_connection(&connection), m_outer(connection.m_watch) {
    connection.m_watch = this;
}

Connection::Watch::~Watch() {
    if (m_connection != nullptr)
        m_connection->m_watch = m_outer;
}

// Nobody up the stack may touch the connection any more.
void Connection::Forget() {
    for (Watch* watch = m_watch; watch != nullptr; watch = watch->m_outer)
        watch->m_connection = nullptr;
    m_watch = nullptr;
    m_dispatching = m_writing = false;
}

unsigned int Connection::MakeWindow(platform::WindowHandle parent) {
    assembler.Reset();
    m_receiver.Reset();
    m_queue.Clear();
    m_layer.Close();
    m_closing = m_finished = m_unusable = m_readPosted = m_readMissed = m_writePosted = false;
    m_closeError = 0;
    for (Clock::time_point& deadline : m_deadlines)
        deadline = {};
    m_window = m_queue.Prepare() ? platform::CreateMessageWindow("VDicomNet", parent) : platform::kNoWindow;
    if (m_window == platform::kNoWindow)
        return DICOM_ERROR_MEMORY;
    std::fill(std::begin(m_shown), std::end(m_shown), std::uintptr_t{0});
    platform::SetWindowSlot(m_window, objectSlot, reinterpret_cast<std::uintptr_t>(&m_net));
    platform::SetWindowSlot(m_window, serverSlot, parent);
    SetSocket(m_socket);
    ShowQueue();
    StartTimer();
    return DICOM_OK;
}

void Connection::SetSocket(platform::SocketHandle socket) {
    m_socket = socket;
    platform::SetWindowSlot(m_window, socketSlot, static_cast<std::uintptr_t>(socket));
}

// Most messages come and leave whole: what the slots show then does not change.
void Connection::Show(Slot slot, std::uintptr_t value) {
    if (std::exchange(m_shown[slot], value) != value)
        platform::SetWindowSlot(m_window, slot, value);
}

bool Connection::PostEvent(unsigned int event) {
    return platform::PostToWindow(m_window, DICOM_NET_MESSAGE, static_cast<std::uintptr_t>(m_socket),
                                  static_cast<std::intptr_t>(event));
}

unsigned int Connection::OpenAndBind(const platform::SocketAddress& kind, const platform::SocketAddress* own) {
    platform::SocketHandle socket = platform::kNoSocket;
    int error = platform::OpenSocket(kind, socket);
    if (error != 0)
        return CodeOf(error);
    unsigned int code = DICOM_OK;
    const platform::OptionResult options = platform::SetSocketOptions(socket, socketOptions, error);
    if (options == platform::OptionResult::keepAliveFailed)
        code = DICOM_ERROR_SOCKET_OPTION;
    else if (options == platform::OptionResult::failed)
        code = CodeOf(error);
    else if (own != nullptr)
        code = CodeOf(platform::BindSocket(socket, *own));
    if (code != DICOM_OK) {
        platform::CloseSocket(socket);
        return code;
    }
    SetSocket(socket);
    return DICOM_OK;
}

unsigned int Connection::Connect(const char* hostAddress, unsigned int hostPort, const char* peerAddress,
                                 unsigned int peerPort) {
    if (IsActive())
        return DICOM_ERROR_SOCKET_CONNECTED;
    if (refused != DICOM_OK)
        return refused;
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        m_own.clear();
        if (IsGiven(hostAddress) || hostPort != 0) {
            const char* own = IsGiven(hostAddress) ? hostAddress : nullptr;
            if (const int error = platform::ResolveAddress(own, hostPort, true, m_own); error != 0)
                return CodeOf(error);
        }
        const char* peer = IsGiven(peerAddress) ? peerAddress : nullptr;
        if (const int error = platform::ResolveAddress(peer, peerPort, false, m_addresses); error != 0)
            return CodeOf(error);
        unsigned int code = MakeWindow(platform::kNoWindow);
        if (code != DICOM_OK)
            return code;
        m_address = 0;
        code = ConnectNext();
        if (code != DICOM_OK)
            Close();
        else
            Arm(DICOM_TIMEOUT_CONNECT);
        return code;
    });
}

// Starts with the next address of the peer with which it can be started.
unsigned int Connection::ConnectNext() {
    unsigned int code = DICOM_ERROR_CONNECT;
    while (m_address < m_addresses.size()) {
        const platform::SocketAddress& peer = m_addresses[m_address++];
        const platform::SocketAddress* own = nullptr;
        for (const platform::SocketAddress& candidate : m_own) {
            if (own == nullptr && candidate.size == peer.size)
                own = &candidate;
        }
        if (own == nullptr && !m_own.empty()) {
            code = DICOM_ERROR_SOCKET_FAMILY;
            continue;
        }
        code = OpenAndBind(peer, own);
        if (code != DICOM_OK)
            continue;
        int error = platform::SelectSocketEvents(m_socket, m_window, DICOM_NET_MESSAGE, kClientEvents);
        if (error == 0)
            error = platform::ConnectSocket(m_socket, peer);
        if (error == 0)
            return DICOM_OK;
        code = CodeOf(error) == DICOM_ERROR_SOCKET ? static_cast<unsigned int>(DICOM_ERROR_CONNECT) : CodeOf(error);
        platform::CloseSocket(m_socket);
        SetSocket(platform::kNoSocket);
    }
    return code;
}

unsigned int Connection::Listen(const char* hostAddress, unsigned int hostPort, int backlog) {
    if (IsActive())
        return DICOM_ERROR_SOCKET_CONNECTED;
    if (refused != DICOM_OK)
        return refused;
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        const char* own = IsGiven(hostAddress) ? hostAddress : nullptr;
        if (const int error = platform::ResolveAddress(own, hostPort, true, m_own); error != 0)
            return CodeOf(error);
        // A socket for every IPv6 address takes IPv4 as well; such addresses are the longer ones.
        if (own == nullptr) {
            std::stable_sort(m_own.begin(), m_own.end(),
                             [](const auto& left, const auto& right) { return left.size > right.size; });
        }
        unsigned int code = MakeWindow(platform::kNoWindow);
        if (code != DICOM_OK)
            return code;
        for (const platform::SocketAddress& address : m_own) {
            code = ListenAt(address, backlog);
            if (code == DICOM_OK) {
                connected = true;
                return DICOM_OK;
            }
        }
        Close();
        return code;
    });
}

unsigned int Connection::ListenAt(const platform::SocketAddress& address, int backlog) {
    const unsigned int code = OpenAndBind(address, &address);
    if (code != DICOM_OK)
        return code;
    int error = platform::ListenSocket(m_socket, backlog);
    if (error == 0)
        error = platform::SelectSocketEvents(m_socket, m_window, DICOM_NET_MESSAGE, kServerEvents);
    if (error != 0) {
        platform::CloseSocket(m_socket);
        SetSocket(platform::kNoSocket);
    }
    return CodeOf(error);
}

unsigned int Connection::Accept(Connection& client) {
    if (!IsActive() || client.IsActive())
        return DICOM_ERROR_SOCKET_NOT_CONNECTED;
    if (client.refused != DICOM_OK)
        return client.refused;
    platform::SocketHandle socket = platform::kNoSocket;
    if (const int error = platform::AcceptSocket(m_socket, socket); error != 0)
        return CodeOf(error);
    unsigned int code = client.MakeWindow(m_window);
    if (code != DICOM_OK) {
        platform::CloseSocket(socket);
        return code;
    }
    client.SetSocket(socket);
    int error = 0;
    // A peer that is gone again lets options fail; the close event tells of it.
    platform::SetSocketOptions(socket, client.socketOptions, error);
    error = platform::SelectSocketEvents(socket, client.m_window, DICOM_NET_MESSAGE, kAcceptedEvents);
    if (error != 0 || !client.PostEvent(platform::kReadEvent)) {
        client.Close();
        return error != 0 ? CodeOf(error) : static_cast<unsigned int>(DICOM_ERROR_MEMORY);
    }
    client.connected = true;
    client.Arm(DICOM_TIMEOUT_REQUEST);
    return DICOM_OK;
}

void Connection::Close() {
    if (m_window == platform::kNoWindow)
        return;
    while (VDicomNet* client = Client(0, nullptr))
        Of(*client).Close();
    if (m_socket != platform::kNoSocket)
        platform::CloseSocket(m_socket);
    SetSocket(platform::kNoSocket);
    platform::SetWindowSlot(m_window, objectSlot, 0);
    platform::DestroyMessageWindow(m_window);
    m_window = platform::kNoWindow;
    connected = false;
    m_layer.Close();
    m_queue.Clear();
    Forget();
}

VDicomNet* Connection::Server() const {
    const auto window = static_cast<platform::WindowHandle>(platform::GetWindowSlot(m_window, serverSlot));
    return NetOf(window);
}

// The client at a position, and how many there are.
VDicomNet* Connection::Client(unsigned int index, unsigned int* count) const {
    VDicomNet* found = nullptr;
    unsigned int live = 0;
    platform::WindowHandle child = m_window == platform::kNoWindow ? m_window : platform::FirstChildWindow(m_window);
    for (; child != platform::kNoWindow; child = platform::NextSiblingWindow(child)) {
        VDicomNet* client = NetOf(child);
        if (client == nullptr)
            continue;
        if (live++ == index)
            found = client;
        if (found != nullptr && count == nullptr)
            break;
    }
    if (count != nullptr)
        *count = live;
    return found;
}

unsigned int Connection::Address(bool peer, char* address, unsigned int* port) const {
    if (m_socket == platform::kNoSocket)
        return DICOM_ERROR_SOCKET_NOT_CONNECTED;
    platform::SocketAddress found;
    const int error = peer ? platform::PeerAddress(m_socket, found) : platform::LocalAddress(m_socket, found);
    if (error != 0)
        return CodeOf(error);
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        std::string text;
        unsigned int number = 0;
        platform::DescribeAddress(found, text, number);
        // An IPv4 peer, as a socket of both kinds shows it.
        constexpr std::string_view kMapped = "::ffff:";
        if (text.compare(0, kMapped.size(), kMapped) == 0 && text.find('.') != std::string::npos)
            text.erase(0, kMapped.size());
        if (address != nullptr) {
            const std::size_t size = std::min<std::size_t>(text.size(), DICOM_ADDRESS_SIZE - 1);
            std::memcpy(address, text.data(), size);
            address[size] = '\0';
        }
        if (port != nullptr)
            *port = number;
        return DICOM_OK;
    });
}

// Events.

void Connection::OnMessage(platform::WindowHandle window, unsigned int message, std::uintptr_t first,
                           std::intptr_t second) {
    VDicomNet* net = NetOf(window);
    if (net == nullptr)
        return;
    Connection& connection = Of(*net);
    if (connection.m_finished)
        return;
    if (message == platform::kTimerMessage) {
        connection.OnTimer();
    } else if (message == DICOM_NET_MESSAGE && static_cast<platform::SocketHandle>(first) == connection.m_socket) {
        const auto words = static_cast<std::uint32_t>(second);
        connection.OnEvent(words & 0xFFFF, static_cast<int>(words >> 16));
    }
}

void Connection::OnEvent(unsigned int event, int error) {
    const int code = static_cast<int>(CodeOf(error));
    switch (event) {
    case platform::kConnectEvent:
        return OnConnectEvent(code);
    case platform::kAcceptEvent:
        return m_net.OnAccept(code);
    case platform::kReadEvent:
        return OnReadEvent();
    case platform::kWriteEvent:
        return OnWriteEvent();
    case platform::kCloseEvent:
        return OnCloseEvent(code);
    default:
        return;
    }
}

void Connection::OnConnectEvent(int error) {
    if (error != 0 && m_address < m_addresses.size()) {
        platform::CloseSocket(m_socket);
        SetSocket(platform::kNoSocket);
        if (ConnectNext() == DICOM_OK)
            return;
    }
    Disarm(DICOM_TIMEOUT_CONNECT);
    connected = error == 0;
    m_finished = error != 0;
    const Watch watch(*this);
    m_net.OnConnect(error);
    if (!watch.Gone() && error != 0)
        Close();
}

// What arrived before the end is notified first.
void Connection::OnCloseEvent(int error) {
    m_closing = true;
    m_closeError = error;
    OnReadEvent();
}

void Connection::FinishClose(int error) {
    connected = false;
    m_finished = true;
    VDicomNet* server = Server();
    const Watch watch(*this);
    (server != nullptr ? server : &m_net)->OnClose(error, &m_net);
    if (!watch.Gone())
        Close();
}

// Time-outs.

unsigned int Connection::SetTimeout(unsigned char which, VDicomULong milliseconds) {
    if (which == 0 || which >= kTimeouts)
        return DICOM_ERROR_PARAMETER;
    m_timeouts[which] = milliseconds;
    if (m_deadlines[which] != Clock::time_point())
        Arm(static_cast<DICOMTIMEOUT>(which));
    StartTimer();
    return DICOM_OK;
}

// One timer serves all waits; it looks eight times in the shortest.
void Connection::StartTimer() {
    if (m_window == platform::kNoWindow)
        return;
    VDicomULong shortest = 0;
    for (const VDicomULong timeout : m_timeouts) {
        if (timeout != 0 && (shortest == 0 || timeout < shortest))
            shortest = timeout;
    }
    if (shortest != 0)
        platform::StartWindowTimer(m_window, kTimer, shortest / 8);
}

void Connection::Arm(DICOMTIMEOUT which) {
    m_deadlines[which] =
        m_timeouts[which] == 0 ? Clock::time_point() : Clock::now() + std::chrono::milliseconds(m_timeouts[which]);
}

void Connection::StayAlive() {
    if (m_timeouts[DICOM_TIMEOUT_IDLE] != 0)
        Arm(DICOM_TIMEOUT_IDLE);
}

void Connection::ArmAfterSending(UpperEvent event) {
    switch (event) {
    case UpperEvent::sendAssociateRequest:
        return Arm(DICOM_TIMEOUT_ASSOCIATE);
    case UpperEvent::sendReleaseRequest:
        return Arm(DICOM_TIMEOUT_RELEASE);
    case UpperEvent::sendAssociateReject:
    case UpperEvent::sendReleaseResponse:
    case UpperEvent::sendAbort:
        if (m_deadlines[DICOM_TIMEOUT_CLOSE] == Clock::time_point())
            Arm(DICOM_TIMEOUT_CLOSE);
        return;
    default:
        return;
    }
}

void Connection::DisarmAfter(unsigned char pduType) {
    switch (pduType) {
    case pdu::kAssociateRequest:
        return Disarm(DICOM_TIMEOUT_REQUEST);
    case pdu::kAssociateAccept:
    case pdu::kAssociateReject:
        return Disarm(DICOM_TIMEOUT_ASSOCIATE);
    case pdu::kReleaseResponse:
        return Disarm(DICOM_TIMEOUT_RELEASE);
    case pdu::kAbort:
        Disarm(DICOM_TIMEOUT_REQUEST);
        Disarm(DICOM_TIMEOUT_ASSOCIATE);
        return Disarm(DICOM_TIMEOUT_RELEASE);
    default:
        return;
    }
}

void Connection::OnTimer() {
    const Clock::time_point now = Clock::now();
    for (unsigned char which = DICOM_TIMEOUT_CONNECT; which < kTimeouts; ++which) {
        if (m_deadlines[which] == Clock::time_point() || now < m_deadlines[which])
            continue;
        m_deadlines[which] = {};
        if (which == DICOM_TIMEOUT_IDLE && !IsAssociated())
            continue;
        const Watch watch(*this);
        m_finished = which == DICOM_TIMEOUT_CONNECT;
        if (m_finished)
            m_net.OnConnect(DICOM_ERROR_TIMEOUT);
        else
            m_net.OnReceive(DICOM_ERROR_TIMEOUT, which, nullptr, 0);
        if (watch.Gone())
            return;
        if (which == DICOM_TIMEOUT_CONNECT)
            return Close();
        return FinishClose(DICOM_ERROR_TIMEOUT);
    }
}

} // namespace vdicom
