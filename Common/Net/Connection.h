/// @file Connection.h
/// What stands behind one VDicomNet: its window and socket, what arrives and what leaves, its association and its
/// time-outs. Connection.cpp has the window and the socket, ConnectionReceive.cpp the way of received PDUs to the
/// notifications, ConnectionSend.cpp the way out.
#pragma once

#include "CommandTable.h"
#include "PDataAssembler.h"
#include "PduReceiver.h"
#include "SendQueue.h"
#include "Socket.h"
#include "UpperLayer.h"
#include "VDicomNet.h"

#include <chrono>
#include <string>
#include <vector>

namespace vdicom {

class Connection final : public UpperLayerSteps, public PDataReceiver {
public:
    Connection(VDicomNet& net, const char* tempPath);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The connection behind an object.
    static Connection& Of(const VDicomNet& net) { return *net.m_pConnection; }
    /// The window's slots.
    enum Slot {
        socketSlot,
        serverSlot,
        objectSlot,
        heldSlot,
        expectedSlot,
        bufferSlot,
        headSlot,
        tailSlot,
        queuedSlot
    };

    /// The window procedure.
    static void OnMessage(platform::WindowHandle window, unsigned int message, std::uintptr_t first,
                          std::intptr_t second);

    /// Notices that the connection was closed or destroyed while the application was called; nothing of it may be
    /// touched then. On the stack, around each call.
    class Watch {
    public:
        explicit Watch(Connection& connection);
        ~Watch();
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        bool Gone() const { return m_connection == nullptr; }

    private:
        friend class Connection;
        Connection* m_connection;
        Watch* m_outer;
    };

    /// @name Window and socket
    /// @{
    unsigned int Connect(const char* hostAddress, unsigned int hostPort, const char* peerAddress,
                         unsigned int peerPort);
    unsigned int Listen(const char* hostAddress, unsigned int hostPort, int backlog);
    unsigned int Accept(Connection& client);
    void Close();
    bool IsActive() const { return platform::IsMessageWindow(m_window); }
    VDicomNet* Server() const;
    VDicomNet* Client(unsigned int index, unsigned int* count) const;
    unsigned int Address(bool peer, char* address, unsigned int* port) const;
    platform::WindowHandle Window() const { return m_window; }
    /// @}

    /// @name Sending
    /// @{
    unsigned int SendBytes(const void* bytes, std::size_t size);
    unsigned int SendSet(bool command, unsigned char contextId, VDicomDS* set);
    unsigned int SendAssociate(UpperEvent event, VDicomAssociate* associate);
    void SendShort(UpperEvent event, const ShortPdu& pdu);
    unsigned int SendMessage(Command command, const CommandValues& values, unsigned char contextId, VDicomDS* data);
    VDicomULong QueuedBytes() const;
    /// @}

    /// @name Receiving
    /// @{
    void Receive(int error, unsigned char type, char* buffer, VDicomULong length);
    /// @}

    /// @name Settings
    /// @{
    unsigned int SetTempPath(const char* path);
    unsigned int SetTimeout(unsigned char which, VDicomULong milliseconds);
    void SetLargestPdu(VDicomULong length) { m_receiver.SetLargest(std::min(length, kLargestPduLimit)); }
    /// @}

    VDicomAssociate requested;
    VDicomAssociate accepted;
    PDataAssembler assembler;
    platform::SocketOptions socketOptions;
    _DICOMNETCALLBACK callback{};
    _DICOMNETCALLBACKEXT callbackExt{};
    VDicomULong debugFlags = 0;
    void* userData = nullptr;
    bool sendInPlace = false;
    bool connected = false;
    unsigned int refused = 0; ///< why no connection can be made: the mode that was asked for is not available
    bool IsAssociated() const { return m_layer.IsAssociated(); }

