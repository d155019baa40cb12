#include "ConformanceConditions.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace vdicom {

namespace {

constexpr VDicomULong kSOPClass = 0x00080016, kValueType = 0x0040A040, kByReference = 0x0040DB73, kSamples = 0x00280002,
                      kPhotometric = 0x00280004, kFrames = 0x00280008, kFrameIncrement = 0x00280009, kRows = 0x00280010,
                      kColumns = 0x00280011, kBitsAllocated = 0x00280100, kBitsStored = 0x00280101,
                      kHighBit = 0x00280102, kImageType = 0x00080008, kSOPInstance = 0x00080018,
                      kStudyInstance = 0x0020000D, kSeriesInstance = 0x0020000E, kFrameOfReference = 0x00200052,
                      kPerFrame = 0x52009230, kDirectoryRecordType = 0x00041430;

bool IsOneOf(std::string_view text, std::string_view list) {
    if (text.empty())
        return false;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find('\\'), list.size());
        if (list.substr(0, end) == text)
            return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

// Content items (PS3.3 C.17.3): which elements stand there for which value types.
struct ContentElement {
    VDicomULong tag;
    std::string_view valueTypes;
};
constexpr ContentElement kContentElements[] = {
    {0x00081199, "IMAGE\\COMPOSITE\\WAVEFORM"},
    {0x0040A043, "TEXT\\NUM\\CODE\\DATETIME\\DATE\\TIME\\UIDREF\\PNAME"},
    {0x0040A050, "CONTAINER"},
    {0x0040A120, "DATETIME"},
    {0x0040A121, "DATE"},
    {0x0040A122, "TIME"},
    {0x0040A123, "PNAME"},
    {0x0040A124, "UIDREF"},
    {0x0040A130, "TCOORD"},
    {0x0040A160, "TEXT"},
    {0x0040A168, "CODE"},
    {0x0040A300, "NUM"},
    {0x00700022, "SCOORD\\SCOORD3D"},
    {0x00700023, "SCOORD\\SCOORD3D"},
};

// Directory records that refer to a file (PS3.3 F.5).
constexpr std::string_view kFileRecords =
    "IMAGE\\OVERLAY\\CURVE\\MODALITY LUT\\VOI LUT\\PRESENTATION\\WAVEFORM\\SR DOCUMENT\\KEY OBJECT DOC\\SPECTROSCOPY\\"
    "RAW DATA\\REGISTRATION\\FIDUCIAL\\ENCAP DOC\\VALUE MAP\\STEREOMETRIC\\PLAN\\SURFACE\\TRACT\\ASSESSMENT\\RT DOSE\\"
    "RT STRUCTURE SET\\RT PLAN\\RT TREAT RECORD\\STORED PRINT";

// CT, MR, Enhanced CT, Enhanced MR and MR Spectroscopy.
constexpr std::string_view kPositioned =
    "1.2.840.10008.5.1.4.1.1.2\\1.2.840.10008.5.1.4.1.1.4\\1.2.840.10008.5.1.4.1.1.2.1\\1.2.840.10008.5.1.4.1.1.4.1\\"
    "1.2.840.10008.5.1.4.1.1.4.2";

Need Demanded(bool holds, Need need) { return holds ? need : Need::nothing; }

bool IsPalette(ConformanceWalk& walk) { return walk.TextOf(kPhotometric) == "PALETTE COLOR"; }

bool PointsTo(ConformanceWalk& walk, VDicomULong tag) {
    const DICOMELEMENT* e = walk.Find(kFrameIncrement);
    if (e == nullptr || e->nVR != vr::AT || IsUndefinedLength(e))
        return false;
    const PieceList list(e);
    const bool little = walk.State().IsLittleEndian(e);
    for (VDicomULong at = 0; at + 4 <= std::min<VDicomULong>(e->nLength, 64); at += 4) {
        unsigned char bytes[4];
        if (!list.ReadStored(at, bytes, sizeof bytes))
            return false;
        if ((VDicomULong{Get16(bytes, little)} << 16 | Get16(bytes + 2, little)) == tag)
            return true;
    }
    return false;
}

// The conditions of type 1C and 2C that other elements answer.
Need JudgeCondition(ConformanceWalk& walk, VDicomULong tag, Need need) {
    const bool top = walk.Level().item == nullptr;
    switch (tag) {
    case 0x00280006: { // Planar Configuration
        const std::optional<std::int64_t> samples = walk.NumberOf(kSamples);
        return samples && *samples > 1 ? need : samples ? Need::absence : Need::nothing;
    }
    case 0x00281101: // palettes: descriptors
    case 0x00281102:
    case 0x00281103:
        return Demanded(IsPalette(walk), need);
    case 0x00281201: // their data, or the segmented form
    case 0x00281202:
    case 0x00281203:
        return Demanded(IsPalette(walk) && walk.Find(tag + 0x20) == nullptr, need);
    case 0x00281051: // Window Width goes with Window Center
        return Demanded(walk.Find(0x00281050) != nullptr, need);
    case 0x00281053: // Rescale Slope and Type go with Rescale Intercept
    case 0x00281054:
        return Demanded(walk.Find(0x00281052) != nullptr, need);
    case 0x00181063: // Frame Time, Frame Time Vector
    case 0x00181065:
        return Demanded(PointsTo(walk, tag), need);
    case kPixelData: // in one of its forms, or elsewhere
        return Demanded(top && walk.Find(0x7FE00008) == nullptr && walk.Find(0x7FE00009) == nullptr &&
                            walk.Find(0x00287FE0) == nullptr,
                        need);
    case 0x00185100: // Patient Position of CT and MR images, unless a code says it
        return Demanded(top && IsOneOf(walk.TextOf(kSOPClass), kPositioned) && walk.Find(0x00540410) == nullptr, need);
    case 0x300C0060: // Referenced Structure Set of a plan for a patient
        return Demanded(walk.TextOf(0x300A000C) == "PATIENT", need);
    case 0x00200020: // Patient Orientation where the class knows no orientation in space
        return Demanded(top && !walk.Rules()->HasAnywhere(0x00200037), need);
    case 0x00041500: // Referenced File ID and what goes with it
    case 0x00041510:
    case 0x00041511:
    case 0x00041512:
        return Demanded(IsOneOf(walk.TextOf(kDirectoryRecordType), kFileRecords), need);
    default:
        return Need::nothing;
    }
}

} // namespace

