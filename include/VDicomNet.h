/// @file VDicomNet.h
/// VDicomNet: one connection of the DICOM upper layer, its associations and DIMSE messages.
#pragma once

#include "VDicomAssociate.h"
#include "VDicomDS.h"
#include "VDicomFile.h"
#include "VDicomTypes.h"

class VDicomNet;
struct ssl_ctx_st;
struct x509_store_ctx_st;

namespace vdicom {
class Connection;
}

/// How the bytes of a connection are carried (VDicomNet::Initialize).
enum DICOMSECUREMODE : VDicomLong {
    DICOM_SECURE_NONE = static_cast<VDicomLong>(0xABCD0000u), ///< plain DICOM
    DICOM_SECURE_ISCL = static_cast<VDicomLong>(0xABCD0001u), ///< not available
    DICOM_SECURE_TLS = static_cast<VDicomLong>(0xABCD0002u)   ///< TLS; not available (DICOM_ERROR_UNSUPPORTED)
};

/// Waits that can be given an end (VDicomNet::SetTimeout).
enum DICOMTIMEOUT : unsigned char {
    DICOM_TIMEOUT_CONNECT = 1,   ///< from Connect to the connection
    DICOM_TIMEOUT_REQUEST = 2,   ///< from a connection that was accepted to its A-ASSOCIATE-RQ (PS3.8 9.1.5: ARTIM)
    DICOM_TIMEOUT_ASSOCIATE = 3, ///< from SendAssociateRequest to its answer
    DICOM_TIMEOUT_PDU = 4,       ///< from the first byte of a PDU to its last
    DICOM_TIMEOUT_IDLE = 5,      ///< without a byte received or sent, while an association is established
    DICOM_TIMEOUT_RELEASE = 6,   ///< from SendReleaseRequest to its answer
    DICOM_TIMEOUT_CLOSE = 7      ///< from a rejection, release response or abort that was sent to the peer's closing
};

/// Size of the texts for VDicomNet::GetHostInfo and GetPeerInfo, the zero included; IPv6 addresses fit.
constexpr unsigned int DICOM_ADDRESS_SIZE = 64;

/// The class of the hidden windows, and the message in which socket events reach them.
constexpr const char* DICOM_NET_WINDOW_CLASS = "VELA_NETWORK_CLASS";
constexpr unsigned int DICOM_NET_MESSAGE = 0x406;

// Record names are as they have always been. NOLINTBEGIN(bugprone-reserved-identifier)

/// What was sent, for VDicomNet::OnSendExt. The data are valid during the call alone.
struct _DICOMNETDEBUGINFOONSEND {
    int nError;                 ///< as OnSend
    unsigned char nType;        ///< as OnSend
    VDicomULong nBytes;         ///< as OnSend
    const unsigned char* pData; ///< the `nBytes` bytes; null when nothing was sent or there was no memory for a copy
};

