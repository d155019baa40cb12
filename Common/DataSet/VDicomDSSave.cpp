// VDicomDS: saving, file meta information, and the sizes and offsets that go with it.
#include "Guarded.h"
#include "SavePlan.h"
#include "VDicomUID.h"
#include "Writer.h"

#include <cstring>

using namespace vdicom;

namespace {

constexpr char kImplementationClassUID[] = "1.2.840.999001.1";
constexpr char kImplementationVersionName[] = "CORVANTIS 13";

constexpr VDicomULong kMetaLength = 0x00020000, kMetaVersion = 0x00020001, kMediaClass = 0x00020002,
                      kMediaInstance = 0x00020003, kTransferSyntaxUID = 0x00020010, kImplementationClass = 0x00020012,
                      kImplementationVersion = 0x00020013, kSOPClass = 0x00080016, kSOPInstance = 0x00080018;

VDicomULong Narrow(VDicomUInt64 size) {
    return size < DICOM_UNDEFINED ? static_cast<VDicomULong>(size) : DICOM_UNDEFINED;
}

// Sets a text element of group 0002; one that says so already is left alone.
bool SetMeta(VDicomDS& dataSet, const DataSetState& state, VDicomULong tag, unsigned short vr,
             const std::string& text) {
    DICOMELEMENT* e = state.tree.FindChild(nullptr, tag);
    if (e != nullptr && TextOf(state, e) == text)
        return true;
    // One whose VR cannot hold a text gives way.
    if (e != nullptr && e->nVR != vr)
        dataSet.DeleteElement(e);
    return dataSet.FindSetValue(nullptr, tag, vr, text.c_str(), 1) != 0;
}

// A UID of group 0002 that repeats one of the data set: filled where it is missing, and brought in step where the
// application has changed the other. What a file says is otherwise kept, also where both differ.
bool RepeatUID(VDicomDS& dataSet, const DataSetState& state, VDicomULong tag, VDicomULong from) {
    const DICOMELEMENT* source = state.tree.FindChild(nullptr, from);
    const std::string uid = TextOf(state, source);
    const DICOMELEMENT* own = state.tree.FindChild(nullptr, tag);
    const bool isMissing = own == nullptr || own->nLength == 0;
    if (uid.empty() || (!isMissing && !state.IsScratch(source->pPieceStream[0])))
        return true;
    return SetMeta(dataSet, state, tag, vr::UI, uid);
}

} // namespace

// Brings group 0002 in the form that is going to be written. DICOM_ERROR_PARAMETER while a conformance check runs: its
// elements must not change under it.
unsigned int VDicomDS::PrepareMeta(const SavePlan& plan) {
    DataSetState& state = *m_pState;
    const DICOMELEMENT* first = Layout(state, plan.encoding, plan.bare).FirstWritten(nullptr);
    const bool hasMeta = first != nullptr && GroupOf(first->nTag) == 2;
    if (plan.bare || (!plan.part10 && !hasMeta))
        return DICOM_OK;
    if (state.frozen)
        return DICOM_ERROR_PARAMETER;
    if (FillMeta(plan))
        return DICOM_OK;
    // Either memory ran out, or the place for new values.
    VDicomFile* scratch = state.Scratch();
    state.error = scratch == nullptr ? state.ScratchSlot()->GetError() : scratch->GetError();
    return scratch == nullptr || state.error != 0 ? DICOM_ERROR_WRITE : DICOM_ERROR_MEMORY;
}

