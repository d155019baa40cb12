// Queries, retrievals and storage commitment over a small archive.
#include "TestObjects.h"

#include <gtest/gtest.h>

namespace {

using namespace archive;

constexpr VDicomULong kInstances = 0x00201208;

class Finding : public testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = std::make_unique<TestFolder>();
        archive = std::make_unique<Archive>(ArchiveOptions{folder->File(""), "ARCHIVE"});
        const Values objects[] = {
            {{tag::kPatientName, "Doe^Jane"}, {0x00080020, "20240229"}, {0x00080030, "103015"}, {0x00080050, "A1"}},
            {{tag::kSeries, "1.1.2"}, {0x00080060, "PT"}, {tag::kClass, kMr}, {0x00200013, "7"}},
            {{tag::kStudy, "1.2"}, {tag::kSeries, "1.2.1"}, {0x00080020, "20240301"}, {0x00080030, "090000"}},
            {{tag::kCharacterSet, "ISO_IR 100"},
             {tag::kPatientName, "M\xFCller^J\xF6rg"},
             {tag::kPatientID, "P2"},
             {tag::kStudy, "1.3"},
             {tag::kSeries, "1.3.1"},
             {0x00080020, "20230101"}},
            {{tag::kCharacterSet, "ISO_IR 192"},
             {tag::kPatientName, "Yamada^Tarou=\xE5\xB1\xB1\xE7\x94\xB0^\xE5\xA4\xAA"},
             {tag::kPatientID, "P3"},
             {tag::kStudy, "1.4"},
             {tag::kSeries, "1.4.1"}},
        };
        int number = 0;
        for (const Values& values : objects)
            ASSERT_EQ(archive::Store(*archive, ("1.5." + std::to_string(number++)).c_str(), values), 0);
    }
    static void TearDownTestSuite() {
        archive.reset();
        folder.reset();
    }
    static std::string Find(const Values& identifier, VDicomULong wanted, Root root = Root::study) {
        return FindAll(*archive, identifier, wanted, {root, false});
    }
    static std::string Retrieve(const Values& identifier, Root root = Root::study) {
        VDicomDS ds;
        Set(ds, identifier);
        std::unique_ptr<Retrieval> retrieval;
        if (const Outcome outcome = archive->StartRetrieval(ds, {root, false}, retrieval); !outcome.IsSuccess())
            return std::to_string(outcome.status);
        std::string all = std::to_string(retrieval->Total()) + '/' + std::to_string(retrieval->Syntaxes().size());
        RetrievedObject object;
        while (retrieval->Next(object)) {
            EXPECT_TRUE(std::filesystem::exists(object.path));
            EXPECT_EQ(object.transferSyntax, kExplicit);
            all += ' ' + object.instanceUid;
        }
        EXPECT_FALSE(retrieval->Next(object));
        return all;
    }

    static std::unique_ptr<TestFolder> folder;
    static std::unique_ptr<Archive> archive;
};
std::unique_ptr<TestFolder> Finding::folder;
std::unique_ptr<Archive> Finding::archive;

