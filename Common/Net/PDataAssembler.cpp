#include "PDataAssembler.h"

#include "DataSetState.h"
#include "Guarded.h"
#include "Inflater.h"
#include "MessageSyntax.h"
#include "VRTraits.h"

namespace vdicom {

namespace {

constexpr VDicomULong kDataSetType = 0x00000800, kMediaClass = 0x00020002, kTransferSyntaxUID = 0x00020010;
constexpr unsigned short kNoDataSet = 0x0101;
constexpr unsigned short kShort = 1; // value type of FindGetValue
constexpr unsigned short kEncodingBits = 0x003C;

bool DataFollows(VDicomDS& command) {
    unsigned short type = kNoDataSet;
    return command.FindGetValue(nullptr, kDataSetType, kShort, &type, sizeof type) != 0 && type != kNoDataSet;
}

// Whatever the peer put there with another VR gives way: a text is no value of it.
bool SetUID(VDicomDS& dataSet, VDicomULong tag, const char* uid) {
    if (uid == nullptr)
        return true;
    DICOMELEMENT* e = dataSet.FindFirstElement(nullptr, tag, 1);
    while (e != nullptr) {
        DICOMELEMENT* next = dataSet.FindNextElement(e, 1);
        if (e->nVR != vr::UI)
            dataSet.DeleteElement(e);
        e = next;
    }
    return dataSet.FindSetValue(nullptr, tag, vr::UI, uid, 1) != 0;
}

} // namespace

void ReceivedDataSet::SetTransferSyntaxUID(const char* uid) { m_pState->transferSyntax = uid; }

PDataAssembler::PDataAssembler(const char* tempPath)
    : m_tempPath(tempPath == nullptr ? "" : tempPath), m_command(tempPath), m_data(tempPath) {}

void PDataAssembler::Empty(Collected& collected) {
    if (collected.stream.IsOpen() != 0 && (collected.stream.Seek(0, 0) == 0 || collected.stream.Write("", 0) == 0))
        collected.stream.Close(1);
}

void PDataAssembler::EmptyCommand() {
    m_command.ResetDS(1);
    Empty(m_commandBytes);
}

// The data set lets go of its stream first.
void PDataAssembler::EmptyData() {
    m_data.ResetDS(1);
    m_inflated.Close(1);
    m_target = nullptr;
    Empty(m_dataBytes);
}

void PDataAssembler::Reset() {
    EmptyData();
    EmptyCommand();
    m_commandBytes.skipping = m_dataBytes.skipping = m_broken = false;
}

void PDataAssembler::Receive(ByteSpan pdu, PDataReceiver& receiver) {
    unsigned int code = m_broken ? DICOM_ERROR_DATA_VALUE : DICOM_OK;
    DataValueReader values(pdu);
    while (code == DICOM_OK) {
        DataValue value;
        const DataValueReader::Result result = values.Next(value);
        if (result == DataValueReader::Result::end)
            return;
        bool gone = false;
        code = result == DataValueReader::Result::bad ? DICOM_ERROR_DATA_VALUE : Take(value, receiver, gone);
        if (gone)
            return;
    }
    EmptyData();
    EmptyCommand();
    PassOver(values);
    receiver.ReportFailure(code);
}

// The rest of a PDU is dropped: sets that have lost their beginning are passed over when they go on in the next one.
void PDataAssembler::PassOver(DataValueReader& values) {
    DataValue value;
    DataValueReader::Result result = values.Next(value);
    for (; result == DataValueReader::Result::value; result = values.Next(value))
        BytesOf(value).skipping = !value.last;
    m_broken = m_broken || result == DataValueReader::Result::bad;
}

// `gone`: the connection is, and nothing of this object may be touched.
unsigned int PDataAssembler::Take(const DataValue& value, PDataReceiver& receiver, bool& gone) {
    Collected& collected = BytesOf(value);
    if (collected.skipping) {
        collected.skipping = !value.last;
        return DICOM_OK;
    }
    if (const unsigned int code = Append(value); code != DICOM_OK) {
        collected.skipping = !value.last;
        return code;
    }
    if (!value.last)
        return DICOM_OK;
    return value.command ? FinishCommand(value.contextId, receiver, gone) : FinishData(value.contextId, receiver, gone);
}

unsigned int PDataAssembler::Append(const DataValue& value) {
    VDicomFile& own = value.command ? m_commandBytes.stream : m_dataBytes.stream;
    VDicomFile& stream = !value.command && m_target != nullptr ? *m_target : own;
    if (&stream == &own && own.IsOpen() == 0) {
        const unsigned short mode = value.command ? DICOM_FILE_MODE_MEMORY : DICOM_FILE_MODE_SCRATCH;
        if (own.Open(m_tempPath.c_str(), mode) == 0)
            return DICOM_ERROR_OPEN;
    }
    const VDicomUInt64 limit = value.command ? limits.command : limits.data;
    if (value.fragment.size > limit - std::min(limit, stream.GetSize64()))
        return value.command ? DICOM_ERROR_COMMAND_LENGTH : DICOM_ERROR_SIZE;
    if (value.fragment.size == 0) // would cut the stream off
        return DICOM_OK;
    if (stream.Seek64(0, 2) != 0 &&
        stream.Write(value.fragment.data, static_cast<VDicomULong>(value.fragment.size)) != 0)
        return DICOM_OK;
    return value.command ? DICOM_ERROR_MEMORY : DICOM_ERROR_WRITE;
}

unsigned int PDataAssembler::FinishCommand(unsigned char contextId, PDataReceiver& receiver, bool& gone) {
    const unsigned int code = m_command.LoadDS(&m_commandBytes.stream, 0, DICOM_TS_IMPLICIT_LITTLE);
    if (code != DICOM_OK)
        return code;
    if (DataFollows(m_command)) {
        m_target = receiver.DataTarget(contextId, m_command);
        return DICOM_OK;
    }
    gone = !receiver.ReceiveMessage(contextId, m_command, nullptr);
    if (!gone)
        EmptyCommand();
    return DICOM_OK;
}

unsigned int PDataAssembler::FinishData(unsigned char contextId, PDataReceiver& receiver, bool& gone) {
    const char* transferSyntax = receiver.TransferSyntaxOf(contextId);
    if (transferSyntax == nullptr)
        return DICOM_ERROR_NO_SYNTAX;
    const unsigned int code = Load(transferSyntax, receiver.AbstractSyntaxOf(contextId));
    if (code != DICOM_OK)
        return code;
    gone = !receiver.ReceiveMessage(contextId, m_command, &m_data);
    if (!gone) {
        EmptyData();
        EmptyCommand();
    }
    return DICOM_OK;
}

unsigned int PDataAssembler::Load(const char* transferSyntax, const char* abstractSyntax) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        VDicomFile* stream = m_target != nullptr ? m_target : &m_dataBytes.stream;
        const WireSyntax syntax = WireSyntaxOf(false, transferSyntax);
        // A target that begins with group 0002 names the syntax itself, and the loader inflates.
        if (syntax.deflated && m_target == nullptr) {
            std::string reason;
            const unsigned int code = InflateStream(*stream, 0, m_inflated, m_tempPath, limits.inflated, reason);
            if (code != DICOM_OK)
                return code;
            stream = &m_inflated;
        }
        unsigned int code = m_data.LoadDS(stream, 0, syntax.flags & kEncodingBits);
        if (code == DICOM_OK &&
            (!SetUID(m_data, kTransferSyntaxUID, transferSyntax) || !SetUID(m_data, kMediaClass, abstractSyntax)))
            code = DICOM_ERROR_WRITE;
        if (code == DICOM_OK && syntax.encapsulated)
            m_data.SetTransferSyntaxUID(transferSyntax);
        return code;
    });
}

} // namespace vdicom