bool VDicomDS::FillMeta(const SavePlan& plan) {
    DataSetState& state = *m_pState;
    const bool isNamed = state.tree.FindChild(nullptr, kTransferSyntaxUID) != nullptr;
    if (!isNamed || (!plan.compressed && !plan.keepUID)) {
        if (!SetMeta(*this, state, kTransferSyntaxUID, vr::UI, EncodingUID(plan.encoding, plan.deflated)))
            return false;
    }
    if (!plan.part10)
        return true;
    if (state.tree.FindChild(nullptr, kMetaVersion) == nullptr) {
        const char version[] = {0, 1};
        if (FindSetValue(nullptr, kMetaVersion, vr::OB, version, sizeof version) == 0)
            return false;
    }
    if (!RepeatUID(*this, state, kMediaClass, kSOPClass) || !RepeatUID(*this, state, kMediaInstance, kSOPInstance))
        return false;
    if (TextOf(state, state.tree.FindChild(nullptr, kMediaInstance)).empty()) {
        char uid[65];
        if (VDicomUID::Generate(uid) == 0 || !SetMeta(*this, state, kMediaInstance, vr::UI, uid))
            return false;
    }
    if (state.tree.FindChild(nullptr, kImplementationClass) == nullptr &&
        (!SetMeta(*this, state, kImplementationClass, vr::UI, kImplementationClassUID) ||
         !SetMeta(*this, state, kImplementationVersion, vr::SH, kImplementationVersionName)))
        return false;
    DICOMELEMENT* length = state.tree.FindChild(nullptr, kMetaLength);
    if (length != nullptr && (length->nVR != vr::UL || IsUndefinedLength(length))) {
        DeleteElement(length);
        length = nullptr;
    }
    if (length == nullptr)
        length = state.Append(nullptr, kMetaLength, vr::UL, false);
    // The value as well, so that who asks for it after saving sees what was written.
    const Layout layout(state, plan.encoding, plan.bare);
    const auto size = static_cast<VDicomLong>(layout.SizeOfGroup(length));
    VDicomLong stored = -1;
    if (FindGetValue(nullptr, kMetaLength, 2, &stored, sizeof stored) != 0 && stored == size)
        return true;
    return SetLongValue(length, &size, 1) != 0;
}

unsigned int VDicomDS::SaveDS(const char* path, unsigned short flags) {
    DataSetState& state = *m_pState;
    state.error = 0;
    if (path == nullptr)
        return DICOM_ERROR_PARAMETER;
    const auto isPossible = [&]() -> unsigned int {
        return PlanSave(state, flags).possible ? DICOM_OK : DICOM_ERROR_PARAMETER;
    };
    if (const unsigned int code = Guarded<unsigned int>(DICOM_ERROR_MEMORY, isPossible); code != DICOM_OK)
        return code;
    VDicomFile file;
    if (!StreamAccess::OpenReplacement(file, path)) {
        state.error = file.GetError();
        return DICOM_ERROR_OPEN;
    }
    const unsigned int code = SaveDS(&file, flags);
    if (code != DICOM_OK) {
        file.Close(1);
        return code;
    }
    if (StreamAccess::CommitReplacement(file))
        return DICOM_OK;
    state.error = file.GetError();
    return DICOM_ERROR_WRITE;
}

unsigned int VDicomDS::SaveDS(VDicomFile* stream, unsigned short flags) {
    if (stream == nullptr || stream->IsOpen() == 0)
        return DICOM_ERROR_PARAMETER;
    m_pState->error = 0;
    const auto code = Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&] { return WriteAll(*stream, flags); });
    if (code != DICOM_OK) {
        if (code == DICOM_ERROR_WRITE && stream->GetError() != 0)
            m_pState->error = stream->GetError();
        else if (code == DICOM_ERROR_READ)
            m_pState->error = m_pState->source->GetError();
        stream->Close(1);
    }
    return code;
}

unsigned int VDicomDS::WriteAll(VDicomFile& stream, unsigned short flags) {
    const DataSetState& state = *m_pState;
    const SavePlan plan = PlanSave(state, flags);
    if (!plan.possible)
        return DICOM_ERROR_PARAMETER;
    if (const unsigned int code = PrepareMeta(plan); code != DICOM_OK)
        return code;
    if (plan.part10 && (stream.Write(state.preamble, sizeof state.preamble) == 0 || stream.Write("DICM", 4) == 0))
        return DICOM_ERROR_WRITE;
    const unsigned int code = Writer(state, stream, plan.encoding, plan.bare).WriteTop(plan.Prefix(), plan.deflated);
    if (code != DICOM_OK)
        return code;
    return stream.Flush() != 0 ? DICOM_OK : DICOM_ERROR_WRITE;
}

void VDicomDS::SetProgressDS(VDicomProgressCallback callback, void* userData) {
    m_pState->progress = callback;
    m_pState->progressData = userData;
}

unsigned int VDicomDS::WriteSequence(VDicomFile* stream, DICOMELEMENT* parent, unsigned short flags) {
    if (stream == nullptr || !m_pState->Check(parent))
        return DICOM_ERROR_PARAMETER;
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        const SavePlan plan = PlanSave(*m_pState, flags);
        if (!plan.possible)
            return DICOM_ERROR_PARAMETER;
        return Writer(*m_pState, *stream, plan.encoding, plan.bare).WriteLevel(parent);
    });
}