TEST_F(Finding, AtEveryLevel) {
    const struct {
        Root root;
        Values identifier;
        VDicomULong wanted;
        const char* found;
    } cases[] = {
        {Root::patient, {{tag::kLevel, "PATIENT"}}, tag::kPatientID, "P1 P2 P3"},
        {Root::patient, {{tag::kLevel, "PATIENT"}, {tag::kPatientName, "doe*"}}, tag::kPatientID, "P1"},
        {Root::patient, {{tag::kLevel, "PATIENT"}, {tag::kPatientName, "*JANE"}}, tag::kPatientID, "P1"},
        {Root::patient, {{tag::kLevel, "PATIENT"}, {0x00201200, ""}, {tag::kPatientID, "P1"}}, 0x00201200, "2"},
        {Root::patient, {{tag::kLevel, "PATIENT"}, {0x00201204, ""}, {tag::kPatientID, "P1"}}, 0x00201204, "3"},
        {Root::patient, {{tag::kLevel, "STUDY"}, {tag::kPatientID, "P1"}}, tag::kStudy, "1.1 1.2"},
        {Root::patientStudy, {{tag::kLevel, "STUDY"}, {tag::kPatientID, "P2"}}, tag::kStudy, "1.3"},
        {Root::study, {{tag::kLevel, "STUDY"}, {tag::kPatientName, "MULLER^Jo?g"}}, tag::kStudy, "1.3"},
        {Root::study, {{tag::kLevel, "STUDY"}, {tag::kPatientID, "P?"}, {0x00080020, "-20231231"}}, tag::kStudy, "1.3"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080020, "20240229-20240301"}}, tag::kStudy, "1.1 1.2"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080030, "0800-0930"}}, tag::kStudy, "1.2"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080050, "A*"}}, tag::kStudy, "1.1"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080050, "a1"}}, tag::kStudy, ""},
        {Root::study, {{tag::kLevel, "STUDY"}, {tag::kStudy, "1.2\\1.3\\1.9"}}, tag::kStudy, "1.2 1.3"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080061, "PT"}}, 0x00080061, "CT\\PT"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080062, kMr}, {kInstances, ""}}, kInstances, "2"},
        {Root::study, {{tag::kLevel, "SERIES"}, {tag::kStudy, "1.1"}, {0x00080060, "PT"}}, tag::kSeries, "1.1.2"},
        {Root::study, {{tag::kLevel, "SERIES"}, {tag::kStudy, "1.1"}, {0x00201209, ""}}, 0x00201209, "1 1"},
        {Root::study,
         {{tag::kLevel, "IMAGE"}, {tag::kStudy, "1.1"}, {tag::kSeries, "1.1.2"}, {0x00200013, "07"}},
         tag::kInstance,
         "1.5.1"},
        {Root::patient,
         {{tag::kLevel, "IMAGE"}, {tag::kPatientID, "P1"}, {tag::kStudy, "1.1"}, {tag::kSeries, "1.1.1"}},
         tag::kInstance,
         "1.5.0"},
        // A key that the level above does not have.
        {Root::patient, {{tag::kLevel, "STUDY"}, {tag::kPatientID, "P2"}, {tag::kStudy, "1.1"}}, tag::kStudy, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Find(c.identifier, c.wanted, c.root), c.found) << Find(c.identifier, tag::kStudy, c.root);
}

TEST_F(Finding, RefusesWhatItCannotAnswer) {
    const struct {
        Root root;
        Values identifier;
        const char* begins;
    } cases[] = {
        {Root::study, {}, "43264 Query/Retrieve Level"},
        {Root::study, {{tag::kLevel, "WORLD"}}, "43264 Query/Retrieve Level"},
        {Root::study, {{tag::kLevel, "PATIENT"}}, "43264 the model"},
        {Root::patientStudy, {{tag::kLevel, "SERIES"}, {tag::kPatientID, "P1"}}, "43264 the model"},
        {Root::patient, {{tag::kLevel, "STUDY"}}, "43264 PatientID"},
        {Root::patient, {{tag::kLevel, "STUDY"}, {tag::kPatientID, "P*"}}, "43264 PatientID"},
        {Root::study, {{tag::kLevel, "SERIES"}, {tag::kStudy, ""}}, "43264 StudyInstanceUID"},
        {Root::study, {{tag::kLevel, "SERIES"}, {tag::kStudy, "1.1\\1.2"}}, "43264 StudyInstanceUID"},
        {Root::study, {{tag::kLevel, "IMAGE"}, {tag::kStudy, "1.1"}}, "43264 SeriesInstanceUID"},
        {Root::study, {{tag::kLevel, "STUDY"}, {0x00080020, "yesterday"}}, "49152 the value of (0008,0020)"},
        {Root::study, {{tag::kLevel, "STUDY"}, {tag::kStudy, "1.*"}}, "49152 the value of (0020,000D)"},
    };
    for (const auto& c : cases) {
        const std::string answer = Find(c.identifier, tag::kStudy, c.root);
        EXPECT_EQ(answer.substr(0, std::string(c.begins).size()), c.begins) << answer;
    }
}

