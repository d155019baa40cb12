#include "scu/StoreList.h"

#include "Input.h"
#include "Message.h"
#include "Progress.h"
#include "scu/Interrupt.h"
#include "scu/StoreReport.h"
#include "scu/Uid.h"

#include <fmt/format.h>

namespace program {

namespace {

constexpr VDicomULong kSopClass = 0x00080016, kSopInstance = 0x00080018, kMediaClass = 0x00020002,
                      kMediaInstance = 0x00020003;
constexpr const char* kDirectoryClass = "1.2.840.10008.1.3.10";

std::string UidOf(VDicomDS& ds, VDicomULong tag, VDicomULong otherTag) {
    char uid[65] = "";
    if (!ds.FindGetValue(nullptr, tag, 5, uid, sizeof uid) || *uid == '\0')
        ds.FindGetValue(nullptr, otherTag, 5, uid, sizeof uid);
    VDicomDS::DelSpaces(uid);
    return uid;
}

} // namespace

ObjectNames NamesOf(VDicomDS& ds) {
    return {UidOf(ds, kSopClass, kMediaClass), UidOf(ds, kSopInstance, kMediaInstance), ds.GetTransferSyntaxUID()};
}

std::string LoadFailure(const VDicomDS& ds, unsigned int code) {
    if (ds.GetError() != 0)
        return SystemText(ds.GetError());
    DICOMFAULT fault{};
    const VDicomULong count = ds.GetCountFault();
    if (count > 0 && ds.GetFault(count - 1, &fault) != 0)
        return FaultText(fault);
    return GetErrorText(code);
}

bool StoreList::Scan(const std::vector<std::string>& arguments, StoreReport& report) {
    m_ds.SetLoadLimit(kSopInstance);
    Progress progress("files found", 0);
    if (report.IsJson())
        progress.Off();
    bool good = true;
    for (const std::string& argument : arguments) {
        const bool isFolder = IsFolder(argument);
        const auto one = [&](const std::string& path, const std::string&) {
            Look(path, isFolder, report);
            progress.Done(m_files.size());
            return InterruptWatch::Count() == 0;
        };
        good = ForEachInput({argument}, true, one) && good;
    }
    return good;
}

void StoreList::Look(const std::string& path, bool inFolder, StoreReport& report) {
    if (IsStandard(path)) {
        report.Failed(path, {}, "standard input cannot be sent; name a file", 0);
        return;
    }
    VDicomFile file;
    if (!file.Open(path.c_str(), DICOM_FILE_MODE_LOAD)) {
        report.Failed(path, {}, file.GetError() ? SystemText(file.GetError()) : GetErrorText(DICOM_ERROR_OPEN), 0);
        return;
    }
    const unsigned int code = m_ds.LoadDS(&file, 0, 0);
    unsigned short flags = 0;
    m_ds.GetInfoDS(nullptr, &flags);
    const bool isPart10 = (flags & DICOM_FLAG_PART10) != 0;
    const ObjectNames names = NamesOf(m_ds);
    // The flags of a data set of which nothing was read say nothing.
    const bool isEmpty = m_ds.GetFirstElement(nullptr, 1, 1) == nullptr;
    if (inFolder && ((names.classUid.empty() && (isEmpty || !isPart10)) || names.classUid == kDirectoryClass)) {
        report.PassedOver();
        return;
    }
    if (code != DICOM_OK)
        report.Failed(path, names, LoadFailure(m_ds, code), 0);
    else if (names.classUid == kDirectoryClass)
        report.Failed(path, names, "is a directory of files (DICOMDIR), which stays with them; name their folder", 0);
    else if (!IsUid(names.classUid) || !IsUid(names.instanceUid))
        report.Failed(path, names, "has no SOP Class UID and SOP Instance UID; 'vdicom edit' can set them", 0);
    else {
        m_files.push_back({path, file.GetSize64(), KindOf(names), false});
        m_bytes += m_files.back().bytes;
    }
    m_ds.ResetDS();
}

std::uint32_t StoreList::KindOf(const ObjectNames& names) {
    const auto number = static_cast<std::uint32_t>(m_kinds.size());
    const auto [at, isNew] = m_kindNumbers.try_emplace({names.classUid, names.syntaxUid}, number);
    if (isNew)
        m_kinds.push_back({names.classUid, names.syntaxUid});
    return at->second;
}

} // namespace program
