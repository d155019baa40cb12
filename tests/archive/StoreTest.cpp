// Storing: files, index, refusals, and what is stored again.
#include "TestObjects.h"

#include <gtest/gtest.h>

namespace {

using namespace archive;

class Storing : public testing::Test {
protected:
    std::string PathOf(const std::string& below) const { return folder.File(below); }
    std::string Counts() {
        const Archive::Count count = archive->Counts();
        return std::to_string(count.patients) + ' ' + std::to_string(count.studies) + ' ' +
               std::to_string(count.series) + ' ' + std::to_string(count.instances);
    }
    void Reopen() {
        archive.reset();
        archive = std::make_unique<Archive>(ArchiveOptions{folder.File(""), "ARCHIVE"});
    }

    TestFolder folder;
    std::unique_ptr<Archive> archive = std::make_unique<Archive>(ArchiveOptions{folder.File(""), "ARCHIVE"});
};

TEST_F(Storing, FilesStandByPatientStudyAndSeries) {
    ASSERT_EQ(Store(*archive, "1.5", {{0x00280010, "\x00\x02"}}), 0);
    VDicomDS stored;
    ASSERT_EQ(stored.LoadDS(PathOf("P1/1.1/1.1.1/1.5.dcm").c_str(), 0), DICOM_OK);
    EXPECT_EQ(Text(stored, 0x00020002), kCt);
    EXPECT_EQ(Text(stored, 0x00020003), "1.5");
    EXPECT_EQ(Text(stored, 0x00020010), kExplicit);
    EXPECT_EQ(Text(stored, 0x00020016), "SENDER");
    EXPECT_EQ(stored.GetCountFault(), 0u);
    EXPECT_EQ(Counts(), "1 1 1 1");
    ASSERT_EQ(Store(*archive, "1.6", {{tag::kSeries, "1.1.2"}}), 0);
    ASSERT_EQ(Store(*archive, "1.7", {{tag::kPatientID, "P2"}, {tag::kStudy, "1.2"}}), 0);
    EXPECT_EQ(Counts(), "2 2 3 3");
    Reopen();
    EXPECT_EQ(Counts(), "2 2 3 3");
}

TEST_F(Storing, HostileNamesStayInTheFolder) {
    const char* const ids[] = {"..",
                               "../../x",
                               "a/b",
                               "a\\b",
                               "NUL",
                               ".vdicom",
                               "",
                               "%none",
                               "x",
                               "X",
                               "a very long patient id / a very long patient id / a very long patient id / 123456789"};
    int number = 0;
    for (const char* id : ids) {
        const std::string uid = "1.9." + std::to_string(number++);
        ASSERT_EQ(Store(*archive, uid.c_str(), {{tag::kPatientID, id}, {tag::kStudy, uid.c_str()}}), 0) << id;
    }
    EXPECT_EQ(FilesBelow(folder.Path()), std::size(ids));
    EXPECT_EQ(archive->Counts().patients, std::size(ids));
    EXPECT_EQ(FilesBelow(folder.Path() / ".vdicom"), 0u);
    for (const auto& [wrong, status] : {std::pair{"../1", 0xC000}, {"", 0xC000}, {"1/2", 0xC000}})
        EXPECT_EQ(Store(*archive, "1.8", {{tag::kStudy, wrong}}), static_cast<unsigned>(status)) << wrong;
}

TEST_F(Storing, ObjectsThatContradictTheRequestAreRefused) {
    VDicomDS object;
    MakeObject(object, "1.5");
    const auto receive = [&](const StoreRequest& request) { return Receive(*archive, object, &request).status; };
    EXPECT_EQ(receive({kMr, "1.5", kExplicit, ""}), status::kDoesNotMatchClass);
    EXPECT_EQ(receive({kCt, "1.6", kExplicit, ""}), status::kDoesNotMatchClass);
    EXPECT_EQ(receive({kCt, "../1.5", kExplicit, ""}), status::kUnableToProcess);
    EXPECT_EQ(receive({kCt, "", kExplicit, ""}), status::kUnableToProcess);
    for (const VDicomULong missing : {tag::kClass, tag::kInstance, tag::kStudy, tag::kSeries}) {
        MakeObject(object, "1.5");
        object.DeleteElement(object.FindFirstElement(nullptr, missing, 1));
        EXPECT_EQ(receive({kCt, "1.5", kExplicit, ""}), status::kUnableToProcess);
    }
    EXPECT_EQ(archive->Store().Flush().status, 0);
    EXPECT_EQ(FilesBelow(folder.Path()), 0u);
    EXPECT_EQ(Counts(), "0 0 0 0");
}

TEST_F(Storing, AnObjectStoredAgainReplacesTheOneBefore) {
    const Values study = {{tag::kLevel, "STUDY"}};
    for (const char* description : {"first", "second", "third"}) {
        ASSERT_EQ(Store(*archive, "1.5", {{0x00081030, description}}), 0);
        EXPECT_EQ(Counts(), "1 1 1 1");
        EXPECT_EQ(FilesBelow(folder.Path()), 1u);
        EXPECT_EQ(FindAll(*archive, {{tag::kLevel, "STUDY"}, {0x00081030, ""}}, 0x00081030), description);
        EXPECT_EQ(FindAll(*archive, {{tag::kLevel, "STUDY"}, {0x00201208, ""}}, 0x00201208), "1");
    }
    // Twice in one turn.
    VDicomDS object;
    for (const char* description : {"fourth", "fifth"}) {
        MakeObject(object, "1.5", {{0x00081030, description}});
        ASSERT_EQ(Receive(*archive, object).status, 0);
    }
    ASSERT_EQ(archive->Store().Flush().status, 0);
    EXPECT_EQ(FindAll(*archive, {{tag::kLevel, "STUDY"}, {0x00081030, ""}}, 0x00081030), "fifth");
    EXPECT_EQ(FilesBelow(folder.Path()), 1u);
    // In another study, of another class: the old one has nothing left.
    ASSERT_EQ(Store(*archive, "1.6"), 0);
    ASSERT_EQ(Store(*archive, "1.5", {{tag::kStudy, "1.2"}, {tag::kClass, kMr}}), 0);
    EXPECT_EQ(FindAll(*archive, {{tag::kLevel, "STUDY"}, {0x00080062, ""}}, 0x00080062), std::string(kCt) + ' ' + kMr);
    ASSERT_EQ(Store(*archive, "1.6", {{tag::kStudy, "1.2"}, {tag::kPatientID, "P2"}}), 0);
    EXPECT_EQ(FindAll(*archive, study, tag::kStudy), "1.2 1.2");
    EXPECT_EQ(Counts(), "2 2 2 2");
}

TEST_F(Storing, EmptyValuesDoNotTakeKnownOnesAway) {
    ASSERT_EQ(Store(*archive, "1.5", {{0x00081030, "Head"}, {0x00100040, "F"}}), 0);
    ASSERT_EQ(Store(*archive, "1.6", {{0x00081030, ""}}), 0);
    EXPECT_EQ(FindAll(*archive, {{tag::kLevel, "STUDY"}, {0x00081030, ""}, {0x00100040, "F"}}, 0x00081030), "Head");
}

TEST_F(Storing, WithoutPatientIdNameAndBirthDateTellApart) {
    ASSERT_EQ(Store(*archive, "1.5", {{tag::kPatientID, ""}, {tag::kPatientName, "A"}, {tag::kStudy, "1.1"}}), 0);
    ASSERT_EQ(Store(*archive, "1.6", {{tag::kPatientID, ""}, {tag::kPatientName, "B"}, {tag::kStudy, "1.2"}}), 0);
    ASSERT_EQ(Store(*archive, "1.7", {{tag::kPatientID, ""}, {tag::kPatientName, "A"}, {tag::kStudy, "1.3"}}), 0);
    EXPECT_EQ(Counts(), "2 3 3 3");
}

TEST_F(Storing, OneProcessUsesAnArchive) {
    EXPECT_THROW(Archive({folder.File(""), ""}), ArchiveError);
    EXPECT_THROW(Reindex(folder.File(""), nullptr, nullptr), ArchiveError);
}

TEST_F(Storing, WhatWasBeingReceivedIsGoneAfterwards) {
    folder.Write(".vdicom/unfinished/7", "half");
    Reopen();
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path() / ".vdicom/unfinished"));
    IncomingFile file;
    ASSERT_EQ(archive->Store().Begin({kCt, "1.5", kExplicit, ""}, file).status, 0);
    EXPECT_FALSE(std::filesystem::is_empty(folder.Path() / ".vdicom/unfinished"));
    file.Discard();
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path() / ".vdicom/unfinished"));
}

