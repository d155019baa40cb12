// Worklist queries over a folder of files.
#include "Worklist.h"
#include "TestObjects.h"

#include <gtest/gtest.h>

namespace {

using namespace archive;

constexpr VDicomULong kSteps = 0x00400100, kStation = 0x00400001, kStartDate = 0x00400002, kStartTime = 0x00400003,
                      kModality = 0x00080060, kStepId = 0x00400009, kProcedure = 0x00401001, kCodes = 0x00321064,
                      kCode = 0x00080100, kMeaning = 0x00080104, kPregnancy = 0x001021C0;

DICOMELEMENT* AddItem(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong sequence, const Values& values) {
    DICOMELEMENT* e = ds.FindFirstElement(parent, sequence, 1);
    if (e == nullptr)
        e = ds.InsertElement(parent, parent == nullptr ? 0 : 1, sequence, 0, 1, 0);
    DICOMELEMENT* item = ds.InsertElement(e, 1, tag::kItem, 0, 1, DICOM_UNDEFINED);
    for (const auto& [tag, text] : values) {
        DICOMELEMENT* value = ds.InsertElement(item, 1, tag, 0, 0, 0);
        ds.SetBinaryValue(value, text, static_cast<VDicomULong>(std::char_traits<char>::length(text)));
    }
    return item;
}

class WorklistTest : public testing::Test {
protected:
    void SetUp() override {
        VDicomDS ds;
        Set(ds, {{tag::kCharacterSet, "ISO_IR 100"},
                 {tag::kPatientName, "M\xFCller^A"},
                 {tag::kPatientID, "P1"},
                 {kProcedure, "R1"}});
        ds.FindSetValue(nullptr, kPregnancy, 0, "\x04\x00", 1);
        AddItem(ds,
                AddItem(ds, nullptr, kSteps,
                        {{kStation, "CT1"},
                         {kModality, "CT"},
                         {kStartDate, "20240229"},
                         {kStartTime, "2000"},
                         {kStepId, "S1"}}),
                kCodes,
                {{kCode, "X"},
                 {kMeaning, "Sch\xE4"
                            "del"}});
        AddItem(ds, nullptr, kSteps, {{kStation, "MR1"}, {kModality, "MR"}, {kStartDate, "20240301"}, {kStepId, "S2"}});
        ds.SaveDS(folder.File("one.wl").c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE);
        ds.ResetDS();
        Set(ds, {{tag::kPatientName, "Doe^Jane"}, {tag::kPatientID, "P2"}, {kProcedure, "R2"}});
        AddItem(ds, nullptr, kSteps, {{kStation, "CT1"}, {kModality, "CT"}, {kStartDate, "20240301"}, {kStepId, "S3"}});
        ds.SaveDS(folder.File("two.wl").c_str(), DICOM_FLAG_PART10 | DICOM_TS_IMPLICIT_LITTLE);
        folder.Write("bad.wl", "no data set");
        folder.Write(".unfinished", "nobody looks");
    }

    /// The IDs of the steps that match, each with the Patient ID.
    std::string Find(const Values& keys, const Values& step) {
        VDicomDS ds;
        Set(ds, keys);
        Set(ds, {{tag::kPatientID, ""}});
        AddItem(ds, nullptr, kSteps, step);
        std::unique_ptr<WorklistFind> find;
        if (const Outcome outcome = worklist.Start(ds, find); !outcome.IsSuccess())
            return std::to_string(outcome.status);
        std::string all;
        for (Step next = find->Next(match); next != Step::done; next = find->Next(match)) {
            DICOMELEMENT* steps = match.FindFirstElement(nullptr, kSteps, 1);
            EXPECT_EQ(match.GetCountElement(steps), 1u);
            last = match.GetIndexElement(steps, 0);
            all += (all.empty() ? "" : " ") + Text(match, kStepId, last) + '/' + Text(match, tag::kPatientID);
        }
        return all;
    }

