#include "Connection.h"

// One row of the command table stands behind each of these.

using vdicom::Command;
using vdicom::CommandValues;
using vdicom::Connection;

namespace {

/// A request that concerns a class, and an instance where it does.
CommandValues Request(unsigned short messageID, const char* classUID, const char* instanceUID = nullptr) {
    CommandValues values;
    values.messageId = messageID;
    values.affectedClass = classUID;
    values.affectedInstance = instanceUID;
    return values;
}

/// A request to an instance that is there already.
CommandValues RequestTo(unsigned short messageID, const char* classUID, const char* instanceUID) {
    CommandValues values;
    values.messageId = messageID;
    values.requestedClass = classUID;
    values.requestedInstance = instanceUID;
    return values;
}

CommandValues Response(unsigned short messageID, unsigned short status, const char* classUID,
                       const char* instanceUID = nullptr) {
    CommandValues values;
    values.respondedTo = messageID;
    values.status = status;
    values.affectedClass = classUID;
    values.affectedInstance = instanceUID;
    return values;
}

} // namespace

unsigned int VDicomNet::SendCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                          const char* instanceUID, unsigned short priority, const char*,
                                          unsigned short moveMessageID, VDicomDS* ds) {
    CommandValues values = Request(messageID, classUID, instanceUID);
    values.priority = priority;
    values.moveMessageId = moveMessageID;
    return Connection::Of(*this).SendMessage(Command::cStoreRequest, values, id, ds);
}

unsigned int VDicomNet::SendCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                           const char* instanceUID, unsigned short status) {
    return Connection::Of(*this).SendMessage(Command::cStoreResponse,
                                             Response(messageID, status, classUID, instanceUID), id, nullptr);
}

unsigned int VDicomNet::SendCFindRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                         unsigned short priority, VDicomDS* ds) {
    CommandValues values = Request(messageID, classUID);
    values.priority = priority;
    return Connection::Of(*this).SendMessage(Command::cFindRequest, values, id, ds);
}

unsigned int VDicomNet::SendCFindResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          unsigned short status, VDicomDS* ds) {
    return Connection::Of(*this).SendMessage(Command::cFindResponse, Response(messageID, status, classUID), id, ds);
}

unsigned int VDicomNet::SendCGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        unsigned short priority, VDicomDS* ds) {
    CommandValues values = Request(messageID, classUID);
    values.priority = priority;
    return Connection::Of(*this).SendMessage(Command::cGetRequest, values, id, ds);
}

unsigned int VDicomNet::SendCGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         unsigned short status, unsigned short remaining, unsigned short completed,
                                         unsigned short failed, unsigned short warning, VDicomDS* ds) {
    CommandValues values = Response(messageID, status, classUID);
    values.remaining = remaining;
    values.completed = completed;
    values.failed = failed;
    values.warning = warning;
    return Connection::Of(*this).SendMessage(Command::cGetResponse, values, id, ds);
}

unsigned int VDicomNet::SendCMoveRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                         unsigned short priority, const char* destination, VDicomDS* ds) {
    CommandValues values = Request(messageID, classUID);
    values.priority = priority;
    values.moveDestination = destination;
    return Connection::Of(*this).SendMessage(Command::cMoveRequest, values, id, ds);
}

unsigned int VDicomNet::SendCMoveResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          unsigned short status, unsigned short remaining, unsigned short completed,
                                          unsigned short failed, unsigned short warning, VDicomDS* ds) {
    CommandValues values = Response(messageID, status, classUID);
    values.remaining = remaining;
    values.completed = completed;
    values.failed = failed;
    values.warning = warning;
    return Connection::Of(*this).SendMessage(Command::cMoveResponse, values, id, ds);
}

unsigned int VDicomNet::SendCCancelRequest(unsigned char id, unsigned short messageID) {
    CommandValues values;
    values.respondedTo = messageID;
    return Connection::Of(*this).SendMessage(Command::cCancelRequest, values, id, nullptr);
}

