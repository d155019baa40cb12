#include "scu/Query.h"

#include "scu/StorageClasses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace program {
namespace {

using testing::HasSubstr;

/// Reads options of a command. @return what is wrong
std::string Read(Service service, std::vector<const char*> arguments, Query& query) {
    arguments.insert(arguments.begin(), "find");
    Options options("find", "", "", "");
    const QueryOptions queryOptions(options, service);
    EXPECT_FALSE(options.Parse(static_cast<int>(arguments.size()), arguments.data()));
    return queryOptions.Read(options, query);
}

std::string Utf8(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong tag) {
    char text[100] = "";
    ds.GetUtf8Value(ds.FindFirstElement(parent, tag, 1), text, sizeof text);
    return text;
}

TEST(Query, KeysMayBeRangesWildcardsAndUtf8AndStandInSequences) {
    Query query;
    ASSERT_EQ(Read(Service::find,
                   {"--level", "worklist", "--only-keys", "-k", "PatientName=Dör*", "-k", "00100020", "-k",
                    "ScheduledProcedureStepSequence.ScheduledProcedureStepStartDate=20240101-20240131", "-k",
                    "ScheduledProcedureStepSequence[0].Modality=CT"},
                   query),
              "");
    VDicomDS ds;
    ASSERT_EQ(query.Build(ds), "");
    EXPECT_EQ(Utf8(ds, nullptr, 0x00080005), "ISO_IR 192");
    EXPECT_EQ(Utf8(ds, nullptr, 0x00100010), "Dör*");
    EXPECT_NE(ds.FindFirstElement(nullptr, 0x00100020, 1), nullptr);
    EXPECT_EQ(ds.FindFirstElement(nullptr, 0x00080052, 1), nullptr);
    DICOMELEMENT* sequence = ds.FindFirstElement(nullptr, 0x00400100, 1);
    ASSERT_EQ(ds.GetCountElement(sequence), 1U);
    DICOMELEMENT* item = ds.GetIndexElement(sequence, 0);
    EXPECT_EQ(Utf8(ds, item, 0x00400002), "20240101-20240131");
    EXPECT_EQ(Utf8(ds, item, 0x00080060), "CT");
}

TEST(Query, DefaultKeysAreKnownAttributesAndDoNotTouchGivenValues) {
    for (const char* level : {"patient", "study", "series", "image", "worklist"}) {
        Query query;
        ASSERT_EQ(Read(Service::find, {"--level", level, "-k", "PatientID=4711"}, query), "") << level;
        VDicomDS ds;
        ASSERT_EQ(query.Build(ds), "") << level;
        EXPECT_EQ(Utf8(ds, nullptr, 0x00100020), "4711") << level;
        EXPECT_GT(ds.GetCountElement(nullptr), 4U) << level;
        EXPECT_EQ(ds.FindFirstElement(nullptr, 0x00080005, 1), nullptr) << level;
    }
}

TEST(Query, RetrievalsTakeTheLevelOfTheDeepestUniqueKey) {
    Query query;
    ASSERT_EQ(Read(Service::get, {"-k", "StudyInstanceUID=1.2", "-k", "SeriesInstanceUID=1.2.3"}, query), "");
    EXPECT_EQ(query.level, QueryLevel::series);
    EXPECT_STREQ(query.ClassFor(Service::get), "1.2.840.10008.5.1.4.1.2.2.3");
    Query patient;
    ASSERT_EQ(Read(Service::move, {"-k", "PatientID=1"}, patient), "");
    EXPECT_STREQ(patient.ClassFor(Service::move), "1.2.840.10008.5.1.4.1.2.1.2");
    const auto wrong = [](Service service, const std::vector<const char*>& arguments) {
        Query other;
        return Read(service, arguments, other);
    };
    EXPECT_THAT(wrong(Service::get, {}), HasSubstr("StudyInstanceUID"));
    EXPECT_THAT(wrong(Service::get, {"--level", "image", "-k", "StudyInstanceUID=1.2"}), HasSubstr("SOPInstanceUID"));
    EXPECT_THAT(wrong(Service::find, {"--level", "patient", "--model", "study"}), HasSubstr("no patient level"));
}

TEST(Query, KeysThatNoIdentifierCanHaveAreRefused) {
    for (const char* key :
         {"Nonsense", "PatientID:", "60xx0010", "TransferSyntaxUID=1.2", "00100000", "PatientID=a\nb",
          "RequestAttributesSequence=1", "RequestAttributesSequence[1].Modality", "Rows=many",
          "RequestAttributesSequence[0]", "QueryRetrieveLevel=STUDY", "PatientName=\xFF", "PatientID[0]"}) {
        Query query;
        EXPECT_NE(Read(Service::find, {"-k", key}, query), "") << key;
    }
}

TEST(StorageClasses, OffersFitTheirRoomAndKeepCompressedSyntaxesApartWhereTheyCan) {
    const std::vector<std::string> all = StorageClasses();
    EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), all.size());
    std::size_t left = 0;
    const std::vector<StorageOffer> most = OffersFor(all, 127, left);
    EXPECT_EQ(most.size(), 127U);
    EXPECT_EQ(left, all.size() - 127);
    std::set<std::string> offered;
    for (const StorageOffer& offer : most)
        offered.insert(offer.classUid);
    for (const char* name : {"CT", "MRImageStorage", "Secondary Capture", "RT Plan Storage", "EncapsulatedPDFStorage",
                             "KeyObjectSelectionDocumentStorage", "12-lead ECG Waveform", "X-Ray Radiation Dose SR"})
        EXPECT_TRUE(offered.count(FindStorageClass(name))) << name;
    EXPECT_EQ(FindStorageClass("1.2.3"), "1.2.3");
    EXPECT_EQ(FindStorageClass("Verification SOP Class"), "");

    const std::vector<StorageOffer> one = OffersFor({"1.2"}, 127, left);
    for (const StorageOffer& offer : one)
        EXPECT_EQ(offer.syntaxes.size(), 1U);
    const std::vector<StorageOffer> some =
        OffersFor(std::vector<std::string>(all.begin(), all.begin() + 60), 127, left);
    EXPECT_EQ(some.size(), 120U);
    EXPECT_EQ(some[1].syntaxes.size(), one.size() - 4);
    EXPECT_EQ(left, 0U);
}

} // namespace
} // namespace program