/// Functions that the notifications of the same names are forwarded to, in the order of the virtual table; null: no one
/// listens. They get the connection and what the notification gets.
struct _DICOMNETCALLBACK {
    void(VDICOM_CALLBACK* OnSecureLinkReady)(VDicomNet*, VDicomULong nError);
    unsigned int(VDICOM_CALLBACK* SetVerifyTLS)(VDicomNet*, VDicomULong mode, int (*verify)(int, x509_store_ctx_st*));
    void* pReserved[6]; ///< the ISCL mode's
    void(VDICOM_CALLBACK* OnConnect)(VDicomNet*, int nError);
    void(VDICOM_CALLBACK* OnAccept)(VDicomNet*, int nError);
    void(VDICOM_CALLBACK* OnClose)(VDicomNet*, int nError, VDicomNet* connection);
    void(VDICOM_CALLBACK* OnReceive)(VDicomNet*, int nError, unsigned char nType, char* buffer, VDicomULong length);
    void(VDICOM_CALLBACK* OnSend)(VDicomNet*, int nError, unsigned char nType, VDicomULong nBytes);
    void(VDICOM_CALLBACK* OnReceiveAssociateRequest)(VDicomNet*, VDicomAssociate* request);
    void(VDICOM_CALLBACK* OnReceiveAssociateAccept)(VDicomNet*, VDicomAssociate* accept);
    void(VDICOM_CALLBACK* OnReceiveAssociateReject)(VDicomNet*, unsigned char result, unsigned char source,
                                                    unsigned char reason);
    void(VDICOM_CALLBACK* OnReceiveData)(VDicomNet*, unsigned char id, VDicomDS* command, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveReleaseRequest)(VDicomNet*);
    void(VDICOM_CALLBACK* OnReceiveReleaseResponse)(VDicomNet*);
    void(VDICOM_CALLBACK* OnReceiveAbort)(VDicomNet*, unsigned char source, unsigned char reason);
    void(VDICOM_CALLBACK* OnReceiveCStoreRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                  const char* classUID, const char* instanceUID,
                                                  unsigned short priority, const char* moveAE,
                                                  unsigned short moveMessageID, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCStoreResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                   const char* classUID, const char* instanceUID,
                                                   unsigned short status);
    void(VDICOM_CALLBACK* OnReceiveCFindRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                 const char* classUID, unsigned short priority, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCFindResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                  const char* classUID, unsigned short status, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCGetRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                const char* classUID, unsigned short priority, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCGetResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                 const char* classUID, unsigned short status, unsigned short remaining,
                                                 unsigned short completed, unsigned short failed,
                                                 unsigned short warning, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCMoveRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                 const char* classUID, unsigned short priority, const char* destination,
                                                 VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCMoveResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                  const char* classUID, unsigned short status, unsigned short remaining,
                                                  unsigned short completed, unsigned short failed,
                                                  unsigned short warning, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveCCancelRequest)(VDicomNet*, unsigned char id, unsigned short messageID);
    void(VDICOM_CALLBACK* OnReceiveCEchoRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                 const char* classUID);
    void(VDICOM_CALLBACK* OnReceiveCEchoResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                  const char* classUID, unsigned short status);
    void(VDICOM_CALLBACK* OnReceiveNReportRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                   const char* classUID, const char* instanceUID, unsigned short event,
                                                   VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNReportResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                    const char* classUID, const char* instanceUID,
                                                    unsigned short status, unsigned short event, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNGetRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                const char* classUID, const char* instanceUID,
                                                const VDicomULong* attributes, unsigned short count);
    void(VDICOM_CALLBACK* OnReceiveNGetResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                 const char* classUID, const char* instanceUID, unsigned short status,
                                                 VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNSetRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                const char* classUID, const char* instanceUID, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNSetResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                 const char* classUID, const char* instanceUID, unsigned short status,
                                                 VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNActionRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                   const char* classUID, const char* instanceUID, unsigned short action,
                                                   VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNActionResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                    const char* classUID, const char* instanceUID,
                                                    unsigned short status, unsigned short action, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNCreateRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                   const char* classUID, const char* instanceUID, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNCreateResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                    const char* classUID, const char* instanceUID,
                                                    unsigned short status, VDicomDS* data);
    void(VDICOM_CALLBACK* OnReceiveNDeleteRequest)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                   const char* classUID, const char* instanceUID);
    void(VDICOM_CALLBACK* OnReceiveNDeleteResponse)(VDicomNet*, unsigned char id, unsigned short messageID,
                                                    const char* classUID, const char* instanceUID,
                                                    unsigned short status);
    void(VDICOM_CALLBACK* OnReceiveUnknown)(VDicomNet*, unsigned char id, VDicomDS* command, VDicomDS* data);
};
static_assert(sizeof(_DICOMNETCALLBACK) == 44 * sizeof(void*), "one pointer per notification");

/// Functions of later date. A shorter record is taken as far as it goes; of a longer one the functions named here.
struct _DICOMNETCALLBACKEXT {
    static constexpr VDicomULong kSize = 12; ///< of the record in 32-bit programs, taken in others too

    VDicomULong nSize; ///< sizeof the record
    void(VDICOM_CALLBACK* OnSendExt)(VDicomNet*, const _DICOMNETDEBUGINFOONSEND* info);
    void(VDICOM_CALLBACK* OnCreateCTX)(VDicomNet*, ssl_ctx_st* context);
};
static_assert(sizeof(void*) != 4 || sizeof(_DICOMNETCALLBACKEXT) == _DICOMNETCALLBACKEXT::kSize, "declared size");

// NOLINTEND(bugprone-reserved-identifier)