Need JudgeNeed(ConformanceWalk& walk, const ElementRule& rule) {
    const unsigned short usage = rule.node->nUsage;
    const Need need = usage == DICOM_ELEMENT_1 || usage == DICOM_ELEMENT_1C   ? Need::value
                      : usage == DICOM_ELEMENT_2 || usage == DICOM_ELEMENT_2C ? Need::element
                                                                              : Need::nothing;
    if (walk.Level().rules->Has(kValueType)) {
        // A content item by reference has nothing but the reference.
        if (walk.Find(kByReference) != nullptr)
            return rule.tag == 0x0040A010 ? need : Need::nothing;
        const auto* governed = std::find_if(std::begin(kContentElements), std::end(kContentElements),
                                            [&](const ContentElement& element) { return element.tag == rule.tag; });
        if (governed != std::end(kContentElements))
            return Demanded(IsOneOf(walk.TextOf(kValueType), governed->valueTypes), need);
    }
    // What says so itself overrides the type of a more general module (C.8.6.1): Modality in SC Equipment.
    constexpr VDicomULong kModality = 0x00080060;
    constexpr VDicomULong kSCEquipment = 39;
    if (rule.tag == kModality && walk.HoldsModule(kSCEquipment))
        return Need::nothing;
    const bool conditional = usage == DICOM_ELEMENT_1C || usage == DICOM_ELEMENT_2C;
    return conditional ? JudgeCondition(walk, rule.tag, need) : need;
}

const char* WhyAbsent(VDicomULong tag) {
    return tag == 0x00280006 ? "there is one sample per pixel alone" : "its condition does not hold";
}

bool IsModuleOfRecord(ConformanceWalk& walk, std::string_view module) {
    const std::string_view type = walk.TextOf(kDirectoryRecordType);
    // "Study Keys" speaks of records of the type STUDY.
    return !type.empty() && module.size() > type.size() && module[type.size()] == ' ' &&
           std::equal(type.begin(), type.end(), module.begin(), [](char upper, char any) {
               return upper == (any >= 'a' && any <= 'z' ? static_cast<char>(any - 'a' + 'A') : any);
           });
}

// ---------------------------------------------------------------- file meta information

