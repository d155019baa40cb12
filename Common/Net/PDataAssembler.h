/// @file PDataAssembler.h
/// Collects the fragments of P-DATA-TF PDUs until they are messages, and decodes them. Knows no socket.
///
/// One per connection. The connection implements PDataReceiver and calls Receive for the step `collectData` of
/// UpperLayer; ReceiveMessage is the way into the DIMSE dispatcher. It calls Reset before an object is used for another
/// connection, not from inside a notification: the application is still looking at the data sets then.
///
/// There is one buffer for commands and one for data sets, whatever presentation contexts the fragments name; the
/// context of a message is that of its last fragment. Nothing is asked of a context but its transfer syntax.
#pragma once

#include "PduCodec.h"
#include "VDicomDS.h"

#include <string>

namespace vdicom {

/// What the assembler asks and tells. ReceiveMessage and ReportFailure may end the connection, and say so; what is
/// asked must not.
class PDataReceiver {
public:
    virtual ~PDataReceiver() = default;

    /// The first transfer syntax of a context in the accepted association; null when there is none.
    virtual const char* TransferSyntaxOf(unsigned char contextId) = 0;
    /// The context's abstract syntax; null when there is none.
    virtual const char* AbstractSyntaxOf(unsigned char contextId) = 0;
    /// A command has arrived and a data set follows: where its bytes go. An open stream that can be read and written,
    /// which stays the receiver's and must outlive ReceiveMessage; what stands in it already (a preamble and group
    /// 0002) is loaded as part of the data set. Null: the assembler's own storage.
    virtual VDicomFile* DataTarget(unsigned char /*contextId*/, VDicomDS& /*command*/) { return nullptr; }
    /// A whole message; both data sets are the assembler's and are emptied afterwards. `data` is null when the command
    /// says that none follows. @return false: the connection is gone, the assembler must not be touched
    virtual bool ReceiveMessage(unsigned char contextId, VDicomDS& command, VDicomDS* data) = 0;
    /// OnReceive with a result code. @return as ReceiveMessage
    virtual bool ReportFailure(unsigned int code) = 0;
};

struct PDataLimits {
    /// Bytes of a command set. They are kept in memory; the longest real ones, lists of attributes, have some thousand.
    VDicomUInt64 command = VDicomUInt64{1} << 20;
    /// Bytes of a data set, in temporary storage or in the receiver's stream; unless set there is no limit.
    VDicomUInt64 data = ~VDicomUInt64{0};
    /// Bytes that a deflated data set may inflate to, in temporary storage.
    VDicomUInt64 inflated = VDicomUInt64{16} << 30;
};

/// A received data set, which is told the encapsulated transfer syntax that its bytes do not name.
class ReceivedDataSet : public VDicomDS {
public:
    using VDicomDS::VDicomDS;
    void SetTransferSyntaxUID(const char* uid);
};

class PDataAssembler {
public:
    /// @param tempPath folder for temporary files; null or empty: the platform's
    explicit PDataAssembler(const char* tempPath);
    /// Another folder, for what is opened from now on. May throw std::bad_alloc.
    void SetTempPath(const char* tempPath) { m_tempPath = tempPath == nullptr ? "" : tempPath; }

    PDataLimits limits;

    /// Takes the presentation data values of one P-DATA-TF. Failures are reported; they end the PDU.
    ///
    /// DICOM_ERROR_NO_SYNTAX: a data set without transfer syntax. DICOM_ERROR_DATA_VALUE: from then on nothing is
    /// delivered until Reset, since bytes are missing; each P-DATA-TF reports it again. DICOM_ERROR_COMMAND_LENGTH,
    /// DICOM_ERROR_SIZE (a data set beyond its limit), DICOM_ERROR_MEMORY, DICOM_ERROR_OPEN, DICOM_ERROR_WRITE (no
    /// storage, or it is full): the rest of that set is passed over. Codes of
    /// VDicomDS::LoadDS: it cannot be decoded. What was collected of the message is dropped each time.
    void Receive(ByteSpan pdu, PDataReceiver& receiver);

    /// Drops what has been collected.
    void Reset();

    /// Data sets of the message being received.
    VDicomDS& Command() { return m_command; }
    VDicomDS& Data() { return m_data; }

private:
    /// A stream that collects fragments of one kind.
    struct Collected {
        VDicomFile stream;
        bool skipping = false; ///< after a failure: up to the last fragment
    };

    Collected& BytesOf(const DataValue& value) { return value.command ? m_commandBytes : m_dataBytes; }
    unsigned int Take(const DataValue& value, PDataReceiver& receiver, bool& gone);
    unsigned int Append(const DataValue& value);
    void PassOver(DataValueReader& values);
    unsigned int FinishCommand(unsigned char contextId, PDataReceiver& receiver, bool& gone);
    unsigned int FinishData(unsigned char contextId, PDataReceiver& receiver, bool& gone);
    unsigned int Load(const char* transferSyntax, const char* abstractSyntax);
    static void Empty(Collected& collected);
    void EmptyCommand();
    void EmptyData();

    std::string m_tempPath;
    Collected m_commandBytes;
    Collected m_dataBytes;
    VDicomFile* m_target = nullptr; ///< the receiver's own stream for the data set
    VDicomFile m_inflated;
    VDicomDS m_command;
    ReceivedDataSet m_data;
    bool m_broken = false; ///< a value ran past its PDU
};

} // namespace vdicom