/// One end of a TCP connection that speaks the DICOM upper layer protocol (PS3.8) and carries DIMSE messages (PS3.7): a
/// client, a listening server, or a connection that a server accepted.
///
/// **Events.** The class has no threads. Whatever happens on the connection becomes a call of a virtual On... function,
/// on the thread that called Connect, Listen or Accept, inside that thread's message loop: an application without one
/// runs VDicomMessageLoop. Operations return at once; that bytes have left is told by OnSend. One thread uses one
/// connection; connections that a server accepted live on the server's thread.
///
/// **Notifications.** Every On... function has an implementation that forwards to the callback table, if one is set,
/// and does nothing else; no answer is ever sent that the application does not send. Every one may close or delete the
/// connection, unless its comment says otherwise. Texts, data sets and buffers that it gets are the connection's and
/// are valid until it returns.
///
/// **The state.** No check is made that a PDU fits the state of the association: any may be sent at any time, and what
/// arrives is reported as it comes. Time-outs are off unless set.
///
/// **Results.** Operations return 0 or a result code (DICOMERROR). After a failure nothing was queued, unless it says
/// otherwise. Where an operation takes a text, null gives DICOM_ERROR_PARAMETER unless a meaning is given.
///
/// A client that verifies a peer:
/// @code
/// class Echo : public VDicomNet {
/// public:
///     Echo() : VDicomNet(nullptr, DICOM_SECURE_NONE) {}
///     void OnConnect(int nError) override {
///         if (nError != 0) {
///             VDicomMessageLoop::PostQuit(1);
///             return;
///         }
///         VDicomAssociate request(1);
///         request.SetCalled("ARCHIVE");
///         request.SetCalling("MODALITY");
///         request.AddPresentation(1, 0, "1.2.840.10008.1.1");
///         request.AddTransfer(1, "1.2.840.10008.1.2");
///         SendAssociateRequest(&request);
///     }
///     void OnReceiveAssociateAccept(VDicomAssociate*) override { SendCEchoRequest(1, 1, "1.2.840.10008.1.1"); }
///     void OnReceiveCEchoResponse(unsigned char, unsigned short, const char*, unsigned short) override {
///         SendReleaseRequest();
///     }
///     void OnReceiveReleaseResponse() override {
///         Close();
///         VDicomMessageLoop::PostQuit(0);
///     }
///     void OnClose(int, VDicomNet*) override { VDicomMessageLoop::PostQuit(1); }
/// };
///
/// VDicomNet::StartUp();
/// {
///     Echo echo;
///     if (echo.Connect(nullptr, 0, "archive.example", 104) == DICOM_OK)
///         VDicomMessageLoop::Run();
/// }
/// VDicomNet::ShutDown();
/// @endcode
class VDICOM_API VDicomNet {
public:
    /// @name Process
    /// @{

    /// Starts the network; comes before everything else, and may be called several times.
    /// @return 0; DICOM_ERROR_MEMORY (the window class could not be registered); DICOM_ERROR_SOCKET_NOT_STARTED (no
    /// socket library); DICOM_ERROR_SOCKET_VERSION (it has another version than 2.0); DICOM_ERROR_SOCKET_SYSTEM or
    /// another code of GetError (it cannot be started)
    static unsigned int StartUp();
    /// Ends what one StartUp started.
    /// @return 0; DICOM_ERROR_SOCKET_NOT_STARTED; DICOM_ERROR_SOCKET_CONNECTED (it was the last one and connections are
    /// left: nothing was ended, close them and call it again)
    static unsigned int ShutDown();
    /// The result code for an error of the socket library: a number of Windows Sockets, or the platform's own.
    /// @return DICOM_ERROR_SOCKET_... ; DICOM_ERROR_SOCKET for one that has no code
    static unsigned int GetError(VDicomULong socketError);
    /// The addresses of a host, in the order in which Connect tries them. It waits for the name server, as Connect does
    /// for a name; any thread may call it, so that another one can do the waiting.
    /// @param addresses receives texts with a blank between, as many as fit, and a zero
    /// @return 0; DICOM_ERROR_PARAMETER (null, or `size` is less than DICOM_ADDRESS_SIZE); DICOM_ERROR_SOCKET_... ;
    /// DICOM_ERROR_MEMORY
    static unsigned int FindAddresses(const char* host, char* addresses, VDicomULong size);
    /// Lets the process have as many connections and open files as the system grants without further rights.
    /// @return how many descriptors it may have now; 0: there is no such limit, or it cannot be told
    static VDicomULong RaiseDescriptorLimit();
    /// @}

