#include "Connection.h"

// Every notification is forwarded to the callback table, and that is all.

using vdicom::Connection;

namespace {

template <class Function, class... Arguments>
void Forward(Function function, VDicomNet* net, const Arguments&... arguments) {
    if (function != nullptr)
        function(net, arguments...);
}

} // namespace

void VDicomNet::OnSecureLinkReady(VDicomULong nError) {
    Forward(Connection::Of(*this).callback.OnSecureLinkReady, this, nError);
}

unsigned int VDicomNet::SetVerifyTLS(VDicomULong mode, int (*verify)(int, x509_store_ctx_st*)) {
    Forward(Connection::Of(*this).callback.SetVerifyTLS, this, mode, verify);
    return DICOM_ERROR_NO_TLS;
}

void VDicomNet::GetChallengeISCL() {}

void VDicomNet::InternalAuthenticateISCL() {}

void VDicomNet::ExternalAuthenticateISCL() {}

void VDicomNet::OnNonSecureSendISCL() {}

void VDicomNet::OnNonSecureReceivedISCL() {}

void VDicomNet::OnReceivedISCLPacket() {}

void VDicomNet::OnConnect(int nError) { Forward(Connection::Of(*this).callback.OnConnect, this, nError); }

void VDicomNet::OnAccept(int nError) { Forward(Connection::Of(*this).callback.OnAccept, this, nError); }

void VDicomNet::OnClose(int nError, VDicomNet* connection) {
    Forward(Connection::Of(*this).callback.OnClose, this, nError, connection);
}

void VDicomNet::OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) {
    Forward(Connection::Of(*this).callback.OnReceive, this, nError, nType, buffer, length);
}

void VDicomNet::OnSend(int nError, unsigned char nType, VDicomULong nBytes) {
    Forward(Connection::Of(*this).callback.OnSend, this, nError, nType, nBytes);
}

void VDicomNet::OnReceiveAssociateRequest(VDicomAssociate* request) {
    Forward(Connection::Of(*this).callback.OnReceiveAssociateRequest, this, request);
}

void VDicomNet::OnReceiveAssociateAccept(VDicomAssociate* accept) {
    Forward(Connection::Of(*this).callback.OnReceiveAssociateAccept, this, accept);
}

void VDicomNet::OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) {
    Forward(Connection::Of(*this).callback.OnReceiveAssociateReject, this, result, source, reason);
}

void VDicomNet::OnReceiveData(unsigned char id, VDicomDS* command, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveData, this, id, command, data);
}

void VDicomNet::OnReceiveReleaseRequest() { Forward(Connection::Of(*this).callback.OnReceiveReleaseRequest, this); }

void VDicomNet::OnReceiveReleaseResponse() { Forward(Connection::Of(*this).callback.OnReceiveReleaseResponse, this); }

void VDicomNet::OnReceiveAbort(unsigned char source, unsigned char reason) {
    Forward(Connection::Of(*this).callback.OnReceiveAbort, this, source, reason);
}

void VDicomNet::OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                       const char* instanceUID, unsigned short priority, const char* moveAE,
                                       unsigned short moveMessageID, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCStoreRequest, this, id, messageID, classUID, instanceUID, priority,
            moveAE, moveMessageID, data);
}

void VDicomNet::OnReceiveCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, unsigned short status) {
    Forward(Connection::Of(*this).callback.OnReceiveCStoreResponse, this, id, messageID, classUID, instanceUID, status);
}

void VDicomNet::OnReceiveCFindRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                      unsigned short priority, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCFindRequest, this, id, messageID, classUID, priority, data);
}

void VDicomNet::OnReceiveCFindResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                       unsigned short status, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCFindResponse, this, id, messageID, classUID, status, data);
}

void VDicomNet::OnReceiveCGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                     unsigned short priority, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCGetRequest, this, id, messageID, classUID, priority, data);
}

void VDicomNet::OnReceiveCGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                      unsigned short status, unsigned short remaining, unsigned short completed,
                                      unsigned short failed, unsigned short warning, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCGetResponse, this, id, messageID, classUID, status, remaining,
            completed, failed, warning, data);
}

