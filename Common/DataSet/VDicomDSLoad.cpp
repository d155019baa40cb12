// VDicomDS: loading streams, files and memory, and what the last load found wrong.
#include "DefaultVR.h"
#include "Guarded.h"
#include "Reader.h"

#include <algorithm>

using namespace vdicom;

unsigned int VDicomDS::LoadDS(const char* path, unsigned short flags) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        ResetDS(1);
        DataSetState& state = *m_pState;
        if (path == nullptr || state.frozen)
            return DICOM_ERROR_PARAMETER;
        if (state.loadStream.Open(path, DICOM_FILE_MODE_LOAD) == 0) {
            state.error = state.loadStream.GetError();
            return DICOM_ERROR_OPEN;
        }
        if (StreamAccess::Size(state.loadStream) == 0) {
            state.AddFault(DICOM_ERROR_READ, 0, 0, "the file is empty", true);
            return DICOM_ERROR_READ;
        }
        const unsigned int code = FinishLoad(Reader(state).Load(state.loadStream, flags, nullptr));
        return code != DICOM_OK ? code : FixBadElements();
    });
}

unsigned int VDicomDS::LoadDSMemory(const unsigned char* buffer, VDicomULong size, unsigned short flags) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        ResetDS(1);
        DataSetState& state = *m_pState;
        if (state.frozen || state.loadStream.Open(nullptr, DICOM_FILE_MODE_MEMORY) == 0 ||
            state.loadStream.SetMemoryBuffer(buffer, size, 1) == 0)
            return DICOM_ERROR_PARAMETER;
        const unsigned int code = FinishLoad(Reader(state).Load(state.loadStream, flags, nullptr));
        return code != DICOM_OK ? code : FixBadElements();
    });
}

unsigned int VDicomDS::LoadDS(VDicomFile* stream, unsigned short flags, unsigned short transferSyntax) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        ResetDS(1);
        if (stream == nullptr || stream->IsOpen() == 0 || m_pState->frozen)
            return DICOM_ERROR_PARAMETER;
        const Encoding given = Encoding::FromFlags(transferSyntax);
        return FinishLoad(Reader(*m_pState).Load(*stream, flags, transferSyntax == 0 ? nullptr : &given));
    });
}

unsigned int VDicomDS::FinishLoad(unsigned int code) {
    if (m_pState->tree.FindChild(nullptr, kDirectoryRecords) != nullptr) {
        m_pState->keysFromOffsets = true;
        m_pState->BuildKeys();
    }
    if (code != DICOM_OK)
        m_pState->error = m_pState->source->GetError();
    return code;
}

unsigned int VDicomDS::ReadSequence(VDicomFile* stream, DICOMELEMENT* parent, unsigned short tsCode,
                                    VDicomULong* length) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        DataSetState& state = *m_pState;
        if (stream == nullptr || stream->IsOpen() == 0 || !state.Check(parent) || state.frozen)
            return DICOM_ERROR_PARAMETER;
        const Encoding encoding = Encoding::FromFlags(tsCode);
        // Values keep the byte order that they are stored in, which is one for the whole data set.
        if (state.tree.First() == nullptr)
            state.flags = static_cast<unsigned short>((state.flags & ~0x003C) | encoding.Code());
        else if (encoding.littleEndian != state.IsLittleEndianBelow(parent))
            return DICOM_ERROR_PARAMETER;
        const VDicomUInt64 start = stream->Tell64();
        VDicomUInt64 end = StreamAccess::Size(*stream);
        if (length != nullptr && *length != DICOM_UNDEFINED)
            end = std::min(end, start + *length);
        VDicomUInt64 stopped = start;
        const unsigned int code = Reader(state).ReadLevel(*stream, parent, encoding, start, end, stopped);
        if (length != nullptr)
            *length = static_cast<VDicomULong>(std::min<VDicomUInt64>(stopped - start, DICOM_UNDEFINED));
        stream->Seek64(static_cast<VDicomInt64>(stopped), 0);
        return code;
    });
}

unsigned int VDicomDS::ReadElement(VDicomFile* stream, VDicomULong* tag, unsigned short* vr, VDicomULong* length,
                                   unsigned int littleEndian, unsigned int explicitVR) {
    if (stream == nullptr || tag == nullptr || vr == nullptr || length == nullptr)
        return DICOM_ERROR_PARAMETER;
    *vr = vr::UN;
    const DataSetState& state = *m_pState;
    const VDicomUInt64 position = stream->Tell64();
    const VDicomUInt64 size = StreamAccess::Size(*stream);
    const ByteSpan in = StreamAccess::View(*stream, position, kLongestHeader);
    if (in.size < 2)
        return DICOM_ERROR_END;
    ElementHeader header;
    if (DecodeHeader(in, {littleEndian != 0, explicitVR != 0}, size - position, header) == Decoded::needMore)
        return DICOM_ERROR_READ;
    *tag = header.tag;
    *vr = header.vr;
    *length = header.length;
    const bool odd = header.length != DICOM_UNDEFINED && (header.length & 1) != 0;
    if (odd && ((state.flags & DICOM_FLAG_PART10) == 0 || state.badCount == DataSetState::kMaxBad))
        return DICOM_ERROR_LENGTH;
    return stream->Seek64(header.size, 1) != 0 ? DICOM_OK : DICOM_ERROR_READ;
}

unsigned int VDicomDS::Read(VDicomFile* stream, void* buffer, VDicomULong size, unsigned short vr,
                            unsigned int littleEndian) {
    if (stream == nullptr || stream->Read(buffer, size) == 0)
        return 0;
    if (littleEndian == 0)
        SwapUnits(static_cast<unsigned char*>(buffer), size, SwapUnit(vr));
    return 1;
}

unsigned short VDicomDS::GetDefaultVR(DICOMELEMENT* parent, VDicomULong tag, unsigned int compressed) {
    const DataSetState& state = *m_pState;
    if (!state.Check(parent))
        return 0;
    return Guarded<unsigned short>(vr::UN, [&] { return DefaultVR(state, parent, tag, compressed != 0, nullptr); });
}

unsigned int VDicomDS::FixBadElements() {
    DataSetState& state = *m_pState;
    for (std::size_t i = 0; i < state.badCount; ++i) {
        DICOMELEMENT* e = state.bad[i].element;
        if (state.bad[i].kind != 1 || (e->nLength & 1) == 0)
            continue;
        // The pad byte is a piece of its own: a value of any size stays where it is.
        const unsigned char pad = PadByte(e->nVR);
        if (SetFileBinaryValue(e, &pad, e->nLength, 1) == 0)
            return DICOM_ERROR_WRITE;
    }
    state.badCount = 0;
    return DICOM_OK;
}

void VDicomDS::SetLoadLimit(VDicomULong tag) { m_pState->loadLimit = tag; }

void VDicomDS::SetInflateLimit(VDicomUInt64 bytes) { m_pState->inflateLimit = bytes; }

int VDicomDS::GetError() const { return m_pState->error; }

VDicomULong VDicomDS::GetCountFault() const { return static_cast<VDicomULong>(m_pState->faults.size()); }

unsigned int VDicomDS::GetFault(VDicomULong index, DICOMFAULT* fault) const {
    if (fault == nullptr || index >= m_pState->faults.size())
        return 0;
    const Fault& found = m_pState->faults[index];
    *fault = {found.code, found.offset, found.tag, found.text.c_str()};
    return 1;
}
