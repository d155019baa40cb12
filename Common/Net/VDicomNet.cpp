#include "VDicomNet.h"

#include "Connection.h"
#include "Guarded.h"
#include "MessageSyntax.h"
#include "Network.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

using vdicom::Connection;
using vdicom::UpperEvent;

namespace {

const char* const kPlatformFolder = nullptr;

} // namespace

unsigned int VDicomNet::StartUp() { return vdicom::StartNetwork(); }

unsigned int VDicomNet::ShutDown() { return vdicom::StopNetwork(); }

unsigned int VDicomNet::FindAddresses(const char* host, char* addresses, VDicomULong size) {
    if (host == nullptr || addresses == nullptr || size < DICOM_ADDRESS_SIZE)
        return DICOM_ERROR_PARAMETER;
    if (!vdicom::IsNetworkStarted())
        return DICOM_ERROR_SOCKET_NOT_STARTED;
    return vdicom::Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        std::vector<vdicom::platform::SocketAddress> found;
        if (const int error = vdicom::platform::ResolveAddress(host, 0, false, found); error != 0)
            return GetError(static_cast<VDicomULong>(error));
        std::string texts;
        for (const vdicom::platform::SocketAddress& address : found) {
            std::string text;
            unsigned int port = 0;
            vdicom::platform::DescribeAddress(address, text, port);
            if (texts.size() + text.size() + 2 <= size)
                texts += (texts.empty() ? "" : " ") + text;
        }
        std::memcpy(addresses, texts.c_str(), texts.size() + 1);
        return DICOM_OK;
    });
}

VDicomULong VDicomNet::RaiseDescriptorLimit() {
    const std::uint64_t limit = vdicom::platform::RaiseDescriptorLimit();
    return static_cast<VDicomULong>(std::min<std::uint64_t>(limit, 0xFFFFFFFFu));
}

VDicomNet::VDicomNet(const char* path, VDicomLong mode) : VDicomNet(path, mode, 0) { Initialize(path, mode); }

VDicomNet::VDicomNet(const char* path, VDicomLong /*mode*/, unsigned int /*reserved*/) {
    static_assert(sizeof(Connection) <= sizeof m_state && alignof(Connection) <= 8, "the state has its place");
    m_pConnection = vdicom::Guarded<Connection*>(nullptr, [&] { return new (m_state) Connection(*this, path); });
    if (m_pConnection == nullptr) // no memory for the path
        m_pConnection = new (m_state) Connection(*this, kPlatformFolder);
}

VDicomNet::~VDicomNet() { m_pConnection->~Connection(); }

unsigned int VDicomNet::Initialize(const char* path, VDicomLong mode) {
    if (m_pConnection->IsActive())
        return DICOM_ERROR_PARAMETER;
    m_pConnection->refused = mode == DICOM_SECURE_NONE  ? DICOM_OK
                             : mode == DICOM_SECURE_TLS ? DICOM_ERROR_UNSUPPORTED
                                                        : DICOM_ERROR_PARAMETER;
    if (m_pConnection->refused != DICOM_OK)
        return m_pConnection->refused;
    m_pConnection->callback = {};
    m_pConnection->callbackExt = {};
    return m_pConnection->SetTempPath(path);
}

unsigned int VDicomNet::Connect(const char* hostAddress, unsigned int hostPort, const char* peerAddress,
                                unsigned int peerPort) {
    if (!vdicom::IsNetworkStarted())
        return DICOM_ERROR_SOCKET_NOT_STARTED;
    return m_pConnection->Connect(hostAddress, hostPort, peerAddress, peerPort);
}

unsigned int VDicomNet::Listen(const char* hostAddress, unsigned int hostPort, int backlog) {
    if (!vdicom::IsNetworkStarted())
        return DICOM_ERROR_SOCKET_NOT_STARTED;
    return m_pConnection->Listen(hostAddress, hostPort, backlog);
}

unsigned int VDicomNet::Accept(VDicomNet* client) {
    if (!vdicom::IsNetworkStarted())
        return DICOM_ERROR_SOCKET_NOT_STARTED;
    return client == nullptr ? static_cast<unsigned int>(DICOM_ERROR_PARAMETER)
                             : m_pConnection->Accept(*client->m_pConnection);
}

void VDicomNet::Close() { m_pConnection->Close(); }

void VDicomNet::CloseForced(unsigned int /*reserved*/) { m_pConnection->Close(); }

unsigned int VDicomNet::IsActivated() const { return m_pConnection->IsActive() ? 1 : 0; }

unsigned int VDicomNet::IsConnected() const { return m_pConnection->connected ? 1 : 0; }

VDicomNet* VDicomNet::GetServer() const { return m_pConnection->Server(); }

unsigned int VDicomNet::GetClientCount() const {
    unsigned int count = 0;
    m_pConnection->Client(0, &count);
    return count;
}

VDicomNet* VDicomNet::GetClient(unsigned int index) const { return m_pConnection->Client(index, nullptr); }

unsigned int VDicomNet::GetHostInfo(char* address, unsigned int* port) const {
    return m_pConnection->Address(false, address, port);
}

unsigned int VDicomNet::GetPeerInfo(char* address, unsigned int* port) const {
    return m_pConnection->Address(true, address, port);
}