    /// Makes an object and calls Initialize.
    /// @param path folder for temporary files; null or empty: the platform's @param mode DICOMSECUREMODE
    VDicomNet(const char* path, VDicomLong mode);
    /// The same without calling Initialize; plain DICOM until it is called.
    VDicomNet(const char* path, VDicomLong mode, unsigned int reserved);
    VDicomNet(const VDicomNet&) = delete;
    VDicomNet& operator=(const VDicomNet&) = delete;

    /// Sets the mode, opens the connection's streams on `path` and clears the callback tables. Not while connected.
    /// After a mode that is refused, Connect, Listen and Accept into the object give the same code: nothing that was to
    /// be secure is sent in the clear.
    /// @return 0; DICOM_ERROR_PARAMETER (another mode, or DICOM_SECURE_ISCL; connected); DICOM_ERROR_UNSUPPORTED (TLS
    /// is not available); DICOM_ERROR_MEMORY
    unsigned int Initialize(const char* path, VDicomLong mode);

    /// @name Virtual functions of the secure modes
    /// They come first in the virtual table. Those of ISCL are kept for their places and are never called.
    /// @{

    /// The TLS handshake has ended. @param nError 0, or TLS's error
    virtual void OnSecureLinkReady(VDicomULong nError);
    /// @return 0; DICOM_ERROR_NO_TLS: the connection is not in TLS mode
    virtual unsigned int SetVerifyTLS(VDicomULong mode, int (*verify)(int, x509_store_ctx_st*));
    virtual void GetChallengeISCL();
    virtual void InternalAuthenticateISCL();
    virtual void ExternalAuthenticateISCL();
    virtual void OnNonSecureSendISCL();
    virtual void OnNonSecureReceivedISCL();
    virtual void OnReceivedISCLPacket();
    /// @}

    /// Closes the connection without notification; a server closes its accepted connections as well.
    virtual ~VDicomNet();

    /// @name Connection
    /// Host names are looked up before the call returns, which may take time; addresses of IPv4 and IPv6 are not. A
    /// name that has several addresses is tried with each in turn.
    /// @{

    /// Connects to a peer. OnConnect tells when it is done.
    /// @param hostAddress name or address of the own interface; null: the system chooses
    /// @param hostPort own port; 0: the system chooses
    /// @param peerAddress name or address of the peer; null or empty: this machine
    /// @return 0; DICOM_ERROR_SOCKET_... ; DICOM_ERROR_SOCKET_OPTION; DICOM_ERROR_CONNECT (refused at once);
    /// DICOM_ERROR_SOCKET_CONNECTED (the object has a live connection); DICOM_ERROR_PARAMETER or
    /// DICOM_ERROR_UNSUPPORTED (the mode was refused, see Initialize); DICOM_ERROR_MEMORY
    unsigned int Connect(const char* hostAddress, unsigned int hostPort, const char* peerAddress,
                         unsigned int peerPort);
    /// Makes the object a server. OnAccept tells of each connection that is waiting. A server counts as connected.
    /// @param hostAddress name or address of the interface to listen at; null: all
    /// @param hostPort 0: the system chooses one, which GetHostInfo tells
    /// @param backlog how many connections may wait for Accept
    /// @return 0; DICOM_ERROR_SOCKET_... ; DICOM_ERROR_SOCKET_CONNECTED (the object is connected or listens);
    /// DICOM_ERROR_PARAMETER or DICOM_ERROR_UNSUPPORTED (the mode was refused); DICOM_ERROR_MEMORY
    unsigned int Listen(const char* hostAddress, unsigned int hostPort, int backlog);
    /// Takes a waiting connection; called from OnAccept of a server.
    /// @param client a new object, which stays the application's; it must be closed before the server is destroyed, or
    /// is then closed by it. Its settings (time-outs, buffers, ...) are its own.
    /// @return 0; DICOM_ERROR_SOCKET_... ; DICOM_ERROR_PARAMETER (null, or the mode of `client` was refused);
    /// DICOM_ERROR_UNSUPPORTED (likewise); DICOM_ERROR_SOCKET_NOT_CONNECTED (no server, or `client` is connected);
    /// DICOM_ERROR_MEMORY
    unsigned int Accept(VDicomNet* client);
    /// Closes the connection at once, without notification; what is queued and not yet sent is lost. Connections that a
    /// server has accepted close with it.
    void Close();
    /// Close, for secure modes.
    void CloseForced(unsigned int reserved);