unsigned int VDicomNet::SendCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) {
    return Connection::Of(*this).SendMessage(Command::cEchoRequest, Request(messageID, classUID), id, nullptr);
}

unsigned int VDicomNet::SendCEchoResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                          unsigned short status) {
    return Connection::Of(*this).SendMessage(Command::cEchoResponse, Response(messageID, status, classUID), id,
                                             nullptr);
}

unsigned int VDicomNet::SendNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                           const char* instanceUID, unsigned short event, VDicomDS* ds) {
    CommandValues values = Request(messageID, classUID, instanceUID);
    values.eventType = event;
    return Connection::Of(*this).SendMessage(Command::nReportRequest, values, id, ds);
}

unsigned int VDicomNet::SendNReportResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                            const char* instanceUID, unsigned short status, unsigned short event,
                                            VDicomDS* ds) {
    CommandValues values = Response(messageID, status, classUID, instanceUID);
    values.eventType = event;
    return Connection::Of(*this).SendMessage(Command::nReportResponse, values, id, ds);
}

unsigned int VDicomNet::SendNGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, const VDicomULong* attributes, unsigned short count) {
    if (attributes == nullptr && count != 0)
        return DICOM_ERROR_PARAMETER;
    CommandValues values = RequestTo(messageID, classUID, instanceUID);
    values.attributes = attributes;
    values.attributeCount = count;
    return Connection::Of(*this).SendMessage(Command::nGetRequest, values, id, nullptr);
}

unsigned int VDicomNet::SendNGetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status, VDicomDS* ds) {
    return Connection::Of(*this).SendMessage(Command::nGetResponse, Response(messageID, status, classUID, instanceUID),
                                             id, ds);
}

unsigned int VDicomNet::SendNSetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                        const char* instanceUID, VDicomDS* ds) {
    return Connection::Of(*this).SendMessage(Command::nSetRequest, RequestTo(messageID, classUID, instanceUID), id, ds);
}

unsigned int VDicomNet::SendNSetResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                         const char* instanceUID, unsigned short status, VDicomDS* ds) {
    return Connection::Of(*this).SendMessage(Command::nSetResponse, Response(messageID, status, classUID, instanceUID),
                                             id, ds);
}

unsigned int VDicomNet::SendNActionRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                           const char* instanceUID, unsigned short action, VDicomDS* ds) {
    CommandValues values = RequestTo(messageID, classUID, instanceUID);
    values.actionType = action;
    return Connection::Of(*this).SendMessage(Command::nActionRequest, values, id, ds);
}

unsigned int VDicomNet::SendNActionResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                            const char* instanceUID, unsigned short status, unsigned short action,
                                            VDicomDS* ds) {
    CommandValues values = Response(messageID, status, classUID, instanceUID);
    values.actionType = action;
    return Connection::Of(*this).SendMessage(Command::nActionResponse, values, id, ds);
}

unsigned int VDicomNet::SendNCreateRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                           const char* instanceUID, VDicomDS* ds) {
    return Connection::Of(*this).SendMessage(Command::nCreateRequest, Request(messageID, classUID, instanceUID), id,
                                             ds);
}

unsigned int VDicomNet::SendNCreateResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                            const char* instanceUID, unsigned short status, VDicomDS* ds) {
    return Connection::Of(*this).SendMessage(Command::nCreateResponse,
                                             Response(messageID, status, classUID, instanceUID), id, ds);
}

unsigned int VDicomNet::SendNDeleteRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                           const char* instanceUID) {
    return Connection::Of(*this).SendMessage(Command::nDeleteRequest, RequestTo(messageID, classUID, instanceUID), id,
                                             nullptr);
}

unsigned int VDicomNet::SendNDeleteResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                            const char* instanceUID, unsigned short status) {
    return Connection::Of(*this).SendMessage(Command::nDeleteResponse,
                                             Response(messageID, status, classUID, instanceUID), id, nullptr);
}