void CheckMeta(ConformanceWalk& walk) {
    const ElementTree& tree = walk.State().tree;
    const DICOMELEMENT* const first = tree.First();
    if (first == nullptr || GroupOf(first->nTag) != 2)
        return; // a data set that is no file
    constexpr VDicomULong mandatory[] = {0x00020001, 0x00020002, 0x00020003, 0x00020010, 0x00020012};
    for (const VDicomULong tag : mandatory) {
        const DICOMELEMENT* const e = tree.FindChild(nullptr, tag);
        if (e != nullptr && e->nLength != 0)
            continue;
        const std::string text = std::string(ConformanceWalk::NameOf(tag)) +
                                 (e == nullptr ? " is missing" : " has no value") +
                                 ": type 1 in the file meta information";
        walk.Report({DICOM_CHECK_META, DICOM_SEVERITY_ERROR, e, tag, text});
    }
    constexpr VDicomULong version = 0x00020001;
    unsigned char bytes[2] = {0, 1};
    if (const DICOMELEMENT* e = tree.FindChild(nullptr, version); e != nullptr && e->nLength != 0) {
        const bool read = e->nLength == 2 && PieceList(e).ReadStored(0, bytes, sizeof bytes);
        if (!read || bytes[0] != 0 || bytes[1] != 1)
            walk.Report(
                {DICOM_CHECK_META, DICOM_SEVERITY_WARNING, e, version, "File Meta Information Version is not 00H 01H"});
    }
    constexpr VDicomULong twins[][2] = {{0x00020002, 0x00080016}, {0x00020003, 0x00080018}};
    // A directory has neither SOP Class UID nor SOP Instance UID of its own.
    const bool directory = tree.FindChild(nullptr, kDirectoryRecords) != nullptr;
    for (const auto& [meta, inside] : twins) {
        const std::string uid(walk.TextOf(tree.FindChild(nullptr, meta)));
        const DICOMELEMENT* const e = tree.FindChild(nullptr, inside);
        const std::string_view other = walk.TextOf(e);
        if (uid.empty() || uid == other || directory)
            continue;
        const std::string name(ConformanceWalk::NameOf(inside));
        std::string text = name;
        if (e == nullptr)
            text += " is missing, but stands in the file meta information";
        else
            text.append(" differs from that in the file meta information, ").append(uid);
        walk.Report({DICOM_CHECK_META, DICOM_SEVERITY_ERROR, e, inside, text, nullptr, other, uid});
    }
}

// ---------------------------------------------------------------- contradictions