    /// Non-zero while the object has a window, from Connect, Listen or Accept to the close.
    unsigned int IsActivated() const;
    /// Non-zero between a successful connect or accept and the close; a server is connected while it listens.
    unsigned int IsConnected() const;
    /// The server that accepted this connection; else null.
    VDicomNet* GetServer() const;
    /// Connections that this server has accepted and that still live, in the order of their acceptance.
    unsigned int GetClientCount() const;
    VDicomNet* GetClient(unsigned int index) const;
    /// The own address and port. @param address DICOM_ADDRESS_SIZE characters, or null @param port or null
    /// @return 0; DICOM_ERROR_SOCKET_...
    unsigned int GetHostInfo(char* address, unsigned int* port) const;
    /// Those of the peer, likewise.
    unsigned int GetPeerInfo(char* address, unsigned int* port) const;
    /// The hidden window, which gets DICOM_NET_MESSAGE; 0 when there is none.
    std::uintptr_t GetWindow() const;
    /// @}

    /// @name Settings
    /// They hold for the life of the object, except where they say otherwise.
    /// @{

    /// Copies a callback table; null is ignored. Initialize clears it.
    void SetCallback(const _DICOMNETCALLBACK* callback);
    void SetCallbackExt(const _DICOMNETCALLBACKEXT* callback);
    /// While flags are set, what has been sent is told by OnSendExt instead of OnSend. @return the flags so far
    VDicomULong SetDebugMode(VDicomULong flags);
    /// Ends a wait that lasts longer than `milliseconds`; 0: it may last for ever, as all do unless set. To be set
    /// before the wait begins, that of a request for example before Accept.
    ///
    /// A connection that is not made in time is told by OnConnect(DICOM_ERROR_TIMEOUT). The other time-outs are told by
    /// OnReceive(DICOM_ERROR_TIMEOUT, which, null, 0); if the application has not closed the connection there, it is
    /// closed, which OnClose(DICOM_ERROR_TIMEOUT, ...) tells. They are looked at several times within each period, so
    /// that a wait may last up to an eighth longer.
    /// @param which DICOMTIMEOUT @return 0; DICOM_ERROR_PARAMETER (no such wait)
    unsigned int SetTimeout(unsigned char which, VDicomULong milliseconds);
    /// The greatest length field of a PDU that is accepted, in bytes; 128 MiB unless set. A longer one is told by
    /// OnReceive(DICOM_ERROR_PDU_LENGTH, ...), and nothing is received after it.
    void SetLargestPDU(VDicomULong length);
    /// Bytes of a data set that is received, and that a deflated one inflates to; unless set there is no limit of the
    /// first and one of 16 GiB of the second. A longer one is told by OnReceive(DICOM_ERROR_SIZE, ...), when inflated
    /// by OnReceive(DICOM_ERROR_DEFLATE, ...), and dropped.
    void SetLargestDataSet(VDicomUInt64 bytes);
    /// The system's buffers of sockets that are made from now on, in bytes; 29696 each unless set, 0: the system's own.
    /// Less than two segments of the network make large data sets slow, since the sender then waits for delayed
    /// acknowledgements: the loopback interface has segments of 64 KiB.
    void SetSocketBuffers(int send, int receive);
    /// Data sets are sent from their place: large values are read from the set's streams when the bytes leave, not
    /// copied by the Send... call. The data set, its streams and files must stay as they are until OnSend has told of
    /// the last PDU (GetQueueSend is 0 then). Off unless set; takes effect with the next data set.
    void SetSendInPlace(unsigned int bInPlace);
    /// A pointer of the application's; null unless set.
    void SetUserData(void* userData);
    void* GetUserData() const;
    /// @}

    /// @name Association
    /// What is sent is queued; OnSend tells when it has left.
    /// @{