    /// @name Steps of the upper layer, and what the assembler asks and tells
    /// @{
    unsigned int Do(UpperStep step) override;
    bool Report(unsigned int code) override;
    const char* TransferSyntaxOf(unsigned char contextId) override;
    const char* AbstractSyntaxOf(unsigned char contextId) override;
    VDicomFile* DataTarget(unsigned char contextId, VDicomDS& command) override;
    bool ReceiveMessage(unsigned char contextId, VDicomDS& command, VDicomDS* data) override;
    bool ReportFailure(unsigned int code) override { return Report(code); }
    /// @}

private:
    using Clock = std::chrono::steady_clock;

    void Forget();
    unsigned int MakeWindow(platform::WindowHandle parent);
    unsigned int OpenAndBind(const platform::SocketAddress& kind, const platform::SocketAddress* own);
    unsigned int ConnectNext();
    unsigned int ListenAt(const platform::SocketAddress& address, int backlog);
    void SetSocket(platform::SocketHandle socket);
    bool PostEvent(unsigned int event);

    void OnEvent(unsigned int event, int error);
    void OnConnectEvent(int error);
    void OnReadEvent();
    void OnWriteEvent();
    void OnCloseEvent(int error);
    void OnTimer();
    void FinishClose(int error);

    bool TakeWaiting();
    void Dispatch(const Pdu& pdu);
    void FailReceiving(unsigned int code);
    void Discard();
    void Show(Slot slot, std::uintptr_t value);
    void ShowReceiver();
    void Notify(const ReceivedCommand& command, unsigned char contextId, VDicomDS& set, VDicomDS* data);

    unsigned int TakeAbstracts();
    unsigned int Encode();
    unsigned int Queued(unsigned int code);
    void ShowQueue();
    void TellSent(const ByteSpan* spans, std::size_t count, std::size_t done);

    void Arm(DICOMTIMEOUT which);
    void Disarm(DICOMTIMEOUT which) { m_deadlines[which] = {}; }
    void ArmAfterSending(UpperEvent event);
    void DisarmAfter(unsigned char pduType);
    void StayAlive();
    void StartTimer();

    static constexpr std::size_t kTimeouts = DICOM_TIMEOUT_CLOSE + 1;

    VDicomNet& m_net;
    std::string m_tempPath;
    Watch* m_watch = nullptr;

    platform::WindowHandle m_window = platform::kNoWindow;
    std::uintptr_t m_shown[platform::kWindowSlots] = {}; ///< what its slots hold of the bytes received and queued
    platform::SocketHandle m_socket = platform::kNoSocket;
    std::vector<platform::SocketAddress> m_addresses; ///< of the peer
    std::vector<platform::SocketAddress> m_own;       ///< to be bound to; empty: the system chooses
    std::size_t m_address = 0;                        ///< the next one to be tried
    bool m_closing = false;                           ///< the peer has closed; what it sent before is still there
    int m_closeError = 0;
    bool m_finished = false; ///< its end is being notified; nothing else is told any more

    UpperLayer m_layer;
    PduReceiver m_receiver;
    bool m_dispatching = false; ///< a PDU is being notified
    bool m_unusable = false;    ///< what arrives cannot be understood any more
    bool m_readPosted = false;  ///< a read event that did not come from the socket is under way
    bool m_readMissed = false;  ///< one came while a PDU was being notified
    ByteSpan m_pdu;             ///< the PDU being notified
    unsigned char m_pduType = 0;

    SendQueue m_queue;
    bool m_writing = false;
    bool m_writePosted = false;
    VDicomDS m_command;                     ///< of the message that is sent
    VDicomAssociate* m_associate = nullptr; ///< being sent
    UpperEvent m_sending = UpperEvent::unknown;
    std::vector<unsigned char> m_encoded;   ///< its PDU
    ShortPdu m_short{};                     ///< a short PDU being sent
    ByteSpan m_outgoing;                    ///< the PDU being sent
    std::vector<unsigned char> m_sentBytes; ///< for OnSendExt

    VDicomULong m_timeouts[kTimeouts] = {}; ///< milliseconds
    Clock::time_point m_deadlines[kTimeouts] = {};
};

} // namespace vdicom