    TestFolder folder;
    std::string complaints;
    Worklist worklist{folder.File(""), [this](const std::string& path, const std::string&) {
                          complaints += std::filesystem::path(path).filename().string();
                      }};
    VDicomDS match;
    DICOMELEMENT* last = nullptr;
};

TEST_F(WorklistTest, EachStepThatMatchesIsOneAnswer) {
    EXPECT_EQ(Find({}, {{kStepId, ""}}), "S1/P1 S2/P1 S3/P2");
    EXPECT_EQ(complaints, "bad.wl");
    EXPECT_EQ(Find({}, {{kStation, "CT1"}, {kStepId, ""}}), "S1/P1 S3/P2");
    EXPECT_EQ(Find({}, {{kStation, "CT1"}, {kStartDate, "20240301-"}, {kStepId, ""}}), "S3/P2");
    // One span from the evening to the next morning; else each for itself.
    const char* night = "20240229-20240301";
    EXPECT_EQ(Find({}, {{kStartDate, night}, {kStartTime, "1800-0600"}, {kStepId, ""}}), "S1/P1 S2/P1 S3/P2");
    EXPECT_EQ(Find({}, {{kStartDate, night}, {kStartTime, "2030-0600"}, {kStepId, ""}}), "S2/P1 S3/P2");
    EXPECT_EQ(Find({}, {{kStartDate, "20240229-"}, {kStartTime, "0600-1900"}, {kStepId, ""}}), "S1/P1 S2/P1 S3/P2");
    EXPECT_EQ(Find({}, {{kStartDate, "20240229"}, {kStartTime, "0600-1900"}, {kStepId, ""}}), "");
    EXPECT_EQ(Find({}, {{kStation, "CT1"}, {kModality, "MR"}, {kStepId, ""}}), "");
    EXPECT_EQ(Find({{tag::kPatientName, "muller*"}}, {{kModality, "MR"}, {kStepId, ""}}), "S2/P1");
    EXPECT_EQ(Find({{kProcedure, "R2"}}, {{kStepId, "S3"}}), "S3/P2");
    EXPECT_EQ(Find({{kProcedure, "R9"}}, {{kStepId, ""}}), "");
    EXPECT_EQ(Find({}, {{kStartDate, "tomorrow"}, {kStepId, ""}}), "49152");
    EXPECT_EQ(complaints, "bad.wl"); // said once
}

TEST_F(WorklistTest, AnswersHoldWhatWasAskedFor) {
    VDicomDS ds;
    Set(ds, {{tag::kCharacterSet, "ISO_IR 100"}, {tag::kPatientName, ""}, {kPregnancy, ""}, {0x00104000, ""}});
    DICOMELEMENT* step = AddItem(ds, nullptr, kSteps, {{kStepId, "S1"}});
    ds.InsertElement(step, 1, kCodes, 0, 1, 0); // without an item: all of it
    std::unique_ptr<WorklistFind> find;
    ASSERT_TRUE(worklist.Start(ds, find).IsSuccess());
    ASSERT_EQ(find->Next(match), Step::match);
    EXPECT_EQ(match.GetCountElement(nullptr), 5u);
    EXPECT_EQ(Text(match, tag::kCharacterSet), "ISO_IR 100");
    EXPECT_EQ(Text(match, tag::kPatientName), "M\xC3\xBCller^A");
    EXPECT_EQ(Text(match, 0x00104000), "");
    unsigned short pregnancy = 0;
    EXPECT_TRUE(match.FindGetValue(nullptr, kPregnancy, 1, &pregnancy, sizeof pregnancy));
    EXPECT_EQ(pregnancy, 4);
    step = match.GetIndexElement(match.FindFirstElement(nullptr, kSteps, 1), 0);
    EXPECT_EQ(match.GetCountElement(step), 2u);
    DICOMELEMENT* code = match.GetIndexElement(match.FindFirstElement(step, kCodes, 1), 0);
    ASSERT_NE(code, nullptr);
    EXPECT_EQ(Text(match, kMeaning, code), "Sch\xC3\xA4"
                                           "del");
    EXPECT_EQ(find->Next(match), Step::done);
}

TEST_F(WorklistTest, OfAKeyThatIsThereTwiceTheFirstCounts) {
    std::string bytes;
    for (const char* value : {"R2", "R1"}) // Requested Procedure ID, then an empty sequence of codes
        bytes += std::string("\x40\x00\x01\x10\x02\x00\x00\x00", 8) + value;
    for (int i = 0; i < 2; ++i)
        bytes += std::string("\x40\x00\x0A\x10\x00\x00\x00\x00", 8);
    folder.Write(".twice", bytes);
    VDicomFile file;
    ASSERT_TRUE(file.Open(folder.File(".twice").c_str(), DICOM_FILE_READ));
    VDicomDS ds;
    ASSERT_EQ(ds.LoadDS(&file, 0, DICOM_TS_IMPLICIT_LITTLE), DICOM_OK);
    ASSERT_EQ(ds.GetCountElement(nullptr), 4u);
    std::unique_ptr<WorklistFind> find;
    ASSERT_TRUE(worklist.Start(ds, find).IsSuccess());
    ASSERT_EQ(find->Next(match), Step::match);
    EXPECT_EQ(match.GetCountElement(nullptr), 2u);
    EXPECT_EQ(Text(match, kProcedure), "R2");
    EXPECT_EQ(find->Next(match), Step::done);
}

TEST_F(WorklistTest, ChangesInTheFolderCount) {
    EXPECT_EQ(Find({}, {{kModality, "CT"}, {kStepId, ""}}), "S1/P1 S3/P2");
    std::filesystem::remove(folder.Path() / "one.wl");
    EXPECT_EQ(Find({}, {{kModality, "CT"}, {kStepId, ""}}), "S3/P2");
    VDicomDS ds;
    Set(ds, {{tag::kPatientID, "P333"}});
    AddItem(ds, nullptr, kSteps, {{kModality, "CT"}, {kStepId, "S33"}});
    ds.SaveDS(folder.File("two.wl").c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE);
    EXPECT_EQ(Find({}, {{kModality, "CT"}, {kStepId, ""}}), "S33/P333");
    Worklist nowhere(folder.File("none"), nullptr);
    std::unique_ptr<WorklistFind> find;
    EXPECT_EQ(nowhere.Start(ds, find).status, 0xA700);
}

} // namespace