    /// Sends an A-ASSOCIATE-RQ and keeps a copy of it. @param associate is marked as a request; stays the caller's
    /// @return 0; DICOM_ERROR_PARAMETER (null); codes of VDicomAssociate::GetBinary and of SendRaw
    unsigned int SendAssociateRequest(VDicomAssociate* associate);
    /// Sends an A-ASSOCIATE-AC and keeps a copy of it; the association is established. @param associate is marked as an
    /// accept; stays the caller's @return as SendAssociateRequest
    unsigned int SendAssociateAccept(VDicomAssociate* associate);
    /// Rejects an association request (PS3.8 Table 9-21).
    void SendAssociateReject(unsigned char result, unsigned char source, unsigned char reason);
    void SendReleaseRequest();
    void SendReleaseResponse();
    /// Aborts an association (PS3.8 Table 9-26).
    void SendAbort(unsigned char source, unsigned char reason);
    /// Non-zero while an association is established.
    unsigned int IsAssociated() const;
    /// The accept that holds: its contexts, transfer syntaxes and maximum length govern messages. Never null.
    VDicomAssociate* GetAssociate();
    /// The request of the association, sent or received. Never null.
    VDicomAssociate* GetRequestAssociate();
    /// @}

    /// @name Bytes and data sets
    /// @{

    /// Queues a PDU made by the application; the bytes are copied.
    /// @return 0; DICOM_ERROR_SOCKET_NOT_STARTED; DICOM_ERROR_PARAMETER (null, or no bytes);
    /// DICOM_ERROR_SOCKET_NOT_CONNECTED; DICOM_ERROR_MEMORY
    unsigned int SendRaw(const char* buffer, VDicomULong length);
    /// SendRaw, through the secure mode.
    unsigned int Send(const char* buffer, VDicomULong length);
    /// Bytes that are queued and not yet sent.
    VDicomULong GetQueueSend() const;
    /// Sends one command set or one data set as P-DATA-TF PDUs, each of one presentation data value. A data set is
    /// encoded in the context's transfer syntax and is no longer needed when the call returns (but see SetSendInPlace).
    /// The PDUs' length is limited by the maximum length of the accept that holds, on both sides.
    /// @param id a presentation context that was accepted
    /// @return 0; DICOM_ERROR_PARAMETER (null; no such context, or it was rejected; a data set without transfer
    /// syntax; a peer's maximum length below 8); DICOM_ERROR_UNSUPPORTED (the pixel data would have to be compressed or
    /// decompressed); DICOM_ERROR_SIZE; codes of VDicomDS::SaveDS and of SendRaw
    unsigned int SendData(unsigned int bCommand, unsigned char id, VDicomDS* ds);
    /// Sends a whole message. Sets (0000,0800) of the command: 0x0101 without data, else 0x0000.
    /// @param data null: none. @return as above; when the data set fails, the command was sent
    unsigned int SendData(unsigned char id, VDicomDS* command, VDicomDS* data);
    /// Takes a PDU as if it had been received, or an error, and makes the notifications.
    void Receive(int nError, unsigned char nType, char* buffer, VDicomULong length);
    /// Takes a message as if it had been received. @param data null: none
    void ReceiveData(unsigned char id, VDicomDS* command, VDicomDS* data);
    /// The load and save flags for a transfer syntax (DICOM_FLAG_...). @param uid null or unknown: implicit VR
    static unsigned short GetTS(unsigned int bCommand, const char* uid);
    /// @}

    /// @name Messages (PS3.7 9 and 10)
    /// `id` is the presentation context, `messageID` the Message ID of a request, which the caller chooses, or of a
    /// response the Message ID Being Responded To. `status` is that of PS3.7 C and PS3.4. Data sets may be null: the
    /// message then has none. @return 0; DICOM_ERROR_PARAMETER (a text is null); codes of SendData
    /// @{