void VDicomNet::OnReceiveCMoveRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                      unsigned short priority, const char* destination, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCMoveRequest, this, id, messageID, classUID, priority, destination,
            data);
}

void VDicomNet::OnReceiveCMoveResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                       unsigned short status, unsigned short remaining, unsigned short completed,
                                       unsigned short failed, unsigned short warning, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveCMoveResponse, this, id, messageID, classUID, status, remaining,
            completed, failed, warning, data);
}

void VDicomNet::OnReceiveCCancelRequest(unsigned char id, unsigned short messageID) {
    Forward(Connection::Of(*this).callback.OnReceiveCCancelRequest, this, id, messageID);
}

void VDicomNet::OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) {
    Forward(Connection::Of(*this).callback.OnReceiveCEchoRequest, this, id, messageID, classUID);
}

void VDicomNet::OnReceiveCEchoResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                       unsigned short status) {
    Forward(Connection::Of(*this).callback.OnReceiveCEchoResponse, this, id, messageID, classUID, status);
}

void VDicomNet::OnReceiveNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, unsigned short event, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNReportRequest, this, id, messageID, classUID, instanceUID, event,
            data);
}

void VDicomNet::OnReceiveNReportResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status, unsigned short event,
                                         VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNReportResponse, this, id, messageID, classUID, instanceUID, status,
            event, data);
}

void VDicomNet::OnReceiveNGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, const VDicomULong* attributes, unsigned short count) {
    Forward(Connection::Of(*this).callback.OnReceiveNGetRequest, this, id, messageID, classUID, instanceUID, attributes,
            count);
}

void VDicomNet::OnReceiveNGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                      const char* instanceUID, unsigned short status, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNGetResponse, this, id, messageID, classUID, instanceUID, status,
            data);
}

void VDicomNet::OnReceiveNSetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNSetRequest, this, id, messageID, classUID, instanceUID, data);
}

void VDicomNet::OnReceiveNSetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                      const char* instanceUID, unsigned short status, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNSetResponse, this, id, messageID, classUID, instanceUID, status,
            data);
}

void VDicomNet::OnReceiveNActionRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, unsigned short action, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNActionRequest, this, id, messageID, classUID, instanceUID, action,
            data);
}

void VDicomNet::OnReceiveNActionResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status, unsigned short action,
                                         VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNActionResponse, this, id, messageID, classUID, instanceUID, status,
            action, data);
}

void VDicomNet::OnReceiveNCreateRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNCreateRequest, this, id, messageID, classUID, instanceUID, data);
}

void VDicomNet::OnReceiveNCreateResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveNCreateResponse, this, id, messageID, classUID, instanceUID, status,
            data);
}

void VDicomNet::OnReceiveNDeleteRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID) {
    Forward(Connection::Of(*this).callback.OnReceiveNDeleteRequest, this, id, messageID, classUID, instanceUID);
}

void VDicomNet::OnReceiveNDeleteResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status) {
    Forward(Connection::Of(*this).callback.OnReceiveNDeleteResponse, this, id, messageID, classUID, instanceUID,
            status);
}

void VDicomNet::OnReceiveUnknown(unsigned char id, VDicomDS* command, VDicomDS* data) {
    Forward(Connection::Of(*this).callback.OnReceiveUnknown, this, id, command, data);
}

void VDicomNet::OnSendExt(_DICOMNETDEBUGINFOONSEND* info) {
    Forward(Connection::Of(*this).callbackExt.OnSendExt, this, info);
}

void VDicomNet::OnCreateCTX(ssl_ctx_st* context) {
    Forward(Connection::Of(*this).callbackExt.OnCreateCTX, this, context);
}

int VDicomNet::OnPrivateKeyPassword(char*, int, int) { return 0; }

VDicomFile* VDicomNet::OnReceiveTarget(unsigned char, VDicomDS*) { return nullptr; }