unsigned int VDicomDS::WriteElement(VDicomFile* stream, VDicomULong tag, unsigned short vr, VDicomULong length,
                                    unsigned int littleEndian, unsigned int explicitVR) {
    if (stream == nullptr)
        return DICOM_ERROR_WRITE;
    unsigned char header[kLongestHeader];
    const unsigned int size = EncodeHeader(header, tag, vr, length, {littleEndian != 0, explicitVR != 0});
    if (size == 0)
        return DICOM_ERROR_SIZE;
    return stream->Write(header, size) != 0 ? DICOM_OK : DICOM_ERROR_WRITE;
}

unsigned int VDicomDS::Write(VDicomFile* stream, const void* buffer, VDicomULong size, unsigned short vr,
                             unsigned int littleEndian) {
    if (stream == nullptr || (buffer == nullptr && size != 0))
        return 0;
    const unsigned int unit = SwapUnit(vr);
    if (littleEndian != 0 || unit == 1)
        return stream->Write(buffer, size);
    const auto* bytes = static_cast<const unsigned char*>(buffer);
    unsigned char swapped[4096];
    for (VDicomULong at = 0; at < size;) {
        const VDicomULong part = std::min<VDicomULong>(size - at, sizeof swapped);
        std::memcpy(swapped, bytes + at, part);
        SwapUnits(swapped, part, unit);
        if (stream->Write(swapped, part) == 0)
            return 0;
        at += part;
    }
    return 1;
}

unsigned short VDicomDS::GetPreamble(char* buffer, unsigned short size) {
    if (buffer == nullptr)
        return 0;
    size = std::min<unsigned short>(size, sizeof m_pState->preamble);
    std::memcpy(buffer, m_pState->preamble, size);
    return size;
}

unsigned short VDicomDS::SetPreamble(const char* buffer, unsigned short size) {
    if (buffer == nullptr)
        return 0;
    size = std::min<unsigned short>(size, sizeof m_pState->preamble);
    std::memcpy(m_pState->preamble, buffer, size);
    return size;
}

VDicomULong VDicomDS::GetLengthElement(VDicomULong tag, unsigned short vr, VDicomULong, unsigned int explicitVR) {
    return HeaderSize(tag, vr, {true, explicitVR != 0});
}

VDicomULong VDicomDS::GetLengthGroup(DICOMELEMENT* e, unsigned short flags) {
    if (e == nullptr || !m_pState->Check(e))
        return DICOM_UNDEFINED;
    return Guarded(DICOM_UNDEFINED, [&] {
        const SavePlan plan = PlanSave(*m_pState, flags);
        if (ParentOf(e) == nullptr && GroupOf(e->nTag) == 2 && PrepareMeta(plan) != DICOM_OK)
            return DICOM_UNDEFINED;
        return Narrow(Layout(*m_pState, plan.encoding, plan.bare).SizeOfGroup(e));
    });
}

VDicomULong VDicomDS::GetLengthSequence(DICOMELEMENT* e, unsigned short flags) {
    if (e == nullptr || !m_pState->Check(e))
        return DICOM_UNDEFINED;
    return Guarded(DICOM_UNDEFINED, [&] {
        const SavePlan plan = PlanSave(*m_pState, flags);
        return Narrow(Layout(*m_pState, plan.encoding, plan.bare).SizeBelow(e));
    });
}

VDicomULong VDicomDS::GetOffsetElement(DICOMELEMENT* e, unsigned short flags) {
    return Narrow(GetOffsetElement64(e, flags));
}

VDicomUInt64 VDicomDS::GetOffsetElement64(DICOMELEMENT* e, unsigned short flags) {
    if (!m_pState->Check(e))
        return DICOM_UNDEFINED;
    return Guarded(VDicomUInt64{DICOM_UNDEFINED}, [&] {
        const SavePlan plan = PlanSave(*m_pState, flags);
        if (PrepareMeta(plan) != DICOM_OK)
            return VDicomUInt64{DICOM_UNDEFINED};
        const Layout layout(*m_pState, plan.encoding, plan.bare);
        return plan.Prefix() + (e != nullptr ? layout.OffsetOf(e) : layout.SizeBelow(nullptr));
    });
}

VDicomULong VDicomDS::GetElementOffset(DICOMELEMENT* e) { return Narrow(GetElementOffset64(e)); }

VDicomUInt64 VDicomDS::GetElementOffset64(DICOMELEMENT* e) {
    if (e == nullptr || !m_pState->Check(e) || (m_pState->flags & DICOM_FLAG_OFFSETS) == 0)
        return 0;
    return NodeOf(e)->streamOffset;
}