std::uintptr_t VDicomNet::GetWindow() const { return m_pConnection->Window(); }

void VDicomNet::SetCallback(const _DICOMNETCALLBACK* callback) {
    if (callback != nullptr)
        m_pConnection->callback = *callback;
}

void VDicomNet::SetCallbackExt(const _DICOMNETCALLBACKEXT* callback) {
    if (callback == nullptr)
        return;
    const VDicomULong size = callback->nSize;
    const bool whole = size == _DICOMNETCALLBACKEXT::kSize || size >= sizeof *callback;
    const bool first = whole || size >= offsetof(_DICOMNETCALLBACKEXT, OnCreateCTX);
    m_pConnection->callbackExt = {size, first ? callback->OnSendExt : nullptr, whole ? callback->OnCreateCTX : nullptr};
}

VDicomULong VDicomNet::SetDebugMode(VDicomULong flags) { return std::exchange(m_pConnection->debugFlags, flags); }

unsigned int VDicomNet::SetTimeout(unsigned char which, VDicomULong milliseconds) {
    return m_pConnection->SetTimeout(which, milliseconds);
}

void VDicomNet::SetLargestPDU(VDicomULong length) { m_pConnection->SetLargestPdu(length); }

void VDicomNet::SetLargestDataSet(VDicomUInt64 bytes) {
    m_pConnection->assembler.limits.data = bytes;
    m_pConnection->assembler.limits.inflated = std::min(bytes, vdicom::PDataLimits().inflated);
}

void VDicomNet::SetSocketBuffers(int send, int receive) {
    m_pConnection->socketOptions.sendBuffer = send;
    m_pConnection->socketOptions.receiveBuffer = receive;
}

void VDicomNet::SetSendInPlace(unsigned int bInPlace) { m_pConnection->sendInPlace = bInPlace != 0; }

void VDicomNet::SetUserData(void* userData) { m_pConnection->userData = userData; }

void* VDicomNet::GetUserData() const { return m_pConnection->userData; }

unsigned int VDicomNet::SendAssociateRequest(VDicomAssociate* associate) {
    return m_pConnection->SendAssociate(UpperEvent::sendAssociateRequest, associate);
}

unsigned int VDicomNet::SendAssociateAccept(VDicomAssociate* associate) {
    return m_pConnection->SendAssociate(UpperEvent::sendAssociateAccept, associate);
}

void VDicomNet::SendAssociateReject(unsigned char result, unsigned char source, unsigned char reason) {
    m_pConnection->SendShort(UpperEvent::sendAssociateReject, vdicom::EncodeReject(result, source, reason));
}

void VDicomNet::SendReleaseRequest() {
    m_pConnection->SendShort(UpperEvent::sendReleaseRequest, vdicom::EncodeReleaseRequest());
}

void VDicomNet::SendReleaseResponse() {
    m_pConnection->SendShort(UpperEvent::sendReleaseResponse, vdicom::EncodeReleaseResponse());
}

void VDicomNet::SendAbort(unsigned char source, unsigned char reason) {
    m_pConnection->SendShort(UpperEvent::sendAbort, vdicom::EncodeAbort(source, reason));
}

unsigned int VDicomNet::IsAssociated() const { return m_pConnection->IsAssociated() ? 1 : 0; }

VDicomAssociate* VDicomNet::GetAssociate() { return &m_pConnection->accepted; }

VDicomAssociate* VDicomNet::GetRequestAssociate() { return &m_pConnection->requested; }

unsigned int VDicomNet::SendRaw(const char* buffer, VDicomULong length) {
    if (!vdicom::IsNetworkStarted())
        return DICOM_ERROR_SOCKET_NOT_STARTED;
    return m_pConnection->SendBytes(buffer, length);
}

unsigned int VDicomNet::Send(const char* buffer, VDicomULong length) { return SendRaw(buffer, length); }

VDicomULong VDicomNet::GetQueueSend() const { return m_pConnection->QueuedBytes(); }

unsigned int VDicomNet::SendData(unsigned int bCommand, unsigned char id, VDicomDS* ds) {
    return m_pConnection->SendSet(bCommand != 0, id, ds);
}

unsigned int VDicomNet::SendData(unsigned char id, VDicomDS* command, VDicomDS* data) {
    if (command == nullptr)
        return DICOM_ERROR_PARAMETER;
    constexpr VDicomULong kDataSetType = 0x00000800;
    const unsigned short type = data == nullptr ? vdicom::kNoDataSet : static_cast<unsigned short>(0);
    if (command->FindSetValue(nullptr, kDataSetType, vdicom::vr::US, &type, 1) == 0)
        return DICOM_ERROR_MEMORY;
    const unsigned int code = SendData(1, id, command);
    return code == DICOM_OK && data != nullptr ? SendData(0u, id, data) : code;
}

void VDicomNet::Receive(int nError, unsigned char nType, char* buffer, VDicomULong length) {
    m_pConnection->Receive(nError, nType, buffer, length);
}

void VDicomNet::ReceiveData(unsigned char id, VDicomDS* command, VDicomDS* data) {
    if (command != nullptr)
        m_pConnection->ReceiveMessage(id, *command, data);
}

unsigned short VDicomNet::GetTS(unsigned int bCommand, const char* uid) {
    return vdicom::TransferFlags(bCommand != 0, uid);
}