namespace {

void Contradiction(ConformanceWalk& walk, const DICOMELEMENT* e, const std::string& text, unsigned short severity) {
    walk.Report({DICOM_CHECK_INCONSISTENT, severity, e, e->nTag, text});
}

// Pixels that are not compressed have exactly the length that their description says.
void CheckPixelLength(ConformanceWalk& walk) {
    const DICOMELEMENT* const pixels = walk.Find(kPixelData);
    if (pixels == nullptr || IsUndefinedLength(pixels))
        return;
    const std::optional<std::int64_t> rows = walk.NumberOf(kRows);
    const std::optional<std::int64_t> columns = walk.NumberOf(kColumns);
    const std::optional<std::int64_t> allocated = walk.NumberOf(kBitsAllocated);
    const std::int64_t samples = walk.NumberOf(kSamples).value_or(1);
    const std::int64_t frames = walk.Find(kFrames) == nullptr ? 1 : walk.NumberOf(kFrames).value_or(0);
    if (!rows || !columns || !allocated || samples < 1 || samples > 4 || frames < 1 || *allocated > 64)
        return;
    const std::string_view photometric = walk.TextOf(kPhotometric);
    // Two pixels share their colour: four samples instead of six.
    const bool halved = samples == 3 && (photometric == "YBR_FULL_422" || photometric == "YBR_PARTIAL_422");
    if (*rows < 0 || *rows > 0xFFFF || *columns < 0 || *columns > 0xFFFF || *allocated < 1 || frames > 0xFFFFFF)
        return;
    // No more than 64 bits: 16 + 16 + 2 + 6 - 3 + 24 + 1.
    const auto frameBits = static_cast<std::uint64_t>(*rows * *columns * samples * *allocated);
    const auto count = static_cast<std::uint64_t>(frames);
    const std::uint64_t bytes =
        *allocated == 1 ? (frameBits * count + 7) / 8 : frameBits / 8 * count / (halved ? 3 : 1) * (halved ? 2 : 1);
    const std::uint64_t expected = bytes + (bytes & 1);
    if (pixels->nLength == expected || pixels->nLength == bytes)
        return;
    Contradiction(walk, pixels,
                  "Pixel Data has " + std::to_string(pixels->nLength) +
                      " bytes, but rows, columns, samples, bits and " + "frames make " + std::to_string(expected),
                  DICOM_SEVERITY_ERROR);
}

void CheckBits(ConformanceWalk& walk) {
    const std::optional<std::int64_t> allocated = walk.NumberOf(kBitsAllocated);
    const std::optional<std::int64_t> stored = walk.NumberOf(kBitsStored);
    const std::optional<std::int64_t> high = walk.NumberOf(kHighBit);
    if (allocated && stored && (*stored > *allocated || *stored < 1))
        Contradiction(walk, walk.Find(kBitsStored),
                      "Bits Stored is " + std::to_string(*stored) + ", with " + std::to_string(*allocated) +
                          " bits allocated",
                      DICOM_SEVERITY_ERROR);
    if (allocated && *allocated != 1 && (*allocated < 1 || *allocated % 8 != 0))
        Contradiction(walk, walk.Find(kBitsAllocated),
                      "Bits Allocated is " + std::to_string(*allocated) + ", neither 1 nor a multiple of 8",
                      DICOM_SEVERITY_ERROR);
    if (stored && high && *high != *stored - 1)
        Contradiction(walk, walk.Find(kHighBit),
                      "High Bit is " + std::to_string(*high) + ", not one less than Bits Stored, " +
                          std::to_string(*stored),
                      DICOM_SEVERITY_WARNING);
}

// C.7.6.1.1.2: two values at least; CT and MR images have a third one.
void CheckImageType(ConformanceWalk& walk) {
    const DICOMELEMENT* const e = walk.Find(kImageType);
    const std::string type(walk.TextOf(e));
    if (e == nullptr || type.empty() || e->nVR != vr::CS)
        return;
    const std::size_t divider = std::min(type.find('\\'), type.size());
    const std::string_view first = TrimValue(std::string_view(type).substr(0, divider));
    const std::string_view rest = std::string_view(type).substr(std::min(divider + 1, type.size()));
    const std::string_view second = TrimValue(rest.substr(0, rest.find('\\')));
    const auto wrong = [&](VDicomULong number, std::string_view value, std::string_view allowed) {
        const std::string text = "value " + std::to_string(number + 1) + ", \"" + std::string(value) +
                                 "\", is none of " + std::string(allowed);
        walk.Report({DICOM_CHECK_ENUMERATED, DICOM_SEVERITY_ERROR, e, e->nTag, text, nullptr, value, allowed, number});
    };
    if (!first.empty() && !IsOneOf(first, "ORIGINAL\\DERIVED\\MIXED"))
        wrong(0, first, "ORIGINAL, DERIVED");
    if (!second.empty() && !IsOneOf(second, "PRIMARY\\SECONDARY"))
        wrong(1, second, "PRIMARY, SECONDARY");
    const std::string_view uid = walk.TextOf(kSOPClass);
    const bool three = uid == "1.2.840.10008.5.1.4.1.1.2" || uid == "1.2.840.10008.5.1.4.1.1.4";
    const auto count = static_cast<std::size_t>(std::count(type.begin(), type.end(), '\\')) + 1;
    if (count < (three ? 3u : 2u)) {
        const std::string text =
            std::string(three ? "CT and MR images have at least 3 values here" : "there are at least 2 values here") +
            ", not " + std::to_string(count);
        walk.Report({DICOM_CHECK_MULTIPLICITY, DICOM_SEVERITY_ERROR, e, e->nTag, text, nullptr, type});
    }
}

// Each of these UIDs names something else.
void CheckUids(ConformanceWalk& walk) {
    constexpr VDicomULong tags[] = {kStudyInstance, kSeriesInstance, kSOPInstance, kFrameOfReference};
    std::array<std::string, std::size(tags)> uids;
    for (std::size_t i = 0; i < std::size(tags); ++i) {
        uids[i] = walk.TextOf(tags[i]);
        for (std::size_t other = 0; other < i && !uids[i].empty(); ++other) {
            if (uids[i] != uids[other])
                continue;
            Contradiction(walk, walk.Find(tags[i]),
                          std::string(ConformanceWalk::NameOf(tags[i])) + " is the same as " +
                              std::string(ConformanceWalk::NameOf(tags[other])) + ", " + uids[i],
                          DICOM_SEVERITY_ERROR);
        }
    }
}

void CheckFrameItems(ConformanceWalk& walk) {
    const DICOMELEMENT* const groups = walk.Find(kPerFrame);
    const std::optional<std::int64_t> frames = walk.NumberOf(kFrames);
    const VDicomULong items = groups == nullptr ? 0 : walk.State().tree.CountChildren(groups);
    if (groups != nullptr && frames.value_or(-1) != std::int64_t{items})
        Contradiction(walk, groups,
                      "there are functional groups of " + std::to_string(items) + " frames, but " +
                          (frames ? "Number of Frames is " + std::to_string(*frames) : "no Number of Frames"),
                      DICOM_SEVERITY_ERROR);
}

} // namespace

void CheckConsistency(ConformanceWalk& walk) {
    CheckPixelLength(walk);
    CheckBits(walk);
    CheckImageType(walk);
    CheckUids(walk);
    CheckFrameItems(walk);
}

} // namespace vdicom
