#include "Commitment.h"

#include "IndexWriter.h"

#include <filesystem>
#include <system_error>

namespace archive {

namespace {

constexpr VDicomULong kRetrieveAE = 0x00080054, kReferencedClass = 0x00081150, kReferencedInstance = 0x00081155,
                      kTransaction = 0x00081195, kFailureReason = 0x00081197, kFailedSequence = 0x00081198,
                      kReferencedSequence = 0x00081199;
constexpr unsigned short kProcessingFailure = 0x0110, kInvalidValue = 0x0115, kNoSuchInstance = 0x0112,
                         kClassConflict = 0x0119, kMissingAttribute = 0x0120;

std::string UidOf(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong tag) {
    DICOMELEMENT* e = ds.FindFirstElement(parent, tag, 1);
    std::vector<char> scratch;
    std::string text;
    if (e != nullptr)
        ReadText(ds, e, vdicom::vr::UI, scratch, text);
    return text;
}

} // namespace

Commitment::Commitment(ReaderPool& pool, std::string folder, std::string retrieveAE)
    : m_folder(std::move(folder)), m_retrieveAE(std::move(retrieveAE)),
      m_selection(pool, "SELECT SOPClassUID, size, file, folder FROM instance JOIN series "
                        "ON series.id = instance.series WHERE SOPInstanceUID = ?1") {}

Outcome Commitment::Read(VDicomDS& action) {
    m_transaction = UidOf(action, nullptr, kTransaction);
    if (m_transaction.empty())
        return {kMissingAttribute, "Transaction UID is missing"};
    if (!IsUid(m_transaction))
        return {kInvalidValue, "Transaction UID is no UID"};
    DICOMELEMENT* sequence = action.FindFirstElement(nullptr, kReferencedSequence, 1);
    if (sequence == nullptr || action.GetCountElement(sequence) == 0)
        return {kMissingAttribute, "Referenced SOP Sequence is missing or empty"};
    for (DICOMELEMENT* item = action.GetChildElement(sequence, 1); item != nullptr;
         item = action.GetNextElement(item, 1, 1)) {
        Reference reference{UidOf(action, item, kReferencedClass), UidOf(action, item, kReferencedInstance)};
        if (!IsUid(reference.classUid) || !IsUid(reference.instanceUid))
            return {kInvalidValue, "a referenced object has no valid UIDs"};
        m_references.push_back(std::move(reference));
    }
    return {};
}

unsigned short Commitment::Check(const Reference& reference) {
    Statement& row = m_selection.Rows();
    if (!row.BindAll(std::string_view(reference.instanceUid)).Step())
        return kNoSuchInstance;
    if (row.Text(0) != reference.classUid)
        return kClassConflict;
    const auto size = static_cast<std::uint64_t>(row.Number(1));
    std::string path(row.Text(2));
    if (path.empty())
        path = UsualFile(std::string(row.Text(3)), reference.instanceUid);
    path = m_folder + '/' + path;
    VDicomFile file;
    const bool isWhole = file.Open(path.c_str(), DICOM_FILE_READ) != 0 && file.GetSize64() == size;
    if (isWhole)
        return 0;
    std::error_code ignored;
    return std::filesystem::exists(path, ignored) ? kProcessingFailure : kNoSuchInstance;
}

bool Commitment::Work(std::size_t most) {
    for (; most != 0 && m_done < m_references.size(); --most, ++m_done) {
        m_references[m_done].failure = Check(m_references[m_done]);
        m_selection.Rows().Reset();
    }
    return m_done == m_references.size();
}

bool Commitment::Add(VDicomDS& report, DICOMELEMENT* sequence, const Reference& reference) const {
    DICOMELEMENT* item = report.InsertElement(sequence, 1, tag::kItem, 0, 1, DICOM_UNDEFINED);
    if (item == nullptr || report.FindSetValue(item, kReferencedClass, 0, reference.classUid.c_str(), 1) == 0 ||
        report.FindSetValue(item, kReferencedInstance, 0, reference.instanceUid.c_str(), 1) == 0)
        return false;
    return reference.failure == 0 || report.FindSetValue(item, kFailureReason, 0, &reference.failure, 1) != 0;
}

unsigned short Commitment::Report(VDicomDS& report) const {
    report.ResetDS();
    if (report.FindSetValue(nullptr, kTransaction, 0, m_transaction.c_str(), 1) == 0 ||
        (!m_retrieveAE.empty() && report.FindSetValue(nullptr, kRetrieveAE, 0, m_retrieveAE.c_str(), 1) == 0))
        return 0;
    unsigned short type = 1;
    for (const Reference& reference : m_references) {
        const VDicomULong tag = reference.failure == 0 ? kReferencedSequence : kFailedSequence;
        DICOMELEMENT* sequence = report.FindFirstElement(nullptr, tag, 1);
        if (sequence == nullptr)
            sequence = report.InsertElement(nullptr, 0, tag, 0, 1, 0);
        if (sequence == nullptr || !Add(report, sequence, reference))
            return 0;
        if (reference.failure != 0)
            type = 2;
    }
    return type;
}

} // namespace archive