TEST_F(Storing, AnIndexThatCannotBeUsedIsRefused) {
    ASSERT_EQ(Store(*archive, "1.5"), 0);
    archive.reset();
    Database(folder.File(".vdicom/index.sqlite"), Database::Mode::write).Execute("PRAGMA user_version = 99");
    EXPECT_THROW(Reopen(), ArchiveError);
    std::filesystem::remove(folder.Path() / ".vdicom/index.sqlite");
    EXPECT_THROW(Reopen(), ArchiveError); // files, and no index
    folder.Write(".vdicom/index.sqlite", std::string(4096, 'x'));
    EXPECT_THROW(Reopen(), ArchiveError);
    EXPECT_EQ(Reindex(folder.File(""), nullptr, nullptr).indexed, 1u);
    Reopen();
    EXPECT_EQ(Counts(), "1 1 1 1");
}

// Every row of every table, without the numbers that rows happen to have.
std::string Everything(const TestFolder& folder) {
    Database database(folder.File(".vdicom/index.sqlite"), Database::Mode::write);
    Statement rows(database, "SELECT * FROM patient JOIN study ON study.patient = patient.id JOIN series ON "
                             "series.study = study.id JOIN instance ON instance.series = series.id JOIN name ON "
                             "name.patient = patient.id JOIN series_class ON series_class.series = series.id "
                             "ORDER BY SOPInstanceUID, folded");
    std::string all;
    while (rows.Step()) {
        for (int column = 0; column < sqlite3_data_count(rows.Handle()); ++column) {
            const std::string name = sqlite3_column_name(rows.Handle(), column);
            if (name != "id" && name != "patient" && name != "study" && name != "series")
                all += name + "=" + std::string(rows.Text(column)) + "\n";
        }
    }
    return all;
}

