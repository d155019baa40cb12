/// @file DataSetState.h
/// What stands behind a VDicomDS. Private to Common/DataSet and to the classes derived from VDicomDS.
#pragma once

#include "Bytes.h"
#include "CharacterSetCache.h"
#include "ElementTree.h"
#include "Keys.h"
#include "StreamAccess.h"
#include "TransferSyntax.h"
#include "VDicomDS.h"
#include "VRTraits.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vdicom {

/// A fault as collected while reading; DICOMFAULT points into it.
struct Fault {
    unsigned int code = 0;
    VDicomUInt64 offset = 0;
    VDicomULong tag = 0;
    std::string text;
};

/// An element whose value has to be stored again after loading.
struct BadElement {
    VDicomULong code;
    DICOMELEMENT* element;
    VDicomULong kind; ///< 1: a value of odd length
};

class DataSetState {
public:
    explicit DataSetState(const char* tempPath);
    ~DataSetState();

    /// The scratch stream, opened at its first use. Null when it cannot be opened.
    VDicomFile* Scratch();
    /// The scratch stream as the home of new elements' first piece, whether it is open or not.
    VDicomFile* ScratchSlot() { return &m_scratch; }
    bool IsScratch(const VDicomFile* stream) const;
    /// Throws the scratch stream's bytes away; no element may need them any more.
    bool EmptyScratch();

    /// Whether the value bytes of `e` are stored little endian: group 0002 always, content of "UN" sequences too.
    bool IsLittleEndian(const DICOMELEMENT* e) const;
    /// The same for what stands below an element (null: at the top level).
    bool IsLittleEndianBelow(const DICOMELEMENT* parent) const;
    /// How many bytes are swapped together when the raw value of `e` is turned into host order; 1: none.
    unsigned int SwapUnitOf(const DICOMELEMENT* e) const;

    /// The invalid-element check: false when a callback is set and `e` is not an element of this data set. The callback
    /// has been called then.
    bool Check(const DICOMELEMENT* e) const;

    /// Inserts without the checks of VDicomDS::InsertElement that speak of what users may insert (a tag twice, group
    /// lengths, trailing padding): what readers and copies need.
    DICOMELEMENT* Append(DICOMELEMENT* parent, VDicomULong tag, unsigned short vr, bool undefined);

    /// The private creator's text for a private element ("" when there is none), from its (gggg,00bb).
    std::string CreatorOf(const DICOMELEMENT* parent, VDicomULong tag) const;

    /// Called before an element and all below it are deleted: what is kept about them beside the tree is forgotten.
    void ElementsGone(const DICOMELEMENT* top);

    /// `isReason`: the load ends with it, so that it is kept in any case.
    void AddFault(unsigned int code, VDicomUInt64 offset, VDicomULong tag, std::string text, bool isReason);

    static constexpr std::size_t kMaxBad = 50;
    static constexpr std::size_t kMaxFaults = 50;

    ElementTree tree;
    unsigned short flags = DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE;
    char identification[65] = {};
    char preamble[128] = {};
    VDicomFile* source = &loadStream; ///< where the elements' bytes come from; `loadStream` when nothing is loaded
    VDicomFile loadStream;
    VDicomFile inflated; ///< what a deflated stream inflated to
    std::string tempPath;
    bool frozen = false;                   ///< a conformance check is running: the tree must not change
    const DICOMFINDING* finding = nullptr; ///< what its callback has been called for
    VDicomULong keepPixelData = 0;
    VDicomElementCallback callback = nullptr;
    void* callbackData = nullptr;
    VDicomProgressCallback progress = nullptr;
    void* progressData = nullptr;
    std::array<BadElement, kMaxBad> bad{};
    std::size_t badCount = 0;
    std::vector<Fault> faults;
    std::string transferSyntax; ///< the UID in force; empty: none
    VDicomULong depthLimit = 128;
    VDicomULong loadLimit = DICOM_UNDEFINED;
    VDicomUInt64 inflateLimit = VDicomUInt64{16} << 30;
    int error = 0;    ///< the platform's number for the last load or save that failed
    std::string text; ///< what texts handed out as pointers are kept in
    std::string utf8; ///< a text on its way to UTF-8
    mutable CharacterSetCache characterSets;

    /// Builds the key numbers of the directory records anew. Without memory for that there are none.
    void BuildKeys();

    KeyIndex keys; ///< the directory records
    /// The offsets of (0004,1220) are those of the stream just loaded and have not been turned into numbers yet.
    bool keysFromOffsets = false;

private:
    VDicomFile m_scratch;
    bool m_scratchOpen = false;
};

} // namespace vdicom