    /// @param classUID, instanceUID null: not sent @param moveAE is not sent: for an object that a C-MOVE asked for,
    /// make the command with (0000,1030) Move Originator Application Entity Title and use SendData
    /// @param moveMessageID is always sent
    unsigned int SendCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                   const char* instanceUID, unsigned short priority, const char* moveAE,
                                   unsigned short moveMessageID, VDicomDS* ds);
    unsigned int SendCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                    const char* instanceUID, unsigned short status);
    unsigned int SendCFindRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                  unsigned short priority, VDicomDS* ds);
    unsigned int SendCFindResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                   unsigned short status, VDicomDS* ds);
    unsigned int SendCGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 unsigned short priority, VDicomDS* ds);
    /// The four numbers are those of sub-operations.
    unsigned int SendCGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                  unsigned short status, unsigned short remaining, unsigned short completed,
                                  unsigned short failed, unsigned short warning, VDicomDS* ds);
    /// @param destination AE title to which the objects go
    unsigned int SendCMoveRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                  unsigned short priority, const char* destination, VDicomDS* ds);
    /// As SendCGetResponse.
    unsigned int SendCMoveResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                   unsigned short status, unsigned short remaining, unsigned short completed,
                                   unsigned short failed, unsigned short warning, VDicomDS* ds);
    /// @param messageID of the request that is cancelled
    unsigned int SendCCancelRequest(unsigned char id, unsigned short messageID);
    unsigned int SendCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID);
    unsigned int SendCEchoResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                   unsigned short status);
    unsigned int SendNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                    const char* instanceUID, unsigned short event, VDicomDS* ds);
    unsigned int SendNReportResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, unsigned short status, unsigned short event,
                                     VDicomDS* ds);
    /// @param attributes `count` tags; null only with a count of 0
    unsigned int SendNGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, const VDicomULong* attributes, unsigned short count);
    unsigned int SendNGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                  const char* instanceUID, unsigned short status, VDicomDS* ds);
    unsigned int SendNSetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, VDicomDS* ds);
    unsigned int SendNSetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                  const char* instanceUID, unsigned short status, VDicomDS* ds);
    unsigned int SendNActionRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                    const char* instanceUID, unsigned short action, VDicomDS* ds);
    unsigned int SendNActionResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, unsigned short status, unsigned short action,
                                     VDicomDS* ds);
    unsigned int SendNCreateRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                    const char* instanceUID, VDicomDS* ds);
    unsigned int SendNCreateResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, unsigned short status, VDicomDS* ds);
    unsigned int SendNDeleteRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                    const char* instanceUID);
    unsigned int SendNDeleteResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, unsigned short status);
    /// @}

    /// @name Notifications of the connection
    /// @{

    /// Connect has ended. @param nError 0; after a failure the connection is closed when this returns; to connect again
    /// from here, Close it first
    virtual void OnConnect(int nError);
    /// A connection waits for Accept. @param nError 0; DICOM_ERROR_SOCKET_... : the system could not take it
    virtual void OnAccept(int nError);
    /// The peer has closed, or the connection broke; of an accepted connection the server is notified. It is closed
    /// when this returns; the connection may be deleted here.
    /// @param nError 0: the peer closed; DICOM_ERROR_SOCKET_... : the connection broke; DICOM_ERROR_TIMEOUT;
    /// DICOM_ERROR_READ: a data set that is sent in place cannot be read @param connection the one that is concerned
    virtual void OnClose(int nError, VDicomNet* connection);
    /// A PDU has arrived; its own notification comes after this one. Also every failure of receiving.
    /// @param nError 0; a result code (DICOM_ERROR_PDU_LENGTH, DICOM_ERROR_TIMEOUT, codes of decoding ...): it is the
    /// application's to abort or close @param nType the PDU's type (PS3.8 9.3.1) @param buffer the whole PDU; may be
    /// null with an error
    virtual void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length);
    /// A PDU has left as a whole, or sending failed; the end of the connection is then told by OnClose.
    /// @param nError 0; DICOM_ERROR_SOCKET_... ; DICOM_ERROR_READ (see OnClose) @param nType the PDU's type (PS3.8
    /// 9.3.1), 0 with an error @param nBytes its last part, which the system took in one go: less than the PDU where
    /// that left in several; 0 with an error
    virtual void OnSend(int nError, unsigned char nType, VDicomULong nBytes);
    /// @}

    /// @name Notifications of the association
    /// The objects are those of GetRequestAssociate and GetAssociate.
    /// @{
    virtual void OnReceiveAssociateRequest(VDicomAssociate* request);
    virtual void OnReceiveAssociateAccept(VDicomAssociate* accept);
    /// PS3.8 Table 9-21.
    virtual void OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason);
    /// Any message has arrived; its own notification comes after this one. @param data null: it has none
    virtual void OnReceiveData(unsigned char id, VDicomDS* command, VDicomDS* data);
    virtual void OnReceiveReleaseRequest();
    virtual void OnReceiveReleaseResponse();
    /// PS3.8 Table 9-26.
    virtual void OnReceiveAbort(unsigned char source, unsigned char reason);
    /// @}

    /// @name Notifications of messages
    /// Arguments are as in the Send... function of the same message; elements that are missing are 0 or empty texts,
    /// texts have at most 64 characters, data sets may be null.
    /// @{
    virtual void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, unsigned short priority, const char* moveAE,
                                        unsigned short moveMessageID, VDicomDS* data);
    virtual void OnReceiveCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status);
    virtual void OnReceiveCFindRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                       unsigned short priority, VDicomDS* data);
    virtual void OnReceiveCFindResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                        unsigned short status, VDicomDS* data);
    virtual void OnReceiveCGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                      unsigned short priority, VDicomDS* data);
    virtual void OnReceiveCGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                       unsigned short status, unsigned short remaining, unsigned short completed,
                                       unsigned short failed, unsigned short warning, VDicomDS* data);
    virtual void OnReceiveCMoveRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                       unsigned short priority, const char* destination, VDicomDS* data);
    virtual void OnReceiveCMoveResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                        unsigned short status, unsigned short remaining, unsigned short completed,
                                        unsigned short failed, unsigned short warning, VDicomDS* data);
    virtual void OnReceiveCCancelRequest(unsigned char id, unsigned short messageID);
    virtual void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID);
    virtual void OnReceiveCEchoResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                        unsigned short status);
    virtual void OnReceiveNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short event, VDicomDS* data);
    virtual void OnReceiveNReportResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          const char* instanceUID, unsigned short status, unsigned short event,
                                          VDicomDS* data);
    /// @param attributes `count` tags; null when memory for them ran out, or there are none
    virtual void OnReceiveNGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                      const char* instanceUID, const VDicomULong* attributes, unsigned short count);
    virtual void OnReceiveNGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                       const char* instanceUID, unsigned short status, VDicomDS* data);
    virtual void OnReceiveNSetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                      const char* instanceUID, VDicomDS* data);
    virtual void OnReceiveNSetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                       const char* instanceUID, unsigned short status, VDicomDS* data);
    virtual void OnReceiveNActionRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short action, VDicomDS* data);
    virtual void OnReceiveNActionResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          const char* instanceUID, unsigned short status, unsigned short action,
                                          VDicomDS* data);
    virtual void OnReceiveNCreateRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, VDicomDS* data);
    virtual void OnReceiveNCreateResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          const char* instanceUID, unsigned short status, VDicomDS* data);
    virtual void OnReceiveNDeleteRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID);
    virtual void OnReceiveNDeleteResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          const char* instanceUID, unsigned short status);
    /// A message with another Command Field, or a data set without a command.
    virtual void OnReceiveUnknown(unsigned char id, VDicomDS* command, VDicomDS* data);
    /// @}

    /// @name Later functions of the virtual table
    /// @{

    /// OnSend in debug mode.
    virtual void OnSendExt(_DICOMNETDEBUGINFOONSEND* info);
    /// The TLS context exists and may be adjusted.
    virtual void OnCreateCTX(ssl_ctx_st* context);
    /// A question: the pass phrase of a private key file. @return its length; 0: there is none
    virtual int OnPrivateKeyPassword(char* buffer, int size, int rwflag);
    /// A question: a command has arrived and a data set follows; where do its bytes go? An open stream that can be read
    /// and written, which stays the application's until the message's notification (or the OnReceive of a failure, or
    /// the close) has come; what stands in it already, a preamble and group 0002, is loaded as part of the data set.
    /// Must not close the connection. @return null: the connection's own storage
    virtual VDicomFile* OnReceiveTarget(unsigned char id, VDicomDS* command);
    /// @}

private:
    friend class vdicom::Connection;
    vdicom::Connection* m_pConnection; ///< stands in m_state
    alignas(8) unsigned char m_state[sizeof(void*) == 8 ? 16384 : 12288];
};