TEST_F(Finding, AnswersHoldWhatWasAskedForAndTheKeys) {
    VDicomDS identifier;
    Set(identifier, {{tag::kLevel, "SERIES"}, {tag::kAvailability, ""}, {0x0008103E, ""}, {tag::kStudy, "1.1"}});
    std::unique_ptr<archive::Find> find;
    ASSERT_TRUE(archive->StartFind(identifier, {}, find).IsSuccess());
    EXPECT_EQ(find->PendingStatus(), 0xFF00);
    VDicomDS match;
    ASSERT_EQ(find->Next(match), Step::match);
    EXPECT_EQ(match.GetCountElement(nullptr), 6u);
    EXPECT_EQ(Text(match, tag::kLevel), "SERIES");
    EXPECT_EQ(Text(match, tag::kRetrieveAE), "ARCHIVE");
    EXPECT_EQ(Text(match, tag::kAvailability), "ONLINE");
    EXPECT_EQ(Text(match, 0x0008103E), "");
    EXPECT_EQ(Text(match, tag::kStudy), "1.1");
    EXPECT_EQ(Text(match, tag::kSeries), "1.1.1");
    // Keys that are not supported: of a level below, private, sequences.
    for (const VDicomULong tag : {0x00200013u, 0x00091001u, 0x00400275u}) {
        identifier.InsertElement(nullptr, 0, tag, 0, 0, 0);
        ASSERT_TRUE(archive->StartFind(identifier, {}, find).IsSuccess());
        EXPECT_EQ(find->PendingStatus(), 0xFF01);
        ASSERT_EQ(find->Next(match), Step::match);
        EXPECT_EQ(match.FindFirstElement(nullptr, tag, 1), nullptr);
        identifier.DeleteElement(identifier.FindFirstElement(nullptr, tag, 1));
    }
}

TEST_F(Finding, CharacterSetOfTheAnswers) {
    const auto characterSet = [](const char* asked, const char* patient, const char* name) {
        VDicomDS identifier;
        Set(identifier, {{tag::kCharacterSet, asked},
                         {tag::kLevel, "PATIENT"},
                         {tag::kPatientID, patient},
                         {tag::kPatientName, name}});
        std::unique_ptr<archive::Find> find;
        VDicomDS match;
        if (!archive->StartFind(identifier, {Root::patient, false}, find).IsSuccess() ||
            find->Next(match) != Step::match)
            return std::string("no match");
        return Text(match, tag::kCharacterSet) + ": " + Text(match, tag::kPatientName);
    };
    EXPECT_EQ(characterSet("ISO_IR 100", "P1", ""), "none: Doe^Jane");
    EXPECT_EQ(characterSet("ISO_IR 100", "P2", "m\xFCller*"), "ISO_IR 100: M\xC3\xBCller^J\xC3\xB6rg");
    EXPECT_EQ(characterSet("", "P2", "muller*"), "ISO_IR 192: M\xC3\xBCller^J\xC3\xB6rg");
    EXPECT_EQ(characterSet("ISO_IR 192", "P3", "\xE5\xB1\xB1*").substr(0, 12), "ISO_IR 192: ");
    EXPECT_EQ(characterSet("ISO_IR 100", "P3", "").substr(0, 12), "ISO_IR 192: "); // no Kanji in Latin-1
}

TEST_F(Finding, DateAndTimeTogetherWhenNegotiated) {
    const Values identifier = {
        {tag::kLevel, "STUDY"}, {0x00080020, "20240229-20240301"}, {0x00080030, "100000-093000"}};
    EXPECT_EQ(Find(identifier, tag::kStudy), "");
    EXPECT_EQ(FindAll(*archive, identifier, tag::kStudy, {Root::study, true}), "1.1 1.2");
    const Values before = {{tag::kLevel, "STUDY"}, {0x00080020, "20240229-20240301"}, {0x00080030, "1100-0830"}};
    EXPECT_EQ(FindAll(*archive, before, tag::kStudy, {Root::study, true}), "");
}

TEST_F(Finding, SeesTheIndexAsItWas) {
    VDicomDS identifier;
    Set(identifier, {{tag::kLevel, "STUDY"}});
    std::unique_ptr<archive::Find> before;
    std::unique_ptr<archive::Find> after;
    VDicomDS match;
    ASSERT_TRUE(archive->StartFind(identifier, {}, before).IsSuccess());
    ASSERT_EQ(before->Next(match), Step::match);
    ASSERT_EQ(archive::Store(*archive, "1.5.9", {{tag::kStudy, "1.9"}}), 0);
    ASSERT_TRUE(archive->StartFind(identifier, {}, after).IsSuccess());
    const auto count = [&](archive::Find& find) {
        int matches = 0;
        while (find.Next(match) == Step::match)
            ++matches;
        return matches;
    };
    EXPECT_EQ(count(*before), 3);
    EXPECT_EQ(count(*after), 5);
    EXPECT_EQ(before->Next(match), Step::done);
    ASSERT_EQ(archive::Store(*archive, "1.5.9"), 0); // away again: study 1.1
}