TEST_F(Storing, ReindexGivesTheSameIndex) {
    for (int i = 0; i < 40; ++i) {
        const std::string uid = "1.5." + std::to_string(i % 30); // ten of them twice
        const std::string series = "1.1." + std::to_string(i % 4);
        const std::string patient = "P" + std::to_string(i % 3);
        ASSERT_EQ(Store(*archive, uid.c_str(),
                        {{tag::kCharacterSet, "ISO_IR 192"},
                         {tag::kSeries, series.c_str()},
                         {tag::kPatientID, patient.c_str()},
                         {tag::kPatientName, "M\xC3\xBCller^A=X"},
                         {0x00080008, "A\\B"}}),
                  0);
    }
    archive.reset();
    const std::string before = Everything(folder);
    ASSERT_NE(before.find("PatientName=M\xC3\xBCller^A=X"), std::string::npos);
    folder.Write("P0/readme.txt", "no DICOM file");
    std::string complaints;
    std::uint64_t calls = 0;
    const ReindexCounts counts = Reindex(
        folder.File(""), [&](const ReindexCounts&) { return ++calls != 0; },
        [&](const std::string& path, const std::string&) { complaints += path; });
    EXPECT_EQ(counts.indexed, 30u);
    EXPECT_EQ(counts.failed, 1u);
    EXPECT_EQ(counts.total, 31u);
    EXPECT_EQ(calls, 31u);
    EXPECT_EQ(complaints, "P0/readme.txt");
    EXPECT_EQ(Everything(folder), before);
    // Stopped: the index stays as it was.
    Reindex(
        folder.File(""), [](const ReindexCounts&) { return false; }, nullptr);
    EXPECT_EQ(Everything(folder), before);
    // A file of another name is found, and replaced when it comes again.
    std::filesystem::rename(folder.Path() / "P0/1.1/1.1.2/1.5.0.dcm", folder.Path() / "renamed");
    EXPECT_EQ(Reindex(folder.File(""), nullptr, nullptr).indexed, 30u);
    Reopen();
    ASSERT_EQ(Store(*archive, "1.5.0"), 0);
    EXPECT_EQ(archive->Store().Settle().status, 0);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "renamed"));
}

