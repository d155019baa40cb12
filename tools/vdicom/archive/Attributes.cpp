#include "Attributes.h"

#include <algorithm>

namespace archive {

namespace vr = vdicom::vr;

namespace {

constexpr Level P = Level::patient, T = Level::study, S = Level::series, I = Level::image;

// Distinct values below a study, joined as the values of one element.
constexpr const char* kModalities = "(SELECT replace(group_concat(DISTINCT Modality), ',', '\\') FROM series WHERE "
                                    "study = study.id AND Modality <> '')";
constexpr const char* kClasses = "(SELECT replace(group_concat(DISTINCT class), ',', '\\') FROM series_class "
                                 "WHERE series IN (SELECT id FROM series WHERE series.study = study.id))";
constexpr const char* kStudiesOfPatient = "(SELECT count(*) FROM study AS s WHERE s.patient = patient.id)";
constexpr const char* kSeriesOfPatient =
    "(SELECT count(*) FROM study AS t JOIN series AS s ON s.study = t.id WHERE t.patient = patient.id)";
constexpr const char* kInstancesOfPatient = "(SELECT coalesce(sum(s.instances), 0) FROM study AS t JOIN series AS s ON "
                                            "s.study = t.id WHERE t.patient = patient.id)";
constexpr const char* kSeriesOfStudy = "(SELECT count(*) FROM series AS s WHERE s.study = study.id)";
constexpr const char* kInstancesOfStudy =
    "(SELECT coalesce(sum(s.instances), 0) FROM series AS s WHERE s.study = study.id)";

} // namespace

const Attribute kAttributes[] = {
    {0x00080008, vr::CS, I, true, "ImageType", nullptr},
    {0x00080012, vr::DA, I, false, "InstanceCreationDate", nullptr},
    {0x00080013, vr::TM, I, false, "InstanceCreationTime", nullptr},
    {0x00080016, vr::UI, I, false, "SOPClassUID", nullptr},
    {0x00080018, vr::UI, I, false, "SOPInstanceUID", nullptr},
    {0x00080020, vr::DA, T, false, "StudyDate", nullptr},
    {0x00080021, vr::DA, S, false, "SeriesDate", nullptr},
    {0x00080022, vr::DA, I, false, "AcquisitionDate", nullptr},
    {0x00080023, vr::DA, I, false, "ContentDate", nullptr},
    {0x0008002A, vr::DT, I, false, "AcquisitionDateTime", nullptr},
    {0x00080030, vr::TM, T, false, "StudyTime", nullptr},
    {0x00080031, vr::TM, S, false, "SeriesTime", nullptr},
    {0x00080032, vr::TM, I, false, "AcquisitionTime", nullptr},
    {0x00080033, vr::TM, I, false, "ContentTime", nullptr},
    {0x00080050, vr::SH, T, false, "AccessionNumber", nullptr},
    {0x00080060, vr::CS, S, false, "Modality", nullptr},
    {0x00080061, vr::CS, T, true, "ModalitiesInStudy", kModalities},
    {0x00080062, vr::UI, T, true, "SOPClassesInStudy", kClasses},
    {0x00080070, vr::LO, S, false, "Manufacturer", nullptr},
    {0x00080080, vr::LO, S, false, "InstitutionName", nullptr},
    {0x00080090, vr::PN, T, false, "ReferringPhysicianName", nullptr},
    {0x00081010, vr::SH, S, false, "StationName", nullptr},
    {0x00081030, vr::LO, T, false, "StudyDescription", nullptr},
    {0x0008103E, vr::LO, S, false, "SeriesDescription", nullptr},
    {0x00081040, vr::LO, S, false, "InstitutionalDepartmentName", nullptr},
    {0x00081048, vr::PN, T, true, "PhysiciansOfRecord", nullptr},
    {0x00081050, vr::PN, S, true, "PerformingPhysicianName", nullptr},
    {0x00081060, vr::PN, T, true, "NameOfPhysiciansReadingStudy", nullptr},
    {0x00081070, vr::PN, S, true, "OperatorsName", nullptr},
    {0x00081080, vr::LO, T, true, "AdmittingDiagnosesDescription", nullptr},
    {0x00081090, vr::LO, S, false, "ManufacturerModelName", nullptr},
    {0x00083002, vr::UI, I, true, "AvailableTransferSyntaxUID", nullptr},
    {0x00100010, vr::PN, P, false, "PatientName", nullptr},
    {0x00100020, vr::LO, P, false, "PatientID", nullptr},
    {0x00100021, vr::LO, P, false, "IssuerOfPatientID", nullptr},
    {0x00100030, vr::DA, P, false, "PatientBirthDate", nullptr},
    {0x00100032, vr::TM, P, false, "PatientBirthTime", nullptr},
    {0x00100040, vr::CS, P, false, "PatientSex", nullptr},
    {0x00101000, vr::LO, P, true, "OtherPatientIDs", nullptr},
    {0x00101001, vr::PN, P, true, "OtherPatientNames", nullptr},
    {0x00101010, vr::AS, T, false, "PatientAge", nullptr},
    {0x00101020, vr::DS, T, false, "PatientSize", nullptr},
    {0x00101030, vr::DS, T, false, "PatientWeight", nullptr},
    {0x00102160, vr::SH, P, false, "EthnicGroup", nullptr},
    {0x00102180, vr::SH, T, false, "Occupation", nullptr},
    {0x001021B0, vr::LT, T, false, "AdditionalPatientHistory", nullptr},
    {0x00104000, vr::LT, P, false, "PatientComments", nullptr},
    {0x00180015, vr::CS, S, false, "BodyPartExamined", nullptr},
    {0x00181030, vr::LO, S, false, "ProtocolName", nullptr},
    {0x0020000D, vr::UI, T, false, "StudyInstanceUID", nullptr},
    {0x0020000E, vr::UI, S, false, "SeriesInstanceUID", nullptr},
    {0x00200010, vr::SH, T, false, "StudyID", nullptr},
    {0x00200011, vr::IS, S, false, "SeriesNumber", nullptr},
    {0x00200012, vr::IS, I, false, "AcquisitionNumber", nullptr},
    {0x00200013, vr::IS, I, false, "InstanceNumber", nullptr},
    {0x00200052, vr::UI, S, false, "FrameOfReferenceUID", nullptr},
    {0x00200060, vr::CS, S, false, "Laterality", nullptr},
    {0x00201200, vr::IS, P, false, "NumberOfPatientRelatedStudies", kStudiesOfPatient},
    {0x00201202, vr::IS, P, false, "NumberOfPatientRelatedSeries", kSeriesOfPatient},
    {0x00201204, vr::IS, P, false, "NumberOfPatientRelatedInstances", kInstancesOfPatient},
    {0x00201206, vr::IS, T, false, "NumberOfStudyRelatedSeries", kSeriesOfStudy},
    {0x00201208, vr::IS, T, false, "NumberOfStudyRelatedInstances", kInstancesOfStudy},
    {0x00201209, vr::IS, S, false, "NumberOfSeriesRelatedInstances", "series.instances"},
    {0x00204000, vr::LT, I, false, "ImageComments", nullptr},
    {0x00280004, vr::CS, I, false, "PhotometricInterpretation", nullptr},
    {0x00280008, vr::IS, I, false, "NumberOfFrames", nullptr},
    {0x00280010, vr::US, I, false, "Rows", nullptr},
    {0x00280011, vr::US, I, false, "Columns", nullptr},
    {0x00280100, vr::US, I, false, "BitsAllocated", nullptr},
    {0x00400244, vr::DA, S, false, "PerformedProcedureStepStartDate", nullptr},
    {0x00400245, vr::TM, S, false, "PerformedProcedureStepStartTime", nullptr},
    {0x00400253, vr::SH, S, false, "PerformedProcedureStepID", nullptr},
    {0x00400254, vr::LO, S, false, "PerformedProcedureStepDescription", nullptr},
    {0x0040A491, vr::CS, I, false, "CompletionFlag", nullptr},
    {0x0040A493, vr::CS, I, false, "VerificationFlag", nullptr},
    {0x00420010, vr::ST, I, false, "DocumentTitle", nullptr},
    {0x00700080, vr::CS, I, false, "ContentLabel", nullptr},
    {0x00700081, vr::LO, I, false, "ContentDescription", nullptr},
    {0x00700084, vr::PN, I, false, "ContentCreatorName", nullptr},
};
const std::size_t kAttributeCount = sizeof kAttributes / sizeof kAttributes[0];

const Attribute* FindAttribute(VDicomULong tag) {
    const Attribute* end = kAttributes + kAttributeCount;
    const Attribute* found =
        std::lower_bound(kAttributes, end, tag, [](const Attribute& a, VDicomULong t) { return a.tag < t; });
    return found != end && found->tag == tag ? found : nullptr;
}

const char* TableOf(Level level) {
    constexpr const char* kTables[kLevels] = {"patient", "study", "series", "instance"};
    return kTables[Number(level)];
}

const Attribute& UniqueKeyOf(Level level) {
    constexpr VDicomULong kKeys[kLevels] = {tag::kPatientID, tag::kStudy, tag::kSeries, tag::kInstance};
    return *FindAttribute(kKeys[Number(level)]);
}

} // namespace archive
