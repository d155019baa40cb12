// VDicomDS: conformance checks.
#include "Conformance.h"
#include "Guarded.h"

using namespace vdicom;

namespace {

/// Carries findings to a callback that knows elements and codes alone.
struct ElementSink {
    VDicomElementCallback callback;
    void* userData;

    static VDicomULong VDICOM_CALLBACK Take(const DICOMFINDING* finding, void* self) {
        const auto* sink = static_cast<const ElementSink*>(self);
        DICOMELEMENT* element = finding->pElement != nullptr ? finding->pElement : finding->pParent;
        return sink->callback(element, finding->nCode, sink->userData);
    }
};

} // namespace

unsigned int VDicomDS::ConformanceDS(VDicomElementCallback callback, void* userData) {
    if (callback == nullptr)
        return DICOM_ERROR_PARAMETER;
    ElementSink sink{callback, userData};
    return ConformanceDS(&ElementSink::Take, &sink, DICOM_UNDEFINED);
}

unsigned int VDicomDS::ConformanceDS(VDicomFindingCallback callback, void* userData, VDicomULong classId) {
    DataSetState& state = *m_pState;
    if (callback == nullptr || state.frozen)
        return DICOM_ERROR_PARAMETER;
    VDicomULong own = classId;
    if (classId == DICOM_UNDEFINED)
        GetClass(&own, nullptr);
    const DICOMIOD* const definition = VDicomIOD::FindClass(own);
    if (classId != DICOM_UNDEFINED && definition == nullptr)
        return DICOM_ERROR_PARAMETER;
    state.frozen = true;
    const unsigned int result = Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        ConformanceWalk(state, callback, userData).Run(definition);
        return DICOM_OK;
    });
    state.frozen = false;
    state.finding = nullptr;
    return result;
}

unsigned int VDicomDS::GetFinding(DICOMFINDING* finding) const {
    if (finding == nullptr || m_pState->finding == nullptr)
        return 0;
    *finding = *m_pState->finding;
    return 1;
}