TEST_F(Storing, ReindexKeepsTheNewestFileOfAnObject) {
    namespace fs = std::filesystem;
    ASSERT_EQ(Store(*archive, "1.5", {{0x00081030, "new"}}), 0);
    archive.reset();
    const fs::path present = folder.Path() / "P1/1.1/1.1.1/1.5.dcm";
    for (const char* name : {"A", "Z"}) { // whichever is looked at first
        VDicomDS old;
        MakeObject(old, "1.5", {{0x00081030, "old"}, {tag::kStudy, "1.9"}});
        fs::create_directory(folder.Path() / name);
        const std::string path = folder.File(std::string(name) + "/old.dcm");
        ASSERT_EQ(old.SaveDS(path.c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE), DICOM_OK);
        fs::last_write_time(path, fs::last_write_time(present) - std::chrono::hours(1));
    }
    const ReindexCounts counts = Reindex(folder.File(""), nullptr, nullptr);
    EXPECT_EQ(counts.indexed, 1u);
    EXPECT_EQ(counts.duplicates, 2u);
    Reopen();
    EXPECT_EQ(FindAll(*archive, {{tag::kLevel, "STUDY"}, {0x00081030, ""}}, 0x00081030), "new");
}

TEST_F(Storing, FilesOfOtherObjectsAreNotOverwritten) {
    namespace fs = std::filesystem;
    const fs::path series = folder.Path() / "P1/1.1/1.1.1";
    ASSERT_EQ(Store(*archive, "1.5"), 0);
    ASSERT_EQ(Store(*archive, "1.6"), 0);
    archive.reset();
    fs::rename(series / "1.5.dcm", series / "1.7.dcm");
    ASSERT_EQ(Reindex(folder.File(""), nullptr, nullptr).indexed, 2u);
    Reopen();
    ASSERT_EQ(Store(*archive, "1.7"), 0);
    EXPECT_TRUE(fs::exists(series / "1.7.dcm") && fs::exists(series / "1.7~.dcm"));
    archive.reset();
    fs::remove(series / "1.7~.dcm");
    fs::rename(series / "1.6.dcm", series / "1.7~.dcm");
    ASSERT_EQ(Reindex(folder.File(""), nullptr, nullptr).indexed, 2u);
    Reopen();
    EXPECT_EQ(Store(*archive, "1.7"), 0xA700u);
    EXPECT_EQ(
        FindAll(*archive, {{tag::kLevel, "IMAGE"}, {tag::kStudy, "1.1"}, {tag::kSeries, "1.1.1"}}, tag::kInstance),
        "1.5 1.6");
    // In one turn: the file that the first leaves is not yet the second's to take.
    VDicomDS object;
    for (const char* uid : {"1.5", "1.7"}) {
        MakeObject(object, uid);
        ASSERT_EQ(Receive(*archive, object).status, uid[2] == '5' ? 0 : 0xA700);
    }
    ASSERT_EQ(archive->Store().Flush().status, 0);
    EXPECT_EQ(Store(*archive, "1.7"), 0);
    EXPECT_EQ(Counts(), "1 1 1 3");
    EXPECT_EQ(FilesBelow(folder.Path()), 3u);
}