TEST_F(Finding, Retrievals) {
    EXPECT_EQ(Retrieve({{tag::kLevel, "STUDY"}, {tag::kStudy, "1.3\\1.4"}}), "2/1 1.5.3 1.5.4");
    EXPECT_EQ(Retrieve({{tag::kLevel, "SERIES"}, {tag::kStudy, "1.1"}, {tag::kSeries, "1.1.2"}}), "1/1 1.5.1");
    EXPECT_EQ(Retrieve({{tag::kLevel, "PATIENT"}, {tag::kPatientID, "P2"}}, Root::patient), "1/1 1.5.3");
    EXPECT_EQ(Retrieve({{tag::kLevel, "STUDY"}, {tag::kStudy, "9"}}), "0/0");
    EXPECT_EQ(Retrieve({{tag::kLevel, "STUDY"}, {tag::kStudy, "1.3"}, {0x00080060, ""}}), "1/1 1.5.3");
    EXPECT_EQ(Retrieve({{tag::kLevel, "STUDY"}, {tag::kStudy, "1.3"}, {0x00080060, "CT"}}), "43264");
    EXPECT_EQ(Retrieve({{tag::kLevel, "STUDY"}, {tag::kStudy, "1.3"}, {0x00080050, "A1"}}), "43264");
    EXPECT_EQ(Retrieve({{tag::kLevel, "STUDY"}}), "43264");
    EXPECT_EQ(Retrieve({{tag::kLevel, "PATIENT"}, {tag::kPatientID, "*"}}, Root::patient), "43264");
    EXPECT_EQ(Retrieve({{tag::kLevel, "SERIES"}, {tag::kSeries, "1.1.2"}}), "43264");
}

TEST_F(Finding, StorageCommitment) {
    ASSERT_EQ(archive::Store(*archive, "1.6.1", {{tag::kStudy, "1.6"}}), 0);
    ASSERT_EQ(archive::Store(*archive, "1.6.2", {{tag::kStudy, "1.6"}}), 0);
    std::filesystem::remove(folder->Path() / "P1/1.6/1.1.1/1.6.1.dcm");
    std::filesystem::resize_file(folder->Path() / "P1/1.6/1.1.1/1.6.2.dcm", 500);
    const struct {
        const char *classUid, *instance;
        int failure;
    } cases[] = {{kCt, "1.5.0", 0},
                 {kCt, "9.9", 0x0112},
                 {kMr, "1.5.0", 0x0119},
                 {kCt, "1.6.1", 0x0112},
                 {kCt, "1.6.2", 0x0110}};
    for (const auto& c : cases) {
        VDicomDS action;
        Set(action, {{0x00081195, "1.7"}});
        DICOMELEMENT* sequence = action.InsertElement(nullptr, 0, 0x00081199, 0, 1, 0);
        DICOMELEMENT* item = action.InsertElement(sequence, 1, tag::kItem, 0, 1, 0);
        action.FindSetValue(item, 0x00081150, 0, c.classUid, 1);
        action.FindSetValue(item, 0x00081155, 0, c.instance, 1);
        std::unique_ptr<Commitment> commitment;
        ASSERT_TRUE(archive->StartCommitment(action, commitment).IsSuccess());
        EXPECT_TRUE(commitment->Work(1));
        VDicomDS report;
        EXPECT_EQ(commitment->Report(report), c.failure == 0 ? 1 : 2);
        EXPECT_EQ(Text(report, 0x00081195), "1.7");
        const VDicomULong kept = c.failure == 0 ? 0x00081199 : 0x00081198;
        item = report.GetIndexElement(report.FindFirstElement(nullptr, kept, 1), 0);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(Text(report, 0x00081155, item), c.instance);
        unsigned short failure = 0;
        report.FindGetValue(item, 0x00081197, 1, &failure, sizeof failure);
        EXPECT_EQ(failure, c.failure) << c.instance;
    }
    VDicomDS empty;
    std::unique_ptr<Commitment> commitment;
    EXPECT_EQ(archive->StartCommitment(empty, commitment).status, 0x0120);
    Set(empty, {{0x00081195, "no uid"}});
    EXPECT_EQ(archive->StartCommitment(empty, commitment).status, 0x0115);
}

} // namespace