// Index and journal as processes leave them that are killed.
TEST_F(Storing, TheJournalIsMadeGood) {
    ASSERT_EQ(Store(*archive, "1.5", {{0x00081030, "first"}}), 0);
    archive.reset();
    const auto put = [&](const char* name, const char* uid, const char* description) {
        VDicomDS object;
        MakeObject(object, uid, {{0x00081030, description}});
        ASSERT_EQ(object.SaveDS(PathOf(name).c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE), DICOM_OK);
    };
    put("P1/1.1/1.1.1/1.5~.dcm", "1.5", "again");
    put("P1/1.1/1.1.1/1.6.dcm", "1.6", "new");
    put("P1/1.1/1.1.1/1.7.dcm", "1.7", "not acknowledged");
    folder.Write("damaged.dcm", "no DICOM file");
    folder.Write(".vdicom/journal", "P1/1.1/1.1.1/1.5~.dcm\ngone.dcm\ndamaged.dcm\nP1/1.1/1.1.1/1.5.dcm\n"
                                    "P1/1.1/1.1.1/1.5~.dcm\nP1/1.1/1.1.1/1.6.dcm\nP1/1.1/1.1.1/1.7.dcm");
    std::string complaints;
    ArchiveOptions options{folder.File(""), "ARCHIVE"};
    options.complaint = [&](const std::string& path, const std::string&) { complaints += path; };
    for (int round = 0; round < 2; ++round) { // nothing is left to do for the second
        archive.reset();
        archive = std::make_unique<Archive>(options);
        EXPECT_EQ(complaints, "damaged.dcm");
        EXPECT_EQ(Counts(), "1 1 1 2");
        EXPECT_TRUE(std::filesystem::exists(PathOf("P1/1.1/1.1.1/1.5~.dcm")));
        EXPECT_FALSE(std::filesystem::exists(PathOf("P1/1.1/1.1.1/1.5.dcm")));
    }
}

// A retrieval is under way while one of its objects is stored again.
TEST_F(Storing, ARetrievalFindsTheFilesThatAreThere) {
    for (const char* uid : {"1.5", "1.6"})
        ASSERT_EQ(Store(*archive, uid), 0);
    VDicomDS identifier;
    Set(identifier, {{tag::kLevel, "STUDY"}, {tag::kStudy, "1.1"}});
    std::unique_ptr<Retrieval> retrieval;
    ASSERT_TRUE(archive->StartRetrieval(identifier, {}, retrieval).IsSuccess());
    ASSERT_EQ(retrieval->Total(), 2u);
    ASSERT_EQ(Store(*archive, "1.6", {{tag::kSeries, "1.1.2"}}), 0);
    RetrievedObject object;
    for (const bool settled : {false, true}) {
        EXPECT_TRUE(!settled || archive->Store().Settle().IsSuccess());
        ASSERT_TRUE(retrieval->Next(object));
        EXPECT_TRUE(std::filesystem::exists(object.path)) << object.path;
    }
    EXPECT_FALSE(retrieval->Next(object));
}

TEST_F(Storing, FoldersWithoutFilesAreNoArchiveWithoutAnIndex) {
    namespace fs = std::filesystem;
    archive.reset();
    fs::remove_all(folder.Path() / ".vdicom");
    fs::create_directory(folder.Path() / "lost+found");
    fs::permissions(folder.Path() / "lost+found", fs::perms::none);
    Reopen();
    EXPECT_EQ(Counts(), "0 0 0 0");
    archive.reset();
    EXPECT_EQ(Reindex(folder.File(""), nullptr, nullptr).total, 0u);
    fs::permissions(folder.Path() / "lost+found", fs::perms::owner_all);
}

} // namespace
